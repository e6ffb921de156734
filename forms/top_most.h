// Keeping windows above other programs. Each call puts its window at the
// front of the top-most band, so the order of calls on one occasion decides
// which window lies in front. The desktop shows the band as the windows it
// keeps above all others.
#pragma once

#include "forms/form.h"

namespace forms {

// onTop of any non-zero value means on top. The form keeps its place; the
// desktop sees it in whole pixels.
void SetTopMost(Form& form, int onTop);

}  // namespace forms
