#include "forms/runtime.h"

#include <algorithm>

namespace forms {

Runtime::Runtime(Services services, ScreenInfo screen) : services_(services), screen_(screen) {}

Runtime::~Runtime() = default;

Form& Runtime::CreateForm(std::string name, BorderStyle border, bool hasMenuBar) {
    forms_.push_back(std::make_unique<Form>(*this, std::move(name), border, hasMenuBar));
    return *forms_.back();
}

void Runtime::DestroyForm(Form& form) {
    if (form.loaded_) Unload(form);
    if (form.loaded_) return;
    std::erase(topMost_, &form);
    std::erase_if(forms_, [&](const auto& f) { return f.get() == &form; });
}

void Runtime::Load(Form& form) {
    if (form.loaded_) return;
    form.loaded_ = true;
    openForms_.push_back(&form);
    if (observer_) observer_->FormLoaded(form);
    if (form.Load) form.Load();
}

bool Runtime::Unload(Form& form, int unloadMode) {
    if (!form.loaded_) return true;
    int cancel = 0;
    if (form.QueryUnload) form.QueryUnload(cancel, unloadMode);
    if (cancel != 0 || !form.loaded_) return !form.loaded_;
    if (form.Unload) form.Unload(cancel);
    if (cancel != 0 || !form.loaded_) return !form.loaded_;
    if (form.visible_) {
        form.visible_ = false;
        FormHidden(form);
    }
    form.loaded_ = false;
    std::erase(openForms_, &form);
    std::erase(topMost_, &form);
    if (activeForm_ == &form) activeForm_ = nullptr;
    if (observer_) observer_->FormUnloaded(form);
    return true;
}

Form* Runtime::FindOpenForm(const std::string& name) const {
    for (Form* f : openForms_) {
        if (f->Name() == name) return f;
    }
    return nullptr;
}

void Runtime::Activate(Form& form) {
    if (ended_ || activeForm_ == &form || !form.visible_) return;
    activeForm_ = &form;
    if (form.Activate) form.Activate();
    if (!focus_ || &focus_->Parent() != &form) {
        if (Control* first = form.TabFirst()) SetFocus(*first);
    }
}

bool Runtime::SetFocus(Control& control) {
    Form& form = control.Parent();
    if (ended_ || !form.loaded_ || !form.visible_ || !control.Visible() || !control.Enabled() ||
        !control.CanFocus()) {
        return false;
    }
    if (focus_ == &control) return true;
    focus_ = &control;
    if (observer_) observer_->FocusChanged(focus_);
    if (control.GotFocus) control.GotFocus();
    return true;
}

void Runtime::FormHidden(Form& form) {
    if (focus_ && &focus_->Parent() == &form) {
        focus_ = nullptr;
        if (observer_) observer_->FocusChanged(nullptr);
    }
    if (activeForm_ == &form) activeForm_ = nullptr;
}

void Runtime::SetTopMost(Form& form, bool onTop) {
    std::erase(topMost_, &form);
    if (onTop) topMost_.insert(topMost_.begin(), &form);
    if (observer_) observer_->TopMostChanged();
}

void Runtime::End() {
    if (ended_) return;
    ended_ = true;
    if (observer_) observer_->ProgramEnded();
}

}  // namespace forms
