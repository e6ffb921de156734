// The scenario's user actions as real input on the program's Qt windows:
// key presses and releases through the window system to the focused widget
// of the form's window, mouse clicks on a control's widget, menu items
// chosen through their actions, and moves, drags of the frame, the title
// bar's buttons and the close box done to the window itself, so that the
// binding reports them to the model as it reports the user's.
#pragma once

#include "scenario/driver.h"

namespace qtbind {
class FormWindow;
class QtBinding;
}  // namespace qtbind

namespace scenario {

class GuiDriver : public Driver {
  public:
    // Until it has a binding, the driver has no windows to act on.
    void SetBinding(qtbind::QtBinding* binding) { binding_ = binding; }

    void KeyPress(forms::Form& form, std::int16_t keyAscii) override;
    void KeyUp(forms::Form& form, std::int16_t keyCode) override;
    void Click(forms::Control& control) override;
    void MenuClick(forms::MenuItem& item) override;
    void MoveWindow(forms::Form& form, double left, double top, double width,
                    double height) override;
    void SetWindowState(forms::Form& form, std::int16_t state) override;
    void CloseWindow(forms::Form& form) override;
    // Runs Qt's event queue until what the action set going is over: the
    // windows that the program showed are on screen, the window system has
    // reported their places, and windows on their way out are gone.
    void Settle() override;

  private:
    // The form's window when the user can reach it: made, shown and not
    // minimised; else nullptr.
    qtbind::FormWindow* WindowOnScreen(const forms::Form& form) const;

    qtbind::QtBinding* binding_ = nullptr;
    // What the user cannot do through a window goes to the model the way
    // the headless tool sends it.
    HeadlessDriver model_;
};

}  // namespace scenario
