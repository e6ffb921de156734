// Making a memory cell: New Memory with the next default name, Named Memory
// with a name asked for first. Each cell is a new instance of MemoryForm
// inside the memory window, with a tape of its own in the next column of
// Grid1.
#pragma once

#include "core/program.h"

namespace memory {

void NewMemoryClick(core::Program& p);
void NamedMemoryClick(core::Program& p);

// The chosen colours of cells on a new cell (which loads it), unless the
// two colours share no bit.
void ApplyCellColours(core::Program& p, forms::Form& cell);

}  // namespace memory
