// The tape store on its own: a grid on a tape window of a standalone forms
// runtime, with the row counts and titles beside it. Five rows of 225 twips
// are visible in a grid 1125 twips high.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "forms/grid.h"
#include "forms/runtime.h"
#include "tape/tape_store.h"

namespace {

class TapeStoreTest : public ::testing::Test {
  protected:
    TapeStoreTest()
        : runtime(forms::Services{}, forms::ScreenInfo{}),
          form(runtime.CreateForm("frmTape", forms::BorderStyle::SizableNoTitle)),
          grid(form.AddControl<forms::Grid>(std::string("Grid1"))),
          store(grid) {
        grid.SetHeight(1125);
    }

    // Gives the store tapes 0 to last, as the making of memory cells does.
    void MakeTapes(int last) {
        for (int t = static_cast<int>(store.TapeRowCount().size()); t <= last; ++t) {
            store.TapeRowCount().push_back(0);
            store.TapeNames().push_back("Memory " + std::to_string(t));
        }
        grid.SetCols(last + 1);
    }

    std::int16_t Count(int tape) const { return store.TapeRowCount()[tape]; }

    forms::Runtime runtime;
    forms::Form& form;
    forms::Grid& grid;
    tape::TapeStore store;
};

// ---- the new store ---------------------------------------------------------

TEST_F(TapeStoreTest, NewStoreHoldsOnlyTheEmptyCalculatorTape) {
    ASSERT_EQ(store.TapeRowCount().size(), 1u);
    ASSERT_EQ(store.TapeNames().size(), 1u);
    EXPECT_EQ(Count(0), 0);
    EXPECT_EQ(store.TapeNames()[0], "Calculator");
    EXPECT_EQ(store.CurrentTape, 0);
    EXPECT_EQ(grid.Rows(), 10);
    EXPECT_EQ(grid.Cols(), 1);
}

TEST_F(TapeStoreTest, ResetCutsBackToTheCalculatorTape) {
    MakeTapes(2);
    store.TapeAddRows(0, 4);
    store.Reset();
    ASSERT_EQ(store.TapeRowCount().size(), 1u);
    ASSERT_EQ(store.TapeNames().size(), 1u);
    EXPECT_EQ(Count(0), 0);
    EXPECT_EQ(store.TapeNames()[0], "Calculator");
}

// ---- TapeAddRows -----------------------------------------------------------

TEST_F(TapeStoreTest, AddingThreeRowsToANewTapeGivesCountThreeAndThirteenRows) {
    store.TapeAddRows(0, 3);
    EXPECT_EQ(Count(0), 3);
    EXPECT_EQ(grid.Rows(), 13);
}

TEST_F(TapeStoreTest, AddingOneMoreRowGivesCountFourAndFourteenRows) {
    store.TapeAddRows(0, 3);
    store.TapeAddRows(0, 1);
    EXPECT_EQ(Count(0), 4);
    EXPECT_EQ(grid.Rows(), 14);
}

TEST_F(TapeStoreTest, RowsGrowOnlyByWhatTheMarginOfTenNeeds) {
    store.TapeAddRows(0, 25);
    EXPECT_EQ(grid.Rows(), 35);
    store.TapeAddRows(0, 2);
    EXPECT_EQ(grid.Rows(), 37);
}

TEST_F(TapeStoreTest, AGridThatIsLongEnoughIsLeftAsItIs) {
    grid.SetRows(50);
    store.TapeAddRows(0, 3);
    EXPECT_EQ(Count(0), 3);
    EXPECT_EQ(grid.Rows(), 50);
}

TEST_F(TapeStoreTest, ANegativeCountLowersTheCountButNeverShrinksTheGrid) {
    store.TapeAddRows(0, 8);
    store.TapeAddRows(0, -3);
    EXPECT_EQ(Count(0), 5);
    EXPECT_EQ(grid.Rows(), 18);
}

TEST_F(TapeStoreTest, CountZeroChangesNoCountButRaisesAShortGrid) {
    grid.SetRows(4);
    store.TapeAddRows(0, 0);
    EXPECT_EQ(Count(0), 0);
    EXPECT_EQ(grid.Rows(), 10);
}

TEST_F(TapeStoreTest, CountZeroLeavesAGridThatIsLongEnough) {
    store.TapeAddRows(0, 6);
    store.TapeAddRows(0, 0);
    EXPECT_EQ(Count(0), 6);
    EXPECT_EQ(grid.Rows(), 16);
}

TEST_F(TapeStoreTest, GrowingTapeTwoPastTapeZeroRaisesTheRowsForAllTapes) {
    MakeTapes(2);
    store.AppendLines(0, {"a ", "b ", "c "}, true);
    store.TapeAddRows(2, 20);
    EXPECT_EQ(Count(2), 20);
    EXPECT_EQ(Count(0), 3);
    EXPECT_EQ(Count(1), 0);
    EXPECT_EQ(grid.Rows(), 30);
    // Tape 0's rows below its end exist now and stay empty.
    for (int row = 4; row < 30; ++row) EXPECT_EQ(grid.Cell(row, 0), "") << row;
    EXPECT_EQ(grid.Cell(3, 0), "c ");
}

TEST_F(TapeStoreTest, AShorterTapeDoesNotRaiseRowsThatALongerTapeRaised) {
    MakeTapes(2);
    store.TapeAddRows(2, 20);
    store.TapeAddRows(0, 5);
    EXPECT_EQ(grid.Rows(), 30);
    EXPECT_EQ(Count(0), 5);
}

TEST_F(TapeStoreTest, ATapeBeyondTheArraysAddsNothingAndLeavesTheRows) {
    store.TapeAddRows(1, 3);
    EXPECT_EQ(store.TapeRowCount().size(), 1u);
    EXPECT_EQ(Count(0), 0);
    EXPECT_EQ(grid.Rows(), 10);
}

TEST_F(TapeStoreTest, ATapeBeyondTheArraysDoesNotRaiseEvenAShortGrid) {
    grid.SetRows(4);
    store.TapeAddRows(1, 0);
    store.TapeAddRows(5, 2);
    store.TapeAddRows(-1, 2);
    EXPECT_EQ(grid.Rows(), 4);
    EXPECT_EQ(Count(0), 0);
}

TEST_F(TapeStoreTest, ATapeBeyondTheArraysButWithinTheColumnsAddsNothing) {
    grid.SetCols(3);
    store.TapeAddRows(2, 4);
    EXPECT_EQ(store.TapeRowCount().size(), 1u);
    EXPECT_EQ(grid.Rows(), 10);
}

TEST_F(TapeStoreTest, CountStopsAt32767AndLaterAddsLeaveIt) {
    store.TapeRowCount()[0] = 32760;
    store.TapeAddRows(0, 7);
    EXPECT_EQ(Count(0), 32767);
    store.TapeAddRows(0, 1);
    EXPECT_EQ(Count(0), 32767);
    store.TapeAddRows(0, 3);
    EXPECT_EQ(Count(0), 32767);
}

TEST_F(TapeStoreTest, AnAddThatWouldOverflowIsNotStoredAtAll) {
    store.TapeRowCount()[0] = 32765;
    store.TapeAddRows(0, 5);  // 32,770 does not fit: the count stays
    EXPECT_EQ(Count(0), 32765);
}

TEST_F(TapeStoreTest, GridStopsGrowingOnceCountPlusTenOverflows) {
    store.TapeRowCount()[0] = 32750;
    store.TapeAddRows(0, 5);
    EXPECT_EQ(Count(0), 32755);
    EXPECT_EQ(grid.Rows(), 32765);
    // 32,760 + 10 does not fit in 16 bits: the count grows, the grid not.
    store.TapeAddRows(0, 5);
    EXPECT_EQ(Count(0), 32760);
    EXPECT_EQ(grid.Rows(), 32765);
    store.TapeAddRows(0, 7);
    EXPECT_EQ(Count(0), 32767);
    EXPECT_EQ(grid.Rows(), 32765);
    store.TapeAddRows(0, 1);
    EXPECT_EQ(Count(0), 32767);
    EXPECT_EQ(grid.Rows(), 32765);
}

TEST_F(TapeStoreTest, GridReachesItsLargestSizeWhenCountPlusTenIs32767) {
    store.TapeRowCount()[0] = 32750;
    store.TapeAddRows(0, 7);
    EXPECT_EQ(Count(0), 32757);
    EXPECT_EQ(grid.Rows(), 32767);
}

TEST_F(TapeStoreTest, OverflowOnOneTapeLeavesTheOthersGrowing) {
    MakeTapes(1);
    store.TapeRowCount()[1] = 32767;
    store.TapeAddRows(1, 1);
    store.TapeAddRows(0, 2);
    EXPECT_EQ(Count(1), 32767);
    EXPECT_EQ(Count(0), 2);
    EXPECT_EQ(grid.Rows(), 12);
}

// ---- the writers' pattern --------------------------------------------------

TEST_F(TapeStoreTest, LinesAreAddressedBackwardsFromTheNewEnd) {
    store.AppendLines(0, {"5 "}, true);
    store.AppendLines(0, {"+ 3 ", "--------------- ", " 8\" "}, true);
    EXPECT_EQ(Count(0), 4);
    EXPECT_EQ(grid.Cell(0, 0), "");
    EXPECT_EQ(grid.Cell(1, 0), "5 ");
    EXPECT_EQ(grid.Cell(2, 0), "+ 3 ");
    EXPECT_EQ(grid.Cell(3, 0), "--------------- ");
    EXPECT_EQ(grid.Cell(4, 0), " 8\" ");
    EXPECT_EQ(grid.Row(), 4);
    EXPECT_EQ(grid.Rows(), 14);
}

TEST_F(TapeStoreTest, LinesWithoutAColumnChoiceLandInTheCurrentColumn) {
    MakeTapes(2);
    grid.SetCol(2);
    store.AppendLines(0, {"Diagonal ", "Side1 =  3\" "}, false);
    EXPECT_EQ(Count(0), 2);
    EXPECT_EQ(Count(2), 0);
    EXPECT_EQ(grid.Cell(1, 2), "Diagonal ");
    EXPECT_EQ(grid.Cell(2, 2), "Side1 =  3\" ");
    EXPECT_EQ(grid.Cell(1, 0), "");
    EXPECT_EQ(grid.Col(), 2);
}

TEST_F(TapeStoreTest, LinesWithAColumnChoiceSelectTheTapesColumn) {
    MakeTapes(2);
    store.AppendLines(2, {"x ", "y "}, true);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.Cell(1, 2), "x ");
    EXPECT_EQ(grid.Cell(2, 2), "y ");
    EXPECT_EQ(grid.Cell(1, 0), "");
}

