// The forms runtime: owns every model form, keeps the list of open forms in
// load order, the active form, the focus and the top-most band, and hands
// out the desktop's services and the screen's size.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "forms/form.h"
#include "forms/runtime_observer.h"
#include "forms/services.h"

namespace forms {

class Runtime {
  public:
    Runtime(Services services, ScreenInfo screen);
    ~Runtime();
    Runtime(const Runtime&) = delete;
    Runtime& operator=(const Runtime&) = delete;

    Form& CreateForm(std::string name, BorderStyle border, bool hasMenuBar = false);
    // Drops an unloaded instance; a later use builds the form anew.
    void DestroyForm(Form& form);

    // Loading raises Load once; the form joins the open list.
    void Load(Form& form);
    // QueryUnload, then Unload; either may cancel. Returns true when the form
    // was unloaded.
    bool Unload(Form& form, int unloadMode = 0);
    const std::vector<Form*>& OpenForms() const { return openForms_; }
    Form* FindOpenForm(const std::string& name) const;

    Form* ActiveForm() const { return activeForm_; }
    // Makes the form the active one and raises its Activate on a change.
    void Activate(Form& form);

    Control* Focus() const { return focus_; }
    // Fails (false) on a hidden or disabled control or form, or a control
    // that takes no focus; the caller's statement is then simply dropped.
    bool SetFocus(Control& control);

    // The band of windows that float above other programs, front first.
    void SetTopMost(Form& form, bool onTop);
    const std::vector<Form*>& TopMostBand() const { return topMost_; }

    Services& GetServices() { return services_; }
    const ScreenInfo& Screen() const { return screen_; }
    void SetScreen(ScreenInfo screen) { screen_ = screen; }

    void SetObserver(RuntimeObserver* observer) { observer_ = observer; }
    RuntimeObserver* Observer() const { return observer_; }

    // End of the program: no further event runs.
    void End();
    bool Ended() const { return ended_; }

  private:
    friend class Form;
    void FormHidden(Form& form);

    Services services_;
    ScreenInfo screen_;
    RuntimeObserver* observer_ = nullptr;
    std::vector<std::unique_ptr<Form>> forms_;
    std::vector<Form*> openForms_;
    std::vector<Form*> topMost_;
    Form* activeForm_ = nullptr;
    Control* focus_ = nullptr;
    bool ended_ = false;
};

}  // namespace forms
