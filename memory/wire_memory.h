// Hangs the memory cells' commands on the menu Memory, and their handlers on
// the memory window and the name prompt.
#pragma once

#include "core/program.h"

namespace memory {

void WireMemory(core::Program& p);

}  // namespace memory
