#include "core/popup_menu.h"

namespace core {

namespace {

// Each entry of the popup and the main menu entry whose Click it runs.
struct Forward {
    const char* entry;
    const char* target;
};

const Forward kForwards[] = {
    {"mnuPopup1NewMemory", "NewMemory"},
    {"mnuPopup1NamedMemory", "NamedMemory"},
    {"mnuPopup1Accuracy16", "Sixteen"},
    {"mnuPopup1Accuracy32", "thirtysecond"},
    {"mnuPopup1Zoom75", "ZoomSmall"},
    {"mnuPopup1Zoom100", "ZoomLarge"},
    {"mnuPopup1ShowKeys", "ShowKeys"},
    {"mnuPopup1ShowTape", "mnuTape"},
    {"mnuPopUp1Circumference", "Circumference"},
    {"mnuPopUp1AreaofCircle", "CircArea"},
    {"mnuPopUp1VolumeofCylinder", "CylVolume"},
    {"mnuPopUp1Diagonal", "mnuDiagonal"},
};

}  // namespace

void PopupMouseDown(Program& p, int button) {
    if (button == forms::kRightButton) p.runtime.PopupMenu(p.calc->form.GetMenu("mnuPopup1"));
}

void WirePopupMenu(Program& p) {
    CalculatorView& c = *p.calc;
    auto popup = [&p](int button, int, float, float) { PopupMouseDown(p, button); };
    // Readout has a MouseDown of its own, which also readies a drag.
    for (forms::Control* key : c.Number) key->MouseDown = popup;
    for (forms::Control* control : {&c.Decimal, &c.Spacebar, &c.Foot, &c.Inch, &c.Plus, &c.Minus,
                                    &c.Multiply, &c.Divide, &c.Cancel, &c.CancelEntry, &c.Equal,
                                    &c.Square, &c.SquareRoot, &c.Backspace, &c.Pi, &c.Label1}) {
        control->MouseDown = popup;
    }
    c.form.MouseDown = popup;

    // The entries hold no logic: each runs whatever its twin's Click does at
    // the time, so a twin wired later is reached all the same.
    forms::Form& f = c.form;
    for (const Forward& forward : kForwards) {
        forms::MenuItem& twin = f.GetMenu(forward.target);
        f.GetMenu(forward.entry).Click = [&twin] {
            if (twin.Click) twin.Click();
        };
    }
    f.GetMenu("mnuPopup1Cancel").Click = [] {};  // the menu just closes
}

}  // namespace core