TEST_F(TapeStoreTest, AfterTheOverflowLaterLinesOverwriteTheLastRows) {
    grid.SetRows(32767);
    store.TapeRowCount()[0] = 32766;
    // 32,768 does not fit: the count stays, and the group is addressed back
    // from the old end, over the last rows of the tape.
    store.AppendLines(0, {"a ", "b "}, true);
    EXPECT_EQ(Count(0), 32766);
    EXPECT_EQ(grid.Cell(32765, 0), "a ");
    EXPECT_EQ(grid.Cell(32766, 0), "b ");
    store.AppendLines(0, {"c ", "d "}, true);
    EXPECT_EQ(Count(0), 32766);
    EXPECT_EQ(grid.Cell(32765, 0), "c ");
    EXPECT_EQ(grid.Cell(32766, 0), "d ");
    EXPECT_EQ(grid.Rows(), 32767);
}

TEST_F(TapeStoreTest, ALineBeyondTheRowsIsLostFromItsPlaceAndLandsOnTheCurrentRow) {
    // The grid stopped at 32,765 rows (0 to 32,764) while the count went on.
    store.TapeRowCount()[0] = 32750;
    store.TapeAddRows(0, 5);
    store.TapeAddRows(0, 5);
    ASSERT_EQ(grid.Rows(), 32765);
    ASSERT_EQ(Count(0), 32760);
    store.AppendLines(0, {"p ", "q ", "r ", "s ", "t ", "u "}, true);
    // Count 32,766: rows 32,761 to 32,764 take p to s; rows 32,765 and 32,766
    // do not exist, so the row stays on 32,764 and t and u are written there.
    EXPECT_EQ(Count(0), 32766);
    EXPECT_EQ(grid.Cell(32761, 0), "p ");
    EXPECT_EQ(grid.Cell(32762, 0), "q ");
    EXPECT_EQ(grid.Cell(32763, 0), "r ");
    EXPECT_EQ(grid.Cell(32764, 0), "u ");
    EXPECT_EQ(grid.Row(), 32764);
    EXPECT_EQ(grid.Rows(), 32765);
}

