// Evaluation: the text under evaluation is read, the pending operation
// applied, the unit of the result worked out from the operands' marks, the
// lines written to the calculator's tape and the result put into Readout.
#pragma once

#include "core/program.h"

namespace core {

// Works on p.state with EntryText already set.
void Evaluate(Program& p);
// The error signal: two beeps, the first operand's text back into Readout.
void SignalError(Program& p);
void ClearSecondValue(Program& p);

// The Click of Equal: commits the caption of Readout.
void EqualClick(Program& p);

// Gives the keyboard focus back to Equal, as nearly every key does.
void FocusEqual(Program& p);

}  // namespace core
