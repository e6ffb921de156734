// What a view of the model (the Qt binding) is told when the model changes.
// Every call comes synchronously, inside the statement that made the change.
#pragma once

#include <string>

namespace forms {

class Form;
class Control;
class MenuItem;

class RuntimeObserver {
  public:
    virtual ~RuntimeObserver() = default;
    virtual void FormChanged(Form&) {}
    virtual void FormLoaded(Form&) {}
    virtual void FormUnloaded(Form&) {}
    virtual void ControlChanged(Control&) {}
    virtual void MenuChanged(MenuItem&) {}
    virtual void FocusChanged(Control*) {}
    // The program made the form the active one (a child: the active one
    // inside its parent).
    virtual void ActiveFormChanged(Form&) {}
    virtual void TopMostChanged() {}
    // A menu (a top item, usually hidden) is to pop up at the pointer. The
    // view shows it and runs the Click of the entry that the user picks.
    virtual void PopupMenuRequested(MenuItem&) {}
    // A drag of `source` has begun; the picture it shows is told next.
    virtual void DragStarted(Control& /*source*/) {}
    // The picture that the drag shows as its cursor: the DragIcon of the
    // source ("Image1".."Image5", or "" for the control's design icon).
    virtual void DragIconChanged(const std::string& /*picture*/) {}
    // The drag is over: dropped, let go outside every target, or cancelled.
    virtual void DragEnded() {}
    virtual void ProgramEnded() {}
};

}  // namespace forms
