// The start and the end of the program: the Load of Calculator, which reads
// the settings and brings up the companion windows, its Resize, which follows
// a minimise and restore, and its Unload, which writes the settings back.
#pragma once

#include "core/program.h"

namespace shell {

void CalculatorLoad(core::Program& p);
void CalculatorResize(core::Program& p);
// Hides the window at once, before the Unload's work runs.
void CalculatorQueryUnload(core::Program& p, int& cancel, int unloadMode);
void CalculatorUnload(core::Program& p, int& cancel);
void ExitClick(core::Program& p);

void WireCalculatorLifecycle(core::Program& p);

}  // namespace shell
