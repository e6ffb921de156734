// How the scenario's user actions reach the program. Headless, the events
// are raised on the model directly; behind real windows, the same actions go
// in as key presses and mouse clicks on the widgets.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "forms/form.h"

namespace scenario {

// How the user answers the name prompt: OK, with the text box as it was
// proposed or with `text` typed over it, or Cancel.
struct PromptAnswer {
    bool cancel = false;
    std::optional<std::string> text;
};

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

    // The mouse. Positions are twips in the control's own coordinates, or
    // in the form's inner area. These act on the model through the runtime
    // unless a driver puts real mouse input behind them.
    //
    // The right button pressed and let go on the control, or on the form's
    // own area: the MouseDown with button 2, and never a Click.
    virtual void RightClick(forms::Control& control, float x, float y);
    virtual void RightClickForm(forms::Form& form, float x, float y);
    // The left button pressed on `source` at (sourceX, sourceY), the pointer
    // moved over the source and then to (x, y) over `target`, and let go
    // there: the MouseDown of the source, DragOver events on the way (the
    // last on the target at the drop point) and the target's DragDrop.
    virtual void DragAndDrop(forms::Control& source, float sourceX, float sourceY,
                             forms::Control& target, float x, float y);
    // Only the DragOver of `target` at (x, y), in a drag of `source` that is
    // then called off: no MouseDown, no drop.
    virtual void DragOver(forms::Control& source, forms::Control& target, float x, float y);
    // The same over the own area of `target` at (x, y) of its inner area.
    virtual void DragOverForm(forms::Control& source, forms::Form& target, float x, float y);

    // The left button on the form's own area at (x, y) of its inner area:
    // a click is MouseDown, MouseUp and Click; a double click MouseDown,
    // MouseUp, Click, DblClick and MouseUp; MouseUp alone is a button let
    // go there.
    virtual void ClickForm(forms::Form& form, float x, float y);
    virtual void DblClickForm(forms::Form& form, float x, float y);
    virtual void MouseUpForm(forms::Form& form, float x, float y);
    // A drag of `source` let go over the own area of `target` at (x, y) of
    // its inner area, where no control lies: nothing takes it.
    virtual void DragToForm(forms::Control& source, float sourceX, float sourceY,
                            forms::Form& target, float x, float y);
    // A double click on a control: its DblClick.
    virtual void DblClick(forms::Control& control);
    // The user makes the form the active window (for a memory cell: the
    // active one inside its parent).
    virtual void Activate(forms::Form& form);
    // The name prompt is up, shown modally: answer it. Returns once the
    // prompt has gone.
    virtual void AnswerPrompt(forms::Form& prompt, const PromptAnswer& answer);

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
