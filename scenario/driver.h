// How the scenario's user actions reach the program. Headless, the events
// are raised on the model directly; behind real windows, the same actions go
// in as key presses and mouse clicks on the widgets.
#pragma once

#include <cstdint>

#include "forms/form.h"

namespace scenario {

class Driver {
  public:
    virtual ~Driver() = default;
    virtual void KeyPress(forms::Form& form, std::int16_t keyAscii) = 0;
    virtual void KeyUp(forms::Form& form, std::int16_t keyCode) = 0;
    virtual void Click(forms::Control& control) = 0;
    virtual void MenuClick(forms::MenuItem& item) = 0;
    // The user moves the window or drags its frame; the window system
    // reports the new outer rectangle.
    virtual void MoveWindow(forms::Form& form, double left, double top, double width,
                            double height) = 0;
    virtual void SetWindowState(forms::Form& form, std::int16_t state) = 0;
    // The close box.
    virtual void CloseWindow(forms::Form& form) = 0;
    // Lets whatever the action set going run to its end.
    virtual void Settle() {}
};

class HeadlessDriver : public Driver {
  public:
    void KeyPress(forms::Form& form, std::int16_t keyAscii) override;
    void KeyUp(forms::Form& form, std::int16_t keyCode) override;
    void Click(forms::Control& control) override;
    void MenuClick(forms::MenuItem& item) override;
    void MoveWindow(forms::Form& form, double left, double top, double width,
                    double height) override;
    void SetWindowState(forms::Form& form, std::int16_t state) override;
    void CloseWindow(forms::Form& form) override;
};

}  // namespace scenario
