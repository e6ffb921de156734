// The prompt frmInput, "Named Memory": asks for the name of a memory cell.
// The caller proposes a text, the prompt comes up modally in the middle of
// the screen with that text selected, and InputResult holds the answer
// afterwards: the text on OK, "" on Cancel (so an empty box on OK is the
// same as Cancel).
#pragma once

#include <string>

#include "core/program.h"

namespace memory {

// The calculator first leaves the top-most band, so that the prompt is not
// hidden behind it; the caller puts it back where it wants to.
void AskForName(core::Program& p, const std::string& proposed);

void InputOkClick(core::Program& p);
void InputCancelClick(core::Program& p);
void WireInputPrompt(core::Program& p);

}  // namespace memory
