// How each kind of model form stands on the desktop: as an ordinary window,
// as a frameless window that draws its own sizing frame, as the parent of
// child windows, or as one of those children; and the title bar buttons and
// other window flags that go with its border.
#pragma once

#include <Qt>

#include "forms/form.h"

namespace qtbind {

enum class Hosting {
    TopLevel,   // a window of its own, framed by the window manager
    Frameless,  // a window of its own that draws its frame itself
    MdiParent,  // a window whose inner area holds child windows
    MdiChild,   // a widget inside the parent's inner area, with a frame of its own
};

Hosting HostingOf(const forms::Form& form);
// Every window floats above other programs, set once at creation: changing
// the flags later would build the native window anew and flicker.
Qt::WindowFlags FlagsFor(const forms::Form& form);
// Fixed borders cannot be sized by the user.
bool HasFixedSize(const forms::Form& form);
// A tool window, the tape or the memory window must not take the
// activation from the calculator when it is shown.
bool ShowsWithoutActivating(const forms::Form& form);

}  // namespace qtbind