TEST_F(TapeStoreTest, LinesForATapeBeyondTheArraysAllGoIntoTheCurrentCell) {
    store.AppendLines(0, {"a ", "b ", "c "}, true);
    grid.SetRow(2);
    store.AppendLines(1, {"x ", "y "}, false);
    EXPECT_EQ(store.TapeRowCount().size(), 1u);
    EXPECT_EQ(Count(0), 3);
    EXPECT_EQ(grid.Cell(0, 0), "");
    EXPECT_EQ(grid.Cell(1, 0), "a ");
    EXPECT_EQ(grid.Cell(2, 0), "y ");
    EXPECT_EQ(grid.Cell(3, 0), "c ");
    EXPECT_EQ(grid.Row(), 2);
}

// ---- TapeWriteClear --------------------------------------------------------

TEST_F(TapeStoreTest, ClearOnAnEmptyTapeLeavesThreeRowsThatShowOneWord) {
    store.TapeWriteClear(0);
    EXPECT_EQ(Count(0), 3);
    EXPECT_EQ(grid.Cell(0, 0), "");
    EXPECT_EQ(grid.Cell(1, 0), " ");
    EXPECT_EQ(grid.Cell(2, 0), "Clear ");
    EXPECT_EQ(grid.Cell(3, 0), " ");
    EXPECT_EQ(grid.Rows(), 13);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), 0);
}

