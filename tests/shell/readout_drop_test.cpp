// Drops on Readout from a memory cell's label, through the runtime's drag
// session and through the handlers directly, at both zoom sizes.
#include "core/readout_drop.h"
#include "app_fixture.h"
#include "core/evaluate.h"
#include "shell/catalogue.h"

namespace {

class ReadoutDrop : public StartedApp {
  protected:
    void SetUp() override {
        StartedApp::SetUp();
        cell = &shell::MakeMemoryCell(app->Runtime());
        cell->Show();
        // The calculator stays the active window, as when the cell came by
        // New Memory: giving Equal the focus then activates nothing.
        Runtime().Activate(*P().Calculator);
        label = &cell->Get("Label1");
    }

    forms::Control& Readout() { return P().calc->Readout; }
    forms::Runtime& Runtime() { return app->Runtime(); }

    // Commits `text` as the first value, as typing it and Equal would.
    void Commit(const std::string& text) {
        P().state.PendingOperation = core::kNone;
        Readout().SetCaption(text);
        core::EqualClick(P());
    }

    // The cell's label dragged onto Readout and let go at X (the form's
    // coordinates, as Readout's events count).
    void DropCell(const std::string& caption, float x) {
        label->SetCaption(caption);
        Runtime().PressMouse(*label, forms::kLeftButton, 0, 700, 100);
        ASSERT_TRUE(Runtime().Dragging());
        const auto ownX = static_cast<float>(x - Readout().Left());
        Runtime().DragMove(&Readout(), ownX, 100);
        Runtime().Drop(&Readout(), ownX, 100);
    }

    std::string Row(int row) { return Grid().Cell(row, 0); }
    int Rows() { return P().tape->TapeRowCount()[0]; }

    void AtSeventyFivePercent() {
        Readout().SetLeft(139);
        Readout().SetWidth(2385);
    }

