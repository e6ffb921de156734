// What Ctrl+C puts on the clipboard: the value the user works with, without
// the blanks that line it up on screen. That is the caption of the readout,
// or, with a memory cell active, the cell's value. Nothing of the program
// changes by it, and there is no paste: the readout takes text only as the
// keys and drops give it.
#pragma once

#include <string>

namespace core {
struct Program;
}

namespace qtbind {

std::string ValueToCopy(core::Program& p);

}  // namespace qtbind
