// The help path and the printing handlers where no scenario reaches them:
// the NUL that ends HelpFilePath, the entries of the tape's popup menu,
// which nothing pops up, and printing with no printer at all.
#include <gtest/gtest.h>

#include "forms/headless_services.h"
#include "shell/lathmark_app.h"

namespace {

class HelpAndPrinting : public ::testing::Test {
  protected:
    void Start(bool withPrinter) {
        forms::Services services{&beeper, &messages, &settings};
        if (withPrinter) services.printer = &printer;
        services.help = &help;
        app = std::make_unique<shell::LathmarkApp>(services, forms::ScreenInfo{});
        app->Start();
        app->MainLoopPass();
    }
    core::Program& P() { return app->Program(); }

    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    forms::RecordingPrinter printer;
    forms::RecordingHelpSystem help{"/opt/lathmark/bin"};
    std::unique_ptr<shell::LathmarkApp> app;
};

TEST_F(HelpAndPrinting, HelpFilePathEndsInOneNulAndTheHelpSeesThePathBeforeIt) {
    Start(true);
    const std::string& path = P().HelpFilePath;
    ASSERT_FALSE(path.empty());
    EXPECT_EQ(path.back(), '\0');
    EXPECT_EQ(path.find('\0'), path.size() - 1);
    EXPECT_EQ(path, std::string("/opt/lathmark/bin/guide/lathmark.html") + '\0');
    P().Calculator->GetMenu("mnuHelpContents").Click();
    ASSERT_EQ(help.shown.size(), 1u);
    EXPECT_EQ(help.shown[0], "/opt/lathmark/bin/guide/lathmark.html");
}

TEST_F(HelpAndPrinting, TheHelpReadsOnlyUpToTheFirstNul) {
    Start(true);
    P().HelpFilePath = std::string("/a/guide.html") + '\0' + "left over";
    P().Calculator->GetMenu("mnuHelpContents").Click();
    ASSERT_EQ(help.shown.size(), 1u);
    EXPECT_EQ(help.shown[0], "/a/guide.html");
}

TEST_F(HelpAndPrinting, TheTapePopupEntriesPrintAsTheFileMenuDoes) {
    Start(true);
    for (char k : std::string("4\r")) {
        std::int16_t ascii = k;
        P().Calculator->KeyPress(ascii);
    }
    P().frmTape->GetMenu("mnuPopup2PrintTape").Click();
    ASSERT_EQ(printer.printed.size(), 1u);
    EXPECT_EQ(printer.printed[0].fontName, "Courier");
    EXPECT_EQ(printer.printed[0].lines,
              (std::vector<std::string>{"Calculator", "          ", "         4"}));
    P().Calculator->GetMenu("NewMemory").Click();
    P().frmTape->GetMenu("mnuPopup2PrintAllTapes").Click();
    ASSERT_EQ(printer.printed.size(), 3u);
    EXPECT_EQ(printer.printed[2].lines, (std::vector<std::string>{"Memory 1", "        "}));
    EXPECT_EQ(P().tape->Grid1().Col(), 1);
}

TEST_F(HelpAndPrinting, WithNoPrinterNothingIsSaidAndTheGridStillMoves) {
    Start(false);
    P().Calculator->GetMenu("NewMemory").Click();
    P().Calculator->GetMenu("mnuPrintAll").Click();
    EXPECT_TRUE(messages.shown.empty());
    EXPECT_EQ(P().tape->Grid1().Col(), 1);
    EXPECT_EQ(P().tape->Grid1().Row(), 0);
}

}  // namespace