TEST_F(TapeStoreTest, ClearFollowsTheLinesAlreadyOnTheTape) {
    store.AppendLines(0, {"5 "}, true);
    store.TapeWriteClear(0);
    store.TapeWriteClear(0);
    EXPECT_EQ(Count(0), 7);
    const std::vector<std::string> expected{"", "5 ", " ", "Clear ", " ", " ", "Clear ", " "};
    for (int row = 0; row < 8; ++row) EXPECT_EQ(grid.Cell(row, 0), expected[row]) << row;
    EXPECT_EQ(grid.Rows(), 17);
}

TEST_F(TapeStoreTest, ClearSelectsTheColumnOfItsTape) {
    MakeTapes(2);
    store.TapeWriteClear(2);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(Count(2), 3);
    EXPECT_EQ(Count(0), 0);
    EXPECT_EQ(grid.Cell(2, 2), "Clear ");
    EXPECT_EQ(grid.Cell(2, 0), "");
}

TEST_F(TapeStoreTest, ClearDoesNotScroll) {
    grid.SetHeight(225);  // one visible row
    store.TapeWriteClear(0);
    EXPECT_EQ(grid.TopRow(), 0);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 3);
}

TEST_F(TapeStoreTest, ClearOnATapeBeyondTheArraysWritesIntoTheCurrentCellOnly) {
    store.AppendLines(0, {"a ", "b "}, true);
    grid.SetRow(1);
    store.TapeWriteClear(1);  // no such tape, and no column 1
    EXPECT_EQ(store.TapeRowCount().size(), 1u);
    EXPECT_EQ(Count(0), 2);
    EXPECT_EQ(grid.Rows(), 12);
    EXPECT_EQ(grid.Col(), 0);
    EXPECT_EQ(grid.Row(), 1);
    // The three texts go one after the other into the current cell.
    EXPECT_EQ(grid.Cell(0, 0), "");
    EXPECT_EQ(grid.Cell(1, 0), " ");
    EXPECT_EQ(grid.Cell(2, 0), "b ");
}

// ---- TapeScrollToEnd -------------------------------------------------------

TEST_F(TapeStoreTest, ScrollOnAnEmptyTapeStaysAtTheTop) {
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 0);
}

TEST_F(TapeStoreTest, CountOneLessThanTheVisibleRowsKeepsTopRowZero) {
    store.TapeAddRows(0, 4);
    grid.SetTopRow(3);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 0);
}

TEST_F(TapeStoreTest, CountEqualToTheVisibleRowsScrollsRowZeroOut) {
    store.TapeAddRows(0, 5);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(TapeStoreTest, ALongerTapePutsItsLastLineOnTheBottomRow) {
    store.TapeAddRows(0, 12);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 8);  // rows 8 to 12 in view
}

