// Drops on a memory cell's value: the dragged value (the caption of Readout
// or of another cell) is added on the right half of the label and
// subtracted on the left half; a cell dropped on itself is cleared. Each
// drop leaves its lines on the tape of the cell that took it.
#pragma once

#include "core/program.h"

namespace memory {

// X and Y count from the label's own top left corner.
void CellLabelDragOver(core::Program& p, forms::Control& source, float x, float y);
void CellLabelDragDrop(core::Program& p, forms::Form& cell, forms::Control& source, float x);
void WireCellDrop(core::Program& p, forms::Form& cell);

}  // namespace memory
