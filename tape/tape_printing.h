// Printing the tapes: a tape goes to the default printer as plain lines in
// "Courier", its title centred over its lines and the lines right-aligned
// as one block, all laid out with blanks. No dialog, no header, no page
// numbers.
#pragma once

#include <cstdint>

#include "core/program.h"

namespace tape {

// Prints tape `tape` as one print job: the title, then row 0 (an empty line)
// and every row up to TapeRowCount(tape), trimmed and right-aligned to the
// widest of them and the title. Leaves Grid1.Col at `tape` and Grid1.Row at
// the last row.
void PrintTape(core::Program& p, std::int16_t tape);

// File, Print Current Tape: the tape of the grid's current column.
void MenuPrintClick(core::Program& p);
// File, Print All Tapes: every tape from 0 to NextMemoryNumber - 1, closed
// cells' tapes too, each a job of its own.
void MenuPrintAllClick(core::Program& p);

// Hangs the handlers on the File menu and on the tape's own popup menu
// mnuPopup2, which nothing pops up but whose entries print all the same.
void WireTapePrinting(core::Program& p);

}  // namespace tape
