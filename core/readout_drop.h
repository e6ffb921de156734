// Values dropped on Readout: the right half adds, the left half subtracts,
// and a waiting multiplication or division takes the value as its second
// operand. The drag icon shows which while the pointer moves.
#pragma once

#include "core/program.h"

namespace core {

// The left button readies a drag with the neutral icon; the right button
// opens the popup menu.
void ReadoutMouseDown(Program& p, int button, int shift, float x, float y);
// Only decorates: sets the icons of Readout and of the source. X counts in
// the coordinates of Calculator, like Readout's Left.
void ReadoutDragOver(Program& p, forms::Control& source, float x, float y, int state);
// The drop: refuses a value whose unit doesn't fit, else adds, subtracts,
// commits a first value or completes the waiting operation.
void ReadoutDragDrop(Program& p, forms::Control& source, float x, float y);

void WireReadoutDrop(Program& p);

}  // namespace core
