// The popup menu mnuPopup1 of Calculator: the right button opens it from the
// keys, Label1, Readout and the form, and each of its entries runs the Click
// of its main menu twin.
#pragma once

#include "core/program.h"

namespace core {

// The MouseDown shared by the keys, Label1 and the form: the right button
// pops up mnuPopup1, any other button does nothing.
void PopupMouseDown(Program& p, int button);

void WirePopupMenu(Program& p);

}  // namespace core
