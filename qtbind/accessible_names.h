// The names that screen readers give the program's windows and controls:
// what a person reads on them or says of them ("7", "Add", "Clear entry",
// "Readout"), rather than the names the program's code knows them by
// ("Number(7)", "Plus", "CancelEntry"). The one table of them is here.
#pragma once

#include <QAccessible>
#include <QString>

namespace forms {
class Control;
class Form;
}  // namespace forms

namespace qtbind {

// A control's name for screen readers. A control the table does not know
// keeps the name the program gives it.
QString AccessibleName(const forms::Control& control);
// A window is named by its title; a window without one (the tape) by what
// it is.
QString AccessibleWindowName(const forms::Form& form);
// The name prompt and the About box are dialogs, the others plain windows.
QAccessible::Role AccessibleWindowRole(const forms::Form& form);

}  // namespace qtbind