    forms::Form* cell = nullptr;
    forms::Control* label = nullptr;
};

TEST_F(ReadoutDrop, ACellAddedOnTheRightHalf) {
    Commit("2'");
    DropCell(" 1'- 6\" ", 2000);
    EXPECT_EQ(Readout().Caption(), "3'- 6\" ");
    EXPECT_EQ(P().state.FirstValue, 42);
    EXPECT_EQ(P().state.FirstText, " 3'- 6\"");
    EXPECT_EQ(P().state.PendingOperation, 0);
    ASSERT_EQ(Rows(), 4);
    EXPECT_EQ(Row(2), " + 1'- 6\" ");
    EXPECT_EQ(Row(3), "---------------- ");
    EXPECT_EQ(Row(4), " 3'- 6\" ");
    // The source keeps its value; Readout's icon goes back to neutral.
    EXPECT_EQ(label->Caption(), " 1'- 6\" ");
    EXPECT_EQ(Readout().DragIcon(), "Image3");
    EXPECT_EQ(label->DragIcon(), "Image1");
    EXPECT_EQ(Runtime().Focus(), &P().calc->Equal);
}

TEST_F(ReadoutDrop, ACellSubtractedOnTheLeftHalfMayGoNegative) {
    Commit("1'");
    DropCell(" 2'- 0\"", 1000);
    EXPECT_EQ(P().state.FirstValue, -12);
    EXPECT_EQ(P().state.ResultText, "- 1'- 0\"");
    EXPECT_EQ(Readout().Caption(), "- 1'- 0\" ");
    EXPECT_EQ(Row(2), " - 2'- 0\" ");
    EXPECT_EQ(Row(4), "- 1'- 0\" ");
    EXPECT_EQ(label->DragIcon(), "Image2");
}

TEST_F(ReadoutDrop, HalvesAtSeventyFivePercent) {
    AtSeventyFivePercent();
    Commit("2'");
    DropCell(" 1'- 0\"", 1331.5f);  // the middle: 139 + 2385 / 2
    EXPECT_EQ(Readout().Caption(), "3'- 0\" ");
    DropCell(" 1'- 0\"", 1331);
    EXPECT_EQ(Readout().Caption(), "2'- 0\" ");
    DropCell(" 1'- 0\"", 1500);  // left of the middle at 100%, right of it here
    EXPECT_EQ(Readout().Caption(), "3'- 0\" ");
    EXPECT_EQ(Row(2), " + 1'- 0\" ");
    EXPECT_EQ(Row(5), " - 1'- 0\" ");
    EXPECT_EQ(Row(8), " + 1'- 0\" ");
}

TEST_F(ReadoutDrop, DragOverSetsTheIconsOfReadoutAndOfTheSourceAtSeventyFivePercent) {
    AtSeventyFivePercent();
    core::ReadoutDragOver(P(), *label, 1331.5f, 100, forms::kDragOver);
    EXPECT_EQ(Readout().DragIcon(), "Image1");
    EXPECT_EQ(label->DragIcon(), "Image1");
    core::ReadoutDragOver(P(), *label, 1331, 100, forms::kDragOver);
    EXPECT_EQ(Readout().DragIcon(), "Image2");
    EXPECT_EQ(label->DragIcon(), "Image2");
    core::ReadoutDragOver(P(), *label, 2524.5f, 100, forms::kDragOver);  // past the right end
    EXPECT_EQ(label->DragIcon(), "Image2");
    core::ReadoutDragOver(P(), *label, 2524, 100, forms::kDragOver);
    EXPECT_EQ(label->DragIcon(), "Image1");
    core::ReadoutDragOver(P(), *label, 138.5f, 100, forms::kDragOver);  // before the left end
    EXPECT_EQ(label->DragIcon(), "Image1");
}

TEST_F(ReadoutDrop, TheDragShowsTheIconsThatDragOverSets) {
    struct IconWatch : forms::RuntimeObserver {
        void DragIconChanged(const std::string& picture) override { icons.push_back(picture); }
        std::vector<std::string> icons;
    } watch;
    Runtime().SetObserver(&watch);
    label->SetCaption(" 1'- 0\"");
    label->SetDragIcon("Image3");
    Runtime().PressMouse(*label, forms::kLeftButton, 0, 700, 100);
    Runtime().DragMove(&Readout(), 100, 100);   // X 285: left half
    Runtime().DragMove(&Readout(), 3000, 100);  // X 3185: right half
    Runtime().CancelDrag();
    Runtime().SetObserver(nullptr);
    EXPECT_EQ(watch.icons, (std::vector<std::string>{"Image3", "Image2", "Image1"}));
}

TEST_F(ReadoutDrop, AnAreaOnARunningAreaAddsInSquareInches) {
    P().state.FirstValue = 144;
    P().state.FirstText = " 1'- 0\" sq.";
    P().state.PendingOperation = core::kNone;
    Readout().SetCaption(" 1'- 0\" sq.");
    DropCell(" 72\" sq.", 2000);
    EXPECT_EQ(P().state.ResultValue, 216);
    EXPECT_EQ(P().state.FirstValue, 216);
    EXPECT_EQ(Readout().Caption(), "1'- 72\" sq. ");
    EXPECT_EQ(Row(3), " 1'- 72\" sq. ");
}

TEST_F(ReadoutDrop, AnAreaOnARunningLengthIsRefused) {
    Commit("5'");
    Readout().SetCaption("anything");
    const auto icon = Readout().DragIcon();
    beeper.count = 0;
    DropCell(" 1'- 0\" sq.", 2000);
    EXPECT_EQ(beeper.count, 2);
    EXPECT_EQ(Readout().Caption(), "5'");
    EXPECT_EQ(Rows(), 1);
    // The icon stays as DragOver left it.
    EXPECT_EQ(Readout().DragIcon(), "Image1");
    EXPECT_NE(icon, "Image1");
}

TEST_F(ReadoutDrop, ARefusedDropMovesNoFocusAndLeavesTheTapeAlone) {
    Commit("5'");
    Grid().SetCols(2);
    Grid().SetCol(1);
    ASSERT_TRUE(Runtime().SetFocus(Grid()));
    label->SetCaption(" 1'- 0\" cu.");
    core::ReadoutDragDrop(P(), *label, 2000, 100);
    EXPECT_EQ(Runtime().Focus(), &Grid());
    EXPECT_EQ(Grid().Col(), 1);
}

TEST_F(ReadoutDrop, AFailedCombinationEndsTheDropButKeepsItsLine) {
    // A running area, but Readout shows a number typed since.
    P().state.FirstValue = 144;
    P().state.FirstText = " 1'- 0\" sq.";
    P().state.PendingOperation = core::kNone;
    Readout().SetCaption("5");
    Readout().SetDragIcon("Image1");
    ASSERT_TRUE(Runtime().SetFocus(Grid()));
    beeper.count = 0;
    label->SetCaption(" 1'- 0\" sq.");
    core::ReadoutDragDrop(P(), *label, 2000, 100);
    EXPECT_EQ(P().state.ResultText, "ERROR");
    EXPECT_EQ(beeper.count, 2);
    EXPECT_EQ(Readout().Caption(), " 1'- 0\" sq.");  // SignalError put FirstText back
    EXPECT_EQ(P().state.FirstValue, 144);
    EXPECT_EQ(P().state.PendingOperation, 0);
    ASSERT_EQ(Rows(), 1);
    EXPECT_EQ(Row(1), " + 1'- 0\" sq. ");
    // No rule, no icon reset, no focus move.
    EXPECT_EQ(Readout().DragIcon(), "Image1");
    EXPECT_EQ(Runtime().Focus(), &Grid());
}

TEST_F(ReadoutDrop, TheTapeOnShowTurnsToTheCalculatorButCurrentTapeStays) {
    Commit("5'");
    P().tape->TapeRowCount().push_back(0);
    P().tape->TapeNames().push_back("Memory 1");
    Grid().SetCols(2);
    Grid().SetCol(1);
    Grid().SetLeftCol(1);
    P().tape->CurrentTape = 1;
    Tape().Get("Label1").SetCaption("Memory 1");
    core::ReadoutDragDrop(P(), *label, 2000, 100);  // the cell shows "0."
    EXPECT_EQ(Grid().Col(), 0);
    EXPECT_EQ(Grid().LeftCol(), 0);
    EXPECT_EQ(Tape().Get("Label1").Caption(), "Calculator");
    EXPECT_EQ(P().tape->CurrentTape, 1);
    EXPECT_EQ(Row(2), " + 0. ");
    EXPECT_EQ(P().tape->TapeRowCount()[1], 0);
}

TEST_F(ReadoutDrop, AWaitingMultiplicationWithNothingCommittedStillRefusesByItsTable) {
    // Unreachable by the keys: multiply pending, nothing committed.
    P().state.FirstValue.reset();
    P().state.PendingOperation = core::kMultiply;
    P().state.FirstText = " 1'- 0\" sq.";
    beeper.count = 0;
    label->SetCaption(" 2'- 0\" sq.");
    core::ReadoutDragDrop(P(), *label, 2000, 100);
    EXPECT_EQ(beeper.count, 2);
    // A length passes and is taken as the first value.
    P().state.PendingOperation = core::kMultiply;
    label->SetCaption(" 2'- 0\"");
    core::ReadoutDragDrop(P(), *label, 2000, 100);
    EXPECT_EQ(beeper.count, 2);
    EXPECT_EQ(P().state.FirstValue, 24);
    EXPECT_EQ(P().state.PendingOperation, 0);
    EXPECT_EQ(Readout().Caption(), " 2'- 0\"");
}

TEST_F(ReadoutDrop, MouseDownReadiesTheNeutralIconOnlyForTheLeftButton) {
    Readout().SetDragIcon("Image2");
    core::ReadoutMouseDown(P(), 4, 0, 0, 0);  // the middle button
    EXPECT_EQ(Readout().DragIcon(), "Image2");
    EXPECT_EQ(Runtime().LastPopupMenu(), nullptr);
    core::ReadoutMouseDown(P(), forms::kRightButton, 0, 0, 0);
    EXPECT_EQ(Readout().DragIcon(), "Image2");
    EXPECT_EQ(Runtime().LastPopupMenu(), &P().Calculator->GetMenu("mnuPopup1"));
    core::ReadoutMouseDown(P(), forms::kLeftButton, 0, 0, 0);
    EXPECT_EQ(Readout().DragIcon(), "Image3");
}

}  // namespace
