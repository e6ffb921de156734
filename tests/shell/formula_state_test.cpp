// Formula states that no key can bring about, set directly on the state.
#include "app_fixture.h"
#include "core/evaluate.h"

namespace {

class FormulaState : public StartedApp {
  protected:
    void Enter(const std::string& text) {
        P().calc->Readout.SetCaption(text);
        core::EqualClick(P());
    }
};

TEST_F(FormulaState, PendingMultiplyTakesPrecedenceOverAWaitingFormula) {
    P().Calculator->GetMenu("Circumference").Click();
    ASSERT_EQ(P().state.FormulaState, 1);
    P().state.PendingOperation = core::kMultiply;
    Enter("5");
    // the entry is its own second operand: 5 x 5 told as a length
    EXPECT_EQ(P().state.FormulaState, 1);
    EXPECT_EQ(P().calc->Readout.Caption(), " 2'- 1\"");
    EXPECT_EQ(P().calc->Label1.Caption(), " Enter diameter of circle");
}

TEST_F(FormulaState, SecondStepWithNothingCommittedIsAPlainFirstEntry) {
    P().state.FormulaState = 33;
    P().state.PendingOperation = core::kNone;
    Enter("7");
    EXPECT_EQ(P().state.FormulaState, 33);
    ASSERT_TRUE(P().state.FirstValue.has_value());
    EXPECT_EQ(*P().state.FirstValue, 7);
    EXPECT_EQ(P().tape->TapeRowCount()[0], 1);
    EXPECT_EQ(P().tape->Grid1().Cell(1, 0), "7 ");
}

TEST_F(FormulaState, FormulaLinesGoIntoTheCurrentColumn) {
    P().tape->TapeRowCount().push_back(0);
    P().tape->TapeNames().push_back("Memory 1");
    P().tape->Grid1().SetCols(2);
    P().tape->Grid1().SetCol(1);
    P().Calculator->GetMenu("mnuDiagonal").Click();
    Enter("3");
    // counted on tape 0, written into column 1
    EXPECT_EQ(P().tape->TapeRowCount()[0], 2);
    EXPECT_EQ(P().tape->Grid1().Cell(1, 1), "Diagonal ");
    EXPECT_EQ(P().tape->Grid1().Cell(1, 0), "");
    Enter("4");
    // the closing lines select column 0 first
    EXPECT_EQ(P().tape->Grid1().Cell(5, 0), " 5\" ");
}

}  // namespace
