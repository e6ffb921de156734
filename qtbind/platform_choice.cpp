#include "qtbind/platform_choice.h"

namespace qtbind {

namespace {

bool IsSet(const char* value) {
    return value != nullptr && *value != '\0';
}

}  // namespace

std::string PlatformToChoose(const char* chosenPlatform, const char* display,
                             const char* waylandDisplay) {
    if (IsSet(chosenPlatform) || !IsSet(display)) return {};
    // Qt tries the platforms in turn: xcb gives up where it cannot connect.
    return IsSet(waylandDisplay) ? "xcb;wayland" : "xcb";
}

bool IsWaylandPlatform(const std::string& name) {
    return name.rfind("wayland", 0) == 0;
}

const char* const kWaylandWarning =
    "lathmark: this is a Wayland session without an X display, where a program can neither "
    "place its windows nor keep them on top: the tape will not stand at the calculator or "
    "follow it, and other windows can cover the calculator. Start it where Xwayland runs "
    "(DISPLAY set) to have its windows in place.\n";

}  // namespace qtbind
