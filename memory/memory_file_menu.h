// The commands of the memory file in the File menu: Open, Save and Save As,
// each through the calculator's common dialog CMDialog1.
#pragma once

#include "core/program.h"

namespace memory {

// The filter of both dialogs.
inline constexpr const char* kMemoryFilter = "Memory (*.mem)|*.mem|all files (*.*)|*.*";

void OpenClick(core::Program& p);
void SaveClick(core::Program& p);
void SaveAsClick(core::Program& p);

}  // namespace memory
