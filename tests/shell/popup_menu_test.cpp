// The popup menu of Calculator: where the right button opens it, and where
// each of its entries leads.
#include <map>
#include <string>
#include <vector>

#include "app_fixture.h"

namespace {

class PopupMenu : public StartedApp {
  protected:
    struct PopupWatch : forms::RuntimeObserver {
        void PopupMenuRequested(forms::MenuItem& menu) override { shown.push_back(menu.Name()); }
        std::vector<std::string> shown;
    };

    void SetUp() override {
        StartedApp::SetUp();
        app->Runtime().SetObserver(&watch);
    }
    void TearDown() override { app->Runtime().SetObserver(nullptr); }

    forms::Form& Calc() { return *P().Calculator; }
    void Press(forms::Control& c, int button) {
        app->Runtime().PressMouse(c, button, 0, c.Width() / 2, c.Height() / 2);
    }

    PopupWatch watch;
};

const char* const kControlsWithThePopup[] = {
    "Decimal",    "Spacebar",  "Foot",   "Inch",        "Plus",   "Minus",
    "Multiply",   "Divide",    "Cancel", "CancelEntry", "Equal",  "Square",
    "SquareRoot", "Backspace", "Pi",     "Label1",      "Readout"};

TEST_F(PopupMenu, TheRightButtonOpensItFromEveryKeyLabelReadoutAndTheForm) {
    std::vector<forms::Control*> controls;
    for (int i = 0; i < 10; ++i) controls.push_back(&Calc().Get("Number", i));
    for (const char* name : kControlsWithThePopup) controls.push_back(&Calc().Get(name));
    for (forms::Control* c : controls) {
        watch.shown.clear();
        Press(*c, forms::kRightButton);
        EXPECT_EQ(watch.shown, std::vector<std::string>{"mnuPopup1"}) << c->FullName();
    }
    watch.shown.clear();
    app->Runtime().PressMouse(Calc(), forms::kRightButton, 0, 60, 60);
    EXPECT_EQ(watch.shown, std::vector<std::string>{"mnuPopup1"});
    EXPECT_EQ(app->Runtime().LastPopupMenu(), &Calc().GetMenu("mnuPopup1"));
}

TEST_F(PopupMenu, ARightClickPressesNoKey) {
    std::vector<forms::Control*> controls;
    for (int i = 0; i < 10; ++i) controls.push_back(&Calc().Get("Number", i));
    for (const char* name : kControlsWithThePopup) controls.push_back(&Calc().Get(name));
    P().calc->Readout.SetCaption("12");
    for (forms::Control* c : controls) Press(*c, forms::kRightButton);
    EXPECT_EQ(P().calc->Readout.Caption(), "12");
    EXPECT_EQ(P().tape->TapeRowCount()[0], 0);
    EXPECT_FALSE(P().state.FirstValue.has_value());
    EXPECT_FALSE(app->Runtime().Dragging());
}

TEST_F(PopupMenu, OtherButtonsOpenNothing) {
    for (int button : {forms::kLeftButton, 4}) {
        Press(P().calc->Equal, button);
        Press(*P().calc->Number[7], button);
        Press(P().calc->Label1, button);
        app->Runtime().PressMouse(Calc(), button, 0, 60, 60);
    }
    Press(P().calc->Readout, 4);
    EXPECT_TRUE(watch.shown.empty());
    // The left button on Readout starts its drag, and no popup.
    Press(P().calc->Readout, forms::kLeftButton);
    EXPECT_TRUE(app->Runtime().Dragging());
    app->Runtime().CancelDrag();
    EXPECT_TRUE(watch.shown.empty());
}

TEST_F(PopupMenu, EachEntryRunsWhateverItsTwinDoes) {
    const std::map<std::string, std::string> twins = {
        {"mnuPopup1NewMemory", "NewMemory"},
        {"mnuPopup1NamedMemory", "NamedMemory"},
        {"mnuPopup1Accuracy16", "Sixteen"},
        {"mnuPopup1Accuracy32", "thirtysecond"},
        {"mnuPopup1Zoom75", "ZoomSmall"},
        {"mnuPopup1Zoom100", "ZoomLarge"},
        {"mnuPopup1ShowKeys", "ShowKeys"},
        {"mnuPopup1ShowTape", "mnuTape"},
        {"mnuPopUp1Circumference", "Circumference"},
        {"mnuPopUp1AreaofCircle", "CircArea"},
        {"mnuPopUp1VolumeofCylinder", "CylVolume"},
        {"mnuPopUp1Diagonal", "mnuDiagonal"},
    };
    std::vector<std::string> ran;
    for (const auto& [entry, twin] : twins) {
        Calc().GetMenu(twin).Click = [&ran, name = twin] { ran.push_back(name); };
    }
    for (const auto& [entry, twin] : twins) {
        ran.clear();
        ASSERT_TRUE(Calc().GetMenu(entry).Click) << entry;
        Calc().GetMenu(entry).Click();
        EXPECT_EQ(ran, std::vector<std::string>{twin}) << entry;
    }
    // A twin without a Click yet: the entry does nothing, and fails nothing.
    for (const auto& [entry, twin] : twins) Calc().GetMenu(twin).Click = nullptr;
    for (const auto& [entry, twin] : twins) Calc().GetMenu(entry).Click();
}

TEST_F(PopupMenu, TheSeparatorsAndEntriesStandInOrder) {
    std::vector<std::string> names;
    for (const auto& item : Calc().GetMenu("mnuPopup1").Items()) names.push_back(item->Name());
    const std::vector<std::string> expected = {"mnuPopup1NewMemory",    "mnuPopup1NamedMemory",
                                               "mnuPopup1Separator1",   "mnuPopup1Accuracy16",
                                               "mnuPopup1Accuracy32",   "mnuPopup1Separator2",
                                               "mnuPopup1Zoom75",       "mnuPopup1Zoom100",
                                               "mnuPopup1ShowKeys",     "mnuPopup1ShowTape",
                                               "mnuPopup1Separator3",   "mnuPopUp1Circumference",
                                               "mnuPopUp1AreaofCircle", "mnuPopUp1VolumeofCylinder",
                                               "mnuPopUp1Diagonal",     "mnuPopup1Separator4",
                                               "mnuPopup1Cancel"};
    EXPECT_EQ(names, expected);
    EXPECT_FALSE(Calc().GetMenu("mnuPopup1").Visible());
}

TEST_F(PopupMenu, CancelDoesNothing) {
    P().calc->Readout.SetCaption("8");
    Calc().GetMenu("mnuPopup1Cancel").Click();
    EXPECT_EQ(P().calc->Readout.Caption(), "8");
    EXPECT_EQ(P().tape->TapeRowCount()[0], 0);
    EXPECT_EQ(beeper.count, 0);
    EXPECT_TRUE(Calc().GetMenu("Sixteen").Checked());
}

}  // namespace
