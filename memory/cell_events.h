// What a memory cell does on its own events: its Load and Unload keep the
// tape arrays and the tape window's arrows, its Resize gives every cell the
// same width and height, its activation (or a click on it) puts its tape on
// show, a click on the strip left of the value fits the width to the text, a
// double click there renames the cell, and a double click on the value
// clears it.
#pragma once

#include "core/program.h"

namespace memory {

void CellLoad(core::Program& p, forms::Form& cell);
void CellResize(core::Program& p, forms::Form& cell);
void CellUnload(core::Program& p, forms::Form& cell);
// Makes this cell the current one: its tape goes on show.
void SelectCellTape(core::Program& p, forms::Form& cell);
// Activate and MouseUp of the cell.
void CellActivate(core::Program& p, forms::Form& cell);
void CellClick(core::Program& p, forms::Form& cell);
void CellDblClick(core::Program& p, forms::Form& cell);
void CellLabelDblClick(core::Program& p, forms::Form& cell);

// Hangs the handlers above, and those of drops on the value, on a new cell.
void WireCell(core::Program& p, forms::Form& cell);

}  // namespace memory
