// The four building formulas: guided entries that arrange the operands so
// that the ordinary evaluation finishes them with the right unit.
#pragma once

#include <cstdint>

#include "core/program.h"

namespace core {

// Pi as the formulas use it, on purpose no more precise.
inline constexpr double kFormulaPi = 3.14159265;

// The Clicks of Circumference, CircArea, CylVolume and mnuDiagonal.
void CircumferenceClick(Program& p);
void CircAreaClick(Program& p);
void CylVolumeClick(Program& p);
void DiagonalClick(Program& p);

// A first entry while FormulaState is 1 to 4. Returns true when the
// evaluation goes on to apply the operation, false when it ends here.
bool FormulaFirstEntry(Program& p);
// A second entry while FormulaState is 33 or 44.
void FormulaSecondEntry(Program& p);

}  // namespace core
