// What a view of the model (the Qt binding) is told when the model changes.
// Every call comes synchronously, inside the statement that made the change.
#pragma once

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
    virtual void TopMostChanged() {}
    virtual void ProgramEnded() {}
};

}  // namespace forms
