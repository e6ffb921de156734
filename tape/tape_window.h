// The tape window frmTape: it hangs on the top edge of the calculator, shows
// one tape at a time, snaps its height to whole lines and walks between
// tapes.
#pragma once

#include <cstdint>

#include "core/program.h"

namespace tape {

void TapeFormLoad(core::Program& p);
void TapeFormResize(core::Program& p);
// Left (37) and Right (39) walk around the tapes in a circle.
void TapeGridKeyDown(core::Program& p, std::int16_t& keyCode, int shift);
void ScrollTapeClick(core::Program& p, int index);
void TapeGridGotFocus(core::Program& p);
// A double click on the grid or the title hides the tape.
void HideTapeByDoubleClick(core::Program& p);
// The Click of mnuTape, and of mnuPopup1ShowTape, which calls it.
void MenuTapeClick(core::Program& p);

// Hangs the handlers above on frmTape and the tape menu items.
void WireTapeWindow(core::Program& p);

}  // namespace tape
