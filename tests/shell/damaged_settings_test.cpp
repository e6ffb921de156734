// A damaged settings file starts the program with its defaults, and the end
// of the program writes a good file over it.
#include <stdlib.h>

#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "forms/headless_services.h"
#include "forms/settings_file.h"
#include "shell/lathmark_app.h"

namespace {

class DamagedSettings : public ::testing::Test {
  protected:
    void SetUp() override {
        char pattern[] = "/tmp/lathmark-settings-XXXXXX";
        ASSERT_NE(mkdtemp(pattern), nullptr);
        dir = pattern;
        file = dir / "Lathmark.conf";
    }
    void TearDown() override { std::filesystem::remove_all(dir); }

    std::filesystem::path dir, file;
    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
};

TEST_F(DamagedSettings, GarbageGivesTheDefaultsAndTheEndRepairsIt) {
    {
        std::ofstream out(file, std::ios::binary);
        out << "\x01\x02[Settings\nCalcTop=\xff\xfe\x00\x00 garbage" << std::string(50, '\0');
    }
    forms::FileSettingsStore store(file);
    shell::LathmarkApp app(forms::Services{&beeper, &messages, &store}, forms::ScreenInfo{});
    app.Start();
    forms::Form& calc = *app.Program().Calculator;
    EXPECT_EQ(calc.Left(), 12592);  // centred on a 1920 x 1080 screen
    EXPECT_EQ(calc.Top(), 6305);
    EXPECT_TRUE(calc.GetMenu("ShowKeys").Checked());
    EXPECT_TRUE(app.Program().frmTape->Visible());

    calc.ReportGeometry(1500, 2500, calc.Width(), calc.Height());
    app.MainLoopPass();
    app.Runtime().Unload(calc);
    EXPECT_TRUE(app.Ended());

    forms::FileSettingsStore reread(file);
    EXPECT_EQ(reread.Read("Settings", "CalcLeft").value_or(""), "1500");
    EXPECT_EQ(reread.Read("settings", "calctop").value_or(""), "2500");
    EXPECT_EQ(reread.Read("Colors", "CalcBackGround").value_or(""), "8421376");
}

TEST_F(DamagedSettings, AnUnwritableFolderCostsOnlyTheSave) {
    // A regular file where the folder should be: nothing can be written.
    std::ofstream(dir / "blocked") << "x";
    forms::FileSettingsStore store(dir / "blocked" / "Lathmark.conf");
    shell::LathmarkApp app(forms::Services{&beeper, &messages, &store}, forms::ScreenInfo{});
    app.Start();
    app.Runtime().Unload(*app.Program().Calculator);
    EXPECT_TRUE(app.Ended());
    EXPECT_EQ(messages.shown.size(), 0u);
}

}  // namespace
