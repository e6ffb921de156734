// The memory window MDIForm1, the parent of every cell. Its Resize keeps the
// window bands right and snaps the window to whole cells when the user
// drags its frame; its Unload (the close box, Erase All, the end of the
// program) closes every cell, drops their tapes and hides the window, which
// stays loaded for the next cell.
#pragma once

#include "core/program.h"

namespace memory {

void MemoryParentResize(core::Program& p);
void MemoryParentUnload(core::Program& p, int& cancel);

}  // namespace memory
