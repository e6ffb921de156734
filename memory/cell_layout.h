// The layout of the cells inside the memory window: a grid of equal cells
// filled column by column, with the window just large enough for it. Three
// routines do it, near copies with differences that matter: ArrangeMemory
// after a cell is made and on Arrange, RepackCells after a cell is resized,
// and the Resize of the memory window (memory_parent.h) when the user sizes
// it. All three share the grid steps here.
#pragma once

#include <cstdint>
#include <vector>

#include "core/program.h"

namespace memory {

enum class GrowGrid {
    UntilScreen,  // grow along the longer side while two more of it fit
    OnceOnly,     // one row or column more at most, without a look at the screen
};

struct GridSteps {
    double rowHeight = 585;  // what ScaleHeight is divided by for the rows
    double pitch = 585;      // how far apart the rows of cells are placed
    GrowGrid grow = GrowGrid::UntilScreen;
    double screenRowHeight = 630;  // the row height of the screen test
    // Where ArrangingMemory goes to 1 around the parent's move.
    enum class Flag { None, AroundMove, AroundStateTest } flag = Flag::None;
};

// Sizes the parent to the grid (in the normal state) and places the cells
// of `cellOrder` (indexes into the list of open forms) down the columns.
void RunGridSteps(core::Program& p, const GridSteps& steps, const std::vector<int>& cellOrder);

void ArrangeMemory(core::Program& p);
void RepackCells(core::Program& p);

}  // namespace memory
