// Which of Qt's platforms the calculator runs on. Its windows stand in a
// fixed order around each other and float above other programs; an X
// server lets a program place its windows and keep them on top, a Wayland
// compositor does not. So the program takes X11 wherever an X display can
// be reached (Xwayland in a Wayland session), unless the user has chosen a
// platform, and says so once where only Wayland is there.
#pragma once

#include <string>

namespace qtbind {

// The platform to ask Qt for, given QT_QPA_PLATFORM, DISPLAY and
// WAYLAND_DISPLAY as they stand (nullptr where unset); empty where Qt's own
// choice stands. Where a Wayland compositor is there too, Wayland comes
// second, for a DISPLAY that names an X server no longer there.
std::string PlatformToChoose(const char* chosenPlatform, const char* display,
                             const char* waylandDisplay);

// Whether Qt's platform `name` is a Wayland one.
bool IsWaylandPlatform(const std::string& name);

// What the program says on standard error, once, when it runs on Wayland.
extern const char* const kWaylandWarning;

}  // namespace qtbind
