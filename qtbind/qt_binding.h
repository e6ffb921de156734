// The Qt view of the whole program: it watches the model's runtime and
// keeps one window per form on screen in step with it, and hands the real
// input back to the model. It attaches itself when made, so it must be made
// before the program starts, to see the Load of every form.
//
// Windows are made on demand, when a form is first shown; a form loaded
// hidden costs nothing until then.
//
// The active window follows the model: whenever the program makes a form
// active (or gives the focus to a control of a form that is not), the
// window of that form is activated once the event is over; for a memory
// cell, the parent's window, with the cell raised inside it.
//
// Memory cells get a window only while some part of them shows inside the
// memory window (CellStage): a cell covered by others, or outside the
// window's area, has none, and gets one again once it comes into view.
// Screen readers find every cell all the same (CellAccess).
#pragma once

#include <QPoint>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "forms/runtime_observer.h"
#include "qtbind/cell_stage.h"
#include "qtbind/pixel_scale.h"

class QMenu;

namespace shell {
class LathmarkApp;
}

namespace forms {
class Form;
class Control;
class MenuItem;
}  // namespace forms

namespace qtbind {

class X11Desktop;
class CellAccess;

class DragTracker;
class FormWindow;
class QtModalHost;

class QtBinding : public forms::RuntimeObserver {
  public:
    // The scale of the primary screen unless told otherwise.
    explicit QtBinding(shell::LathmarkApp& app);
    QtBinding(shell::LathmarkApp& app, const PixelScale& scale);
    ~QtBinding() override;
    QtBinding(const QtBinding&) = delete;
    QtBinding& operator=(const QtBinding&) = delete;

    const PixelScale& Scale() const { return scale_; }
    // nullptr while the form has no window: not shown yet, or a memory cell
    // that does not show.
    FormWindow* WindowFor(const forms::Form& form) const;
    // The memory cells as they lie on one another, the bottom one first.
    const CellStage& Cells() const { return cells_; }
    QWidget* WidgetFor(const forms::Control& control) const;
    // The control under a point of the screen, in any of the program's
    // windows, and that point in the control's widget; nullptr over none.
    forms::Control* ControlAt(const QPoint& globalPos, QPoint* local = nullptr) const;
    // The form whose own area (no control, no frame) lies under a point of
    // the screen, with that point in twips of its inner area.
    forms::Form* FormAreaAt(const QPoint& globalPos, QPointF* twips = nullptr) const;
    // Pops up the menu of a hidden top item (such as "mnuPopup1") at the
    // given place on the screen. It returns at once: the menu stays up until
    // the user picks an entry, whose Click then runs, or closes it.
    void ShowPopupMenu(const forms::MenuItem& top, const QPoint& globalPos);
    // The picture that the mouse cursor shows while a drag lasts
    // ("Image1".."Image5", or "" for the design icon); nothing without one.
    std::optional<std::string> DragCursorPicture() const;
    // Puts the window of a form that the program just showed on screen at
    // once (a modal form, before its loop runs); nullptr without one.
    FormWindow* ShowNow(forms::Form& form);

    // The menu key (or Shift+F10) on the calculator: its popup menu, as a
    // right click on the readout opens it, placed at the readout.
    void PopupFromKeyboard();
    // Ctrl+C: the value the user works with goes on the clipboard.
    void CopyValue();

    // One pass of the main loop, after every event that reached the model:
    // the tape follows the calculator wherever it went.
    void AfterEvent();

    void FormChanged(forms::Form& form) override;
    void FormLoaded(forms::Form& form) override;
    void FormUnloaded(forms::Form& form) override;
    void ControlChanged(forms::Control& control) override;
    void MenuChanged(forms::MenuItem& item) override;
    void FocusChanged(forms::Control* control) override;
    void ActiveFormChanged(forms::Form& form) override;
    void TopMostChanged() override;
    void PopupMenuRequested(forms::MenuItem& menu) override;
    void DragStarted(forms::Control& source) override;
    void DragIconChanged(const std::string& picture) override;
    void DragEnded() override;
    void ProgramEnded() override;

  private:
    FormWindow* EnsureWindow(forms::Form& form);
    FormWindow* MakeWindow(forms::Form& form);
    // The window goes; the form may stay.
    void Retire(FormWindow* window);
    // Which cells show is worked out once the changes of an event are over.
    void ScheduleCells();
    void UpdateCells();
    QRect CellRect(const forms::Form& cell) const;
    void Restack();
    void Decorate(forms::Form& form, FormWindow& window);
    // Activates the window of the model's active form once the event that
    // changed it is over; several changes in one event make one activation.
    void ScheduleActivation();
    void Activate();

    shell::LathmarkApp& app_;
    PixelScale scale_;
    std::unordered_map<const forms::Form*, FormWindow*> windows_;
    // Windows of unloaded forms, on their way out.
    std::vector<QPointer<QWidget>> retired_;
    bool inMainLoopPass_ = false;
    std::unique_ptr<DragTracker> drag_;
    // The receiver of the binding's own queued calls.
    std::unique_ptr<QObject> queue_;
    bool activationPending_ = false;
    // The memory cell shown as the active one inside its parent.
    QPointer<FormWindow> activeChild_;
    CellStage cells_;
    bool cellsPending_ = false;
    bool updatingCells_ = false;
    // The form whose control a drag under way started from.
    forms::Form* dragSource_ = nullptr;
    // The desktop's modal loop, when the program runs on it.
    QtModalHost* modalHost_ = nullptr;
    // The window manager's frames and its band of windows above the others.
    std::unique_ptr<X11Desktop> desktop_;
    // The memory cells as screen readers find them.
    std::unique_ptr<CellAccess> cellAccess_;
    // Where a popup menu asked for now goes, instead of at the pointer.
    std::optional<QPoint> popupAt_;
};

}  // namespace qtbind
