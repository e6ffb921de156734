// Opening and closing the converter strip beside the calculator.
#pragma once

#include "core/program.h"

namespace converter {

// The Click of mnuConverter: opens the strip on the side of the calculator
// with more room, or hides it.
void MenuConverterClick(core::Program& p);
// Closing by its box only hides it; it stays loaded until the end.
void ConverterUnload(core::Program& p, int& cancel);

void WireConverterWindow(core::Program& p);

}  // namespace converter
