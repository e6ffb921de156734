// Drops on the converter: the value dragged from Readout or a memory cell is
// echoed in Label1 and told again in the five lines below, in the units of
// its kind. Nothing of the calculator changes.
#pragma once

#include <string>

#include "core/program.h"

namespace converter {

// The result lines are lblLabel(2) to lblLabel(6).
inline constexpr int kFirstLine = 2;
inline constexpr int kLastLine = 6;

// The value brought to four decimals, ties to even, and written as a plain
// number: " 63", " .0833", "-1.75". A value past the four-decimal range
// leaves `fixed` as it was, and the text is that of the number before.
std::string FourDecimalText(double value, double& fixed);

void ConverterLabelDragDrop(core::Program& p, forms::Control& source);
// The double click on Label1: empties the strip, then folds or opens it.
void ClearConverter(core::Program& p);
// Over the form's own area the drag shows the neutral picture.
void ConverterDragOver(core::Program& p, forms::Control& source);

void WireConverterDrop(core::Program& p);

}  // namespace converter
