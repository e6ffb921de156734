// The tape window's handlers: walking between tapes, hiding by a double
// click, the grid's height, and the stacking when the grid gets the focus.
#include "tape/tape_window.h"

#include "app_fixture.h"

namespace {

class TapeWindow : public StartedApp {
  protected:
    // Three tapes, as after two memory cells were made.
    void GiveThreeTapes() {
        P().tape->TapeRowCount().push_back(0);
        P().tape->TapeRowCount().push_back(0);
        P().tape->TapeNames().push_back("Memory 1");
        P().tape->TapeNames().push_back("Memory 2");
        Grid().SetCols(3);
    }
    void Press(std::int16_t key) { tape::TapeGridKeyDown(P(), key, 0); }
};

TEST_F(TapeWindow, ArrowKeysWithOneTapeStayOnTheCalculator) {
    Press(39);
    EXPECT_EQ(Grid().Col(), 0);
    Press(37);
    EXPECT_EQ(Grid().Col(), 0);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Calculator");
}

TEST_F(TapeWindow, RightFromTheLastTapeGoesToTheCalculator) {
    GiveThreeTapes();
    Press(39);
    EXPECT_EQ(Grid().Col(), 1);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Memory 1");
    EXPECT_EQ(P().tape->CurrentTape, 1);
    EXPECT_EQ(Grid().LeftCol(), 1);
    Press(39);
    Press(39);
    EXPECT_EQ(Grid().Col(), 0);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Calculator");
    EXPECT_EQ(P().tape->CurrentTape, 0);
}

TEST_F(TapeWindow, LeftFromTheCalculatorGoesToTheLastTape) {
    GiveThreeTapes();
    Press(37);
    EXPECT_EQ(Grid().Col(), 2);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Memory 2");
}

TEST_F(TapeWindow, WalkingClearsTheKeySoTheGridDoesNotActOnIt) {
    std::int16_t key = 39;
    tape::TapeGridKeyDown(P(), key, 0);
    EXPECT_EQ(key, 0);
    std::int16_t down = 40;
    tape::TapeGridKeyDown(P(), down, 0);
    EXPECT_EQ(down, 40);
}

TEST_F(TapeWindow, ArrowButtonsWalkAndGiveTheGridTheFocus) {
    GiveThreeTapes();
    Tape().Get("cmdScrollTape", 1).Click();
    EXPECT_EQ(Grid().Col(), 1);
    EXPECT_EQ(P().runtime.Focus(), &Grid());
    Tape().Get("cmdScrollTape", 0).Click();
    EXPECT_EQ(Grid().Col(), 0);
}

TEST_F(TapeWindow, DoubleClickHidesTheTapeButLeavesThePopupCheck) {
    Grid().DblClick();
    EXPECT_FALSE(Tape().Visible());
    EXPECT_FALSE(P().Calculator->GetMenu("mnuTape").Checked());
    EXPECT_TRUE(P().Calculator->GetMenu("mnuPopup1ShowTape").Checked());
    // the next use of the menu goes by mnuTape's mark: it shows the tape
    P().Calculator->GetMenu("mnuPopup1ShowTape").Click();
    EXPECT_TRUE(Tape().Visible());
}

TEST_F(TapeWindow, DoubleClickOnTheTitleHidesTheTape) {
    Tape().Get("Label1").DblClick();
    EXPECT_FALSE(Tape().Visible());
}

TEST_F(TapeWindow, DraggedToNothingKeepsOneLineOfGrid) {
    Tape().ReportGeometry(Tape().Left(), Tape().Top(), Tape().Width(), 0);
    EXPECT_EQ(Tape().Height(), 400);
    EXPECT_EQ(Grid().Height(), forms::Grid::kRowHeight);
}

TEST_F(TapeWindow, GridAndColumnsTakeTheInnerWidth) {
    GiveThreeTapes();
    Tape().ReportGeometry(Tape().Left(), Tape().Top(), Tape().Width(), 2200);
    EXPECT_EQ(Grid().Width(), Tape().ScaleWidth());
    for (int c = 0; c < 3; ++c) EXPECT_EQ(Grid().ColWidth(c), Tape().ScaleWidth());
    EXPECT_EQ(Tape().Get("cmdScrollTape", 1).Left(), Tape().ScaleWidth() - 210);
}

TEST_F(TapeWindow, GridFocusPutsTheTapeThenTheCalculatorOnTop) {
    P().runtime.SetTopMost(Tape(), true);  // tape in front for a moment
    P().runtime.SetFocus(Grid());
    ASSERT_EQ(P().runtime.TopMostBand().size(), 2u);
    EXPECT_EQ(P().runtime.TopMostBand()[0], P().Calculator);
    EXPECT_EQ(P().runtime.TopMostBand()[1], &Tape());
}

TEST_F(TapeWindow, TapeFollowingLeavesTheStackingAlone) {
    P().runtime.SetTopMost(Tape(), true);
    P().TapeFollowing = 1;
    Tape().ReportGeometry(Tape().Left(), Tape().Top(), Tape().Width(), 2200);
    EXPECT_EQ(P().runtime.TopMostBand()[0], &Tape());
    EXPECT_EQ(P().TapeResizeGuard, 0);
}

}  // namespace

namespace {

TEST_F(TapeWindow, ActivatingTheCalculatorTurnsTheTapeToTapeZeroAndScrolls) {
    GiveThreeTapes();
    for (int i = 0; i < 4; ++i) P().tape->TapeAddRows(0, 3);  // 12 lines on tape 0
    Press(39);
    Press(39);
    ASSERT_EQ(P().tape->CurrentTape, 2);
    P().Calculator->Activate();
    EXPECT_EQ(P().tape->CurrentTape, 0);
    EXPECT_EQ(Grid().Col(), 0);
    EXPECT_EQ(Grid().LeftCol(), 0);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Calculator");
    EXPECT_EQ(Grid().TopRow(), 12 - 5 + 1);
}

TEST_F(TapeWindow, GotFocusTurnsTheTapeWithoutChangingCurrentTapeOrScrolling) {
    GiveThreeTapes();
    Press(39);
    const auto topRow = Grid().TopRow();
    P().tape->TapeAddRows(0, 12);
    P().Calculator->GotFocus();
    EXPECT_EQ(P().tape->CurrentTape, 1);
    EXPECT_EQ(Grid().Col(), 0);
    EXPECT_EQ(Grid().LeftCol(), 0);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Calculator");
    EXPECT_EQ(Grid().TopRow(), topRow);
}

}  // namespace
