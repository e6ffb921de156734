#include "qtbind/form_click.h"

#include "forms/runtime.h"

namespace qtbind {

void ActivateForPress(forms::Form& form) {
    if (!form.MdiParent()) return;
    forms::Runtime& runtime = form.GetRuntime();
    if (runtime.ActiveForm() != &form) runtime.Activate(form);
}

void ReleaseOnForm(forms::Form& form, int button, int shift, float x, float y, bool clicked) {
    if (form.MouseUp) form.MouseUp(button, shift, x, y);
    // MouseUp may have closed the form, or ended the program.
    if (clicked && form.Loaded() && !form.GetRuntime().Ended() && form.Click) form.Click();
}

}  // namespace qtbind
