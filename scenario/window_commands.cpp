// The commands for what the user does to a window through the window
// system: move, resize, minimize, restore and close.
#include "scenario/runner.h"

namespace scenario {

bool Runner::WindowCommand(const Words& w) {
    const std::string& verb = w[0].text;
    if (w.size() < 2) return false;
    forms::Form* f = FindForm(w[1].text);
    if (!f) return false;
    if ((verb == "move" || verb == "resize") && w.size() == 4) {
        auto a = ParseNumber(w[2].text), b = ParseNumber(w[3].text);
        if (!a || !b) return false;
        if (verb == "move") {
            GetDriver().MoveWindow(*f, *a, *b, f->Width(), f->Height());
        } else {
            GetDriver().MoveWindow(*f, f->Left(), f->Top(), *a, *b);
        }
        return true;
    }
    if (w.size() != 2) return false;
    if (verb == "minimize" || verb == "restore") {
        GetDriver().SetWindowState(*f, verb == "minimize" ? forms::kMinimized : forms::kNormal);
        return true;
    }
    if (verb == "close") {
        GetDriver().CloseWindow(*f);
        return true;
    }
    return false;
}

}  // namespace scenario
