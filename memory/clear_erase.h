// Clear All sets every cell to zero and marks the clearing on its tape;
// Erase All closes every cell and takes the tapes of cells away. Neither
// asks first.
#pragma once

#include "core/program.h"

namespace memory {

void ClearMemoryClick(core::Program& p);
void EraseMemoryClick(core::Program& p);

}  // namespace memory
