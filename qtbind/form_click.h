// A mouse press and release on the own area of a form, where no control
// lies, as the model takes them. The real mouse (FormInput) and a screen
// reader's action on a memory cell (CellActions) both go this way, so that
// the two cannot drift apart.
#pragma once

namespace forms {
class Form;
}

namespace qtbind {

// A press anywhere on a memory cell makes it the active one, before the
// press itself is handled; a press on any other form activates nothing
// here (its window does, through the desktop).
void ActivateForPress(forms::Form& form);
// The button let go on the form's own area: its MouseUp, and its Click when
// the left button went down and came up there.
void ReleaseOnForm(forms::Form& form, int button, int shift, float x, float y, bool clicked);

}  // namespace qtbind
