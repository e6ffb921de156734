#include "shell/placement.h"

#include "forms/runtime.h"

namespace shell {

void SetTopMost(forms::Form& form, int onTop) {
    form.GetRuntime().SetTopMost(form, onTop != 0);
}

}  // namespace shell
