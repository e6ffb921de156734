// Accuracy (1/16 or 1/32 of an inch) and Show Keys, each with a main menu
// entry and a popup twin whose check marks are kept in step.
#pragma once

#include "core/program.h"

namespace shell {

void SixteenClick(core::Program& p);
void ThirtySecondClick(core::Program& p);
// Folds the key pad away or back. At 75% the check mark decides, at 100%
// the form's height does.
void ShowKeysClick(core::Program& p);

void WireDisplayOptions(core::Program& p);

}  // namespace shell
