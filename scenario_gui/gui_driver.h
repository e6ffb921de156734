// The scenario's user actions as real input on the program's Qt windows:
// key presses and releases through the window system to the focused widget
// of the form's window, mouse clicks, double clicks, right clicks and drags
// through the window system, on controls and on a form's own area, menu
// items chosen through their actions, the name prompt answered by typing
// into its text box, and moves, drags of the frame, the title bar's buttons,
// activation and the close box done to the window itself (for a memory cell,
// with the mouse on the frame that it draws), so that the binding reports
// them to the model as it reports the user's.
#pragma once

#include <QPoint>
#include <optional>

#include "scenario/driver.h"

class QWidget;
class QWindow;

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
    // The mouse on the widgets, through the window system: a right click
    // opens whatever menu the program pops up, which is then sent away with
    // Escape; a drag is a press on the source, a move over it, a move to the
    // target (in whichever window it lies) and a release there. DragOver
    // begins the drag as the program would, moves the pointer over the
    // target and calls the drag off with Escape.
    void RightClick(forms::Control& control, float x, float y) override;
    void RightClickForm(forms::Form& form, float x, float y) override;
    void DragAndDrop(forms::Control& source, float sourceX, float sourceY, forms::Control& target,
                     float x, float y) override;
    void DragOver(forms::Control& source, forms::Control& target, float x, float y) override;
    void DragOverForm(forms::Control& source, forms::Form& target, float x, float y) override;
    void ClickForm(forms::Form& form, float x, float y) override;
    void DblClickForm(forms::Form& form, float x, float y) override;
    void MouseUpForm(forms::Form& form, float x, float y) override;
    void DragToForm(forms::Control& source, float sourceX, float sourceY, forms::Form& target,
                    float x, float y) override;
    void DblClick(forms::Control& control) override;
    // The window activated through the window system; a memory cell by a
    // press on its title bar.
    void Activate(forms::Form& form) override;
    // The text typed over the proposed one and Enter, or Cancel clicked.
    void AnswerPrompt(forms::Form& prompt, const PromptAnswer& answer) override;
    // Runs Qt's event queue until what the action set going is over: the
    // windows that the program showed are on screen, the window system has
    // reported their places, and windows on their way out are gone.
    void Settle() override;

  private:
    // The form's window when the user can reach it: made, shown and not
    // minimised (for a cell: its parent's window not minimised); else
    // nullptr.
    qtbind::FormWindow* WindowOnScreen(const forms::Form& form) const;
    // Where the pointer stands over `widget` at the pixel `local` of it:
    // the window that the window system sends the mouse to, the point in
    // that window and on the screen.
    struct Pointer {
        QWindow* window;
        QPoint at;
        QPoint global;
    };
    std::optional<Pointer> PointerOn(QWidget* widget, const QPoint& local) const;
    // The pointer over `control` at (x, y) twips of its own, when a pointer
    // can be there: the control is on screen and in front at that place,
    // and the place is a whole pixel, so that the program is told exactly
    // (x, y) again. Else nullopt, and the action goes to the program as
    // without windows.
    std::optional<Pointer> PointerOver(const forms::Control& control, float x, float y) const;
    // The same over the form's own area at (x, y) of its inner area, where
    // no control may lie.
    std::optional<Pointer> PointerOnForm(const forms::Form& form, float x, float y) const;
    // The pointer over a point of a window's frame (a cell's title bar or
    // close box), when nothing lies in front of it there.
    std::optional<Pointer> PointerOnFrame(qtbind::FormWindow& window, const QPoint& local) const;
    // A press at `from`, a move there and on to `to`, and a release.
    void DragPointer(const Pointer& from, const Pointer& to);
    // After the press on a drag's source: a move over the source, so that
    // the drag hears of the pointer there first.
    void StepOverSource(const Pointer& from, const forms::Control& source);
    // A drag of `source` from `from` to `to`, let go there over whichever
    // window lies under `to`.
    void PressMoveRelease(const Pointer& from, const forms::Control& source, const Pointer& to);
    // Sends any popup menu that is up away, as Escape does.
    void DismissPopups();
    // A memory cell moved by its title bar and sized by its corner.
    void MoveCell(qtbind::FormWindow& window, double left, double top, double width, double height);

    qtbind::QtBinding* binding_ = nullptr;
    // What the user cannot do through a window goes to the model the way
    // the headless tool sends it.
    HeadlessDriver model_;
};

}  // namespace scenario
