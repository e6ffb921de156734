#include "forms/top_most.h"

#include "forms/runtime.h"

namespace forms {

void SetTopMost(Form& form, int onTop) {
    form.GetRuntime().SetTopMost(form, onTop != 0);
}

}  // namespace forms
