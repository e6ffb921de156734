// The number of a cell as its tag holds it, the counters at the end of the
// 16-bit range, and the walk of DragOver that a Y of 0 or less ends early.
#include "app_fixture.h"
#include "memory/cell_drop.h"
#include "memory/cells.h"

namespace {

class CellNumber : public StartedApp {
  protected:
    forms::Form& NewCell() {
        P().Calculator->GetMenu("NewMemory").Click();
        return *app->Runtime().OpenForms().back();
    }
};

TEST_F(CellNumber, IsReadFromTheTagAfterItsSixthCharacter) {
    forms::Form& cell = NewCell();
    EXPECT_EQ(memory::CellNumber(cell), 1);
    EXPECT_EQ(memory::CellNumberForRename(cell), 1);
    memory::ValueLabel(cell).SetTag("memory 12");
    EXPECT_EQ(memory::CellNumber(cell), 12);
    EXPECT_EQ(memory::CellNumberForRename(cell), 12);
    // The design's tag "0" is too short: the reading fails.
    memory::ValueLabel(cell).SetTag("0");
    EXPECT_EQ(memory::CellNumber(cell), std::nullopt);
    EXPECT_EQ(memory::CellNumberForRename(cell), std::nullopt);
    // A number past the 16-bit range fails too.
    memory::ValueLabel(cell).SetTag("memory 40000");
    EXPECT_EQ(memory::CellNumber(cell), std::nullopt);
}

TEST_F(CellNumber, TheStrFormHasABlankBeforeANumberThatIsNotNegative) {
    EXPECT_EQ(memory::StrForm(3), " 3");
    EXPECT_EQ(memory::StrForm(0), " 0");
    EXPECT_EQ(memory::StrForm(-2), "-2");
}

TEST_F(CellNumber, NextMemoryNumberStaysAt32767WhenItWouldOverflow) {
    P().NextMemoryNumber = 32767;
    forms::Form& cell = NewCell();
    EXPECT_EQ(cell.Caption(), "Memory 32767");
    EXPECT_EQ(memory::ValueLabel(cell).Tag(), "memory 32767");
    EXPECT_EQ(P().NextMemoryNumber, 32767);
    EXPECT_EQ(P().MemoryCount, 2);
    EXPECT_EQ(P().tape->TapeNames().size(), 32768u);
    EXPECT_EQ(P().tape->TapeNames().back(), "Memory 32767");
}

TEST_F(CellNumber, ADragOverAtAYOfZeroStopsTheWalkAtTheFirstCell) {
    forms::Form& first = NewCell();
    forms::Form& second = NewCell();
    forms::Control& readout = P().calc->Readout;
    memory::CellLabelDragOver(P(), readout, 1200, 0);
    EXPECT_EQ(memory::ValueLabel(first).DragIcon(), "Image1");
    EXPECT_EQ(memory::ValueLabel(second).DragIcon(), "");
    // Lower down the walk passes every cell.
    memory::CellLabelDragOver(P(), readout, 400, 100);
    EXPECT_EQ(memory::ValueLabel(first).DragIcon(), "Image2");
    EXPECT_EQ(memory::ValueLabel(second).DragIcon(), "Image2");
}

}  // namespace