TEST_F(TapeStoreTest, VisibleRowsDropTheFractionOfARow) {
    grid.SetHeight(1124);  // 4.99 rows: 4 visible
    store.TapeAddRows(0, 4);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(TapeStoreTest, HeightIsRoundedToAWholeTwipHalvesToEvenBeforeDividing) {
    store.TapeAddRows(0, 6);
    grid.SetHeight(1349.5);  // rounds to 1350: 6 visible
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 1);
    grid.SetHeight(1348.5);  // rounds to 1348: 5 visible
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 2);
    grid.SetHeight(1349.6);  // rounds to 1350: 6 visible
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(TapeStoreTest, AGridTooLowForOneRowStillShowsTheLastLineAtTheTop) {
    grid.SetHeight(100);  // no whole row visible
    store.TapeAddRows(0, 3);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 4);
}

TEST_F(TapeStoreTest, VisibleRowsBeyond16BitsCountAsNone) {
    grid.SetHeight(225.0 * 40000);  // 40,000 rows do not fit in 16 bits
    store.TapeAddRows(0, 3);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 4);
}

TEST_F(TapeStoreTest, ScrollFollowsTheTapeOnShowNotTheTapeWritten) {
    MakeTapes(2);
    store.TapeAddRows(2, 20);
    store.TapeAddRows(0, 2);
    store.CurrentTape = 0;
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 0);
    store.CurrentTape = 2;
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 16);
    store.TapeAddRows(0, 1);
    store.TapeScrollToEnd();
    EXPECT_EQ(grid.TopRow(), 16);
}

TEST_F(TapeStoreTest, ATopRowTheGridRefusesLeavesTheOldOne) {
    grid.SetTopRow(2);
    store.TapeRowCount()[0] = 40;  // counted, but the grid never grew
    store.TapeScrollToEnd();       // 36 lies outside a grid of 10 rows
    EXPECT_EQ(grid.TopRow(), 2);
    EXPECT_EQ(grid.Rows(), 10);
}

// ---- the grid holds what was written --------------------------------------

TEST_F(TapeStoreTest, RowsAndColumnsCutOffAndGrownAgainReadAsEmpty) {
    MakeTapes(2);
    store.AppendLines(2, {"a ", "b ", "c "}, true);
    store.AppendLines(0, {"x "}, true);
    grid.SetRows(2);
    EXPECT_EQ(grid.Cell(1, 2), "a ");
    EXPECT_EQ(grid.Cell(2, 2), "");  // outside the grid
    grid.SetRows(20);
    EXPECT_EQ(grid.Cell(1, 2), "a ");
    EXPECT_EQ(grid.Cell(2, 2), "");
    EXPECT_EQ(grid.Cell(3, 2), "");
    grid.SetCols(1);
    grid.SetCols(3);
    EXPECT_EQ(grid.Cell(1, 2), "");
    EXPECT_EQ(grid.Cell(1, 0), "x ");
}

TEST_F(TapeStoreTest, EveryCellOfALargeGridReadsAsWritten) {
    MakeTapes(40);
    store.TapeAddRows(40, 30000);
    ASSERT_EQ(grid.Rows(), 30010);
    ASSERT_TRUE(grid.SetRow(29999));
    ASSERT_TRUE(grid.SetCol(40));
    ASSERT_TRUE(grid.SetText("last "));
    ASSERT_TRUE(grid.SetCell(5, 7, "five "));
    EXPECT_EQ(grid.Text(), "last ");
    for (int col = 0; col < grid.Cols(); ++col) {
        for (int row = 0; row < grid.Rows(); ++row) {
            const bool written = (row == 29999 && col == 40) || (row == 5 && col == 7);
            if (!written) {
                ASSERT_EQ(grid.Cell(row, col), "") << row << ", " << col;
            }
        }
    }
    EXPECT_EQ(grid.Cell(5, 7), "five ");
    EXPECT_EQ(grid.Cell(30009, 40), "");
    EXPECT_FALSE(grid.SetCell(30010, 40, "beyond "));
    EXPECT_EQ(grid.Cell(30010, 40), "");
}

}  // namespace
