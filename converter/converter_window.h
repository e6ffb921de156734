// The converter strip beside the calculator: opening and hiding it, folding
// it up to its top label, and keeping its height while the user stretches
// it sideways.
#pragma once

#include "core/program.h"

namespace converter {

// The heights of the strip, in twips: open, and folded up to Label1.
inline constexpr double kOpenHeight = 2310;
inline constexpr double kFoldedHeight = 770;

// The Click of mnuConverter: opens the strip on the side of the calculator
// with more room, or hides it.
void MenuConverterClick(core::Program& p);
// Closing by its box only hides it; it stays loaded until the end.
void ConverterUnload(core::Program& p, int& cancel);
void ConverterLoad(core::Program& p);
// The labels follow the width; the height always snaps back to the fold.
void ConverterResize(core::Program& p);
// The double click on the form: folds an open strip, opens any other.
void ToggleFold(core::Program& p);

void WireConverterWindow(core::Program& p);

}  // namespace converter
