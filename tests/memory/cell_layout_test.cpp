// The layout of the memory window as the statements of the layout routines
// leave it, watched from inside the parent's Resize, and the grid steps
// where the 16-bit arithmetic gives out.
#include <utility>
#include <vector>

#include "app_fixture.h"
#include "memory/cell_layout.h"

namespace {

class CellLayout : public StartedApp {
  protected:
    forms::Form& Parent() { return *P().MDIForm1; }
    void NewMemory() { P().Calculator->GetMenu("NewMemory").Click(); }

    // Every size the parent's Resize is raised with, in order.
    void WatchParentSizes() {
        auto original = Parent().Resize;
        Parent().Resize = [this, original] {
            sizes.emplace_back(Parent().Width(), Parent().Height());
            if (original) original();
        };
    }
    std::vector<std::pair<double, double>> sizes;
};

TEST_F(CellLayout, TheFirstCellSizesTheParentTo2055By1040ThenItsResizeSnapsToOneCell) {
    WatchParentSizes();
    NewMemory();
    const std::pair<double, double> firstCellSize{2055, 1040};
    EXPECT_NE(std::find(sizes.begin(), sizes.end(), firstCellSize), sizes.end());
    // The Resize that the statement raises fits the parent to one cell of
    // 585 twips and the frame's 405.
    EXPECT_EQ(Parent().Width(), 2055);
    EXPECT_EQ(Parent().Height(), 990);
    forms::Form& cell = *app->Runtime().OpenForms().back();
    EXPECT_EQ(cell.Left(), 0);
    EXPECT_EQ(cell.Top(), 0);
}

TEST_F(CellLayout, AMemoryWidthOfZeroFailsTheDivisionAndLeavesOneColumn) {
    NewMemory();
    NewMemory();
    P().MemoryWidth = 0;
    memory::RepackCells(P());
    // 0 x 1 + the frame: the parent is as wide as its frame.
    EXPECT_EQ(Parent().Width(), 120);
}

TEST_F(CellLayout, AWidthPastThe16BitRangeDropsTheParentsMoveButPlacesTheCells) {
    NewMemory();
    NewMemory();
    NewMemory();
    P().MemoryWidth = 20000;
    app->Runtime().SetScreen({57600, 32400, 15, 15});  // a 4K screen holds it
    Parent().SetWidth(40120);  // two columns of 20,000 would be 40,000: an overflow
    memory::RepackCells(P());
    EXPECT_EQ(Parent().Width(), 40120);
    // The cells were placed all the same, the first at the corner.
    const auto& open = app->Runtime().OpenForms();
    std::vector<double> lefts;
    for (forms::Form* f : open) {
        if (f->Tag() == "memory") lefts.push_back(f->Left());
    }
    ASSERT_EQ(lefts.size(), 3u);
    EXPECT_EQ(lefts[0], 0);
}

}  // namespace

namespace {

// With its last cell closed by the close box the memory window stays on
// show, empty, and its Resize then takes the calculator (the first form of
// the list) for the cell that gives the height of a row: every move it
// makes of itself asks for a taller window. The window system stops it at
// the screen and its frame, and the Resize that comes with the last move
// finds nothing more to change.
TEST_F(CellLayout, AnEmptyParentSizedByTheUserComesToRestAtTheScreensHeight) {
    NewMemory();
    forms::Form& cell = *app->Runtime().OpenForms().back();
    app->Runtime().Unload(cell);
    app->MainLoopPass();
    ASSERT_TRUE(Parent().Visible());
    WatchParentSizes();

    Parent().ReportGeometry(Parent().Left(), Parent().Top(), 3000, 2000);

    const forms::ScreenInfo& screen = app->Runtime().Screen();
    const auto insets = Parent().Insets();
    EXPECT_EQ(Parent().Height(), screen.height + insets.top + insets.bottom);
    EXPECT_LT(sizes.size(), 10u);
}

}  // namespace
