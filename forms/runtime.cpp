#include "forms/runtime.h"

#include <algorithm>

#include "forms/headless_services.h"

namespace forms {

Runtime::Runtime(Services services, ScreenInfo screen) : services_(services), screen_(screen) {}

Runtime::~Runtime() = default;

Form& Runtime::CreateForm(std::string name, BorderStyle border, bool hasMenuBar) {
    auto form = std::make_unique<Form>(*this, std::move(name), border, hasMenuBar);
    Form& made = *form;
    forms_.emplace(&made, std::move(form));
    return made;
}

void Runtime::DestroyForm(Form& form) {
    if (form.loaded_) Unload(form);
    if (form.loaded_) return;
    FormGoing(form);
    if (lastPopup_ && &lastPopup_->Parent() == &form) lastPopup_ = nullptr;
    std::erase(topMost_, &form);
    forms_.erase(&form);
}

void Runtime::Load(Form& form) {
    if (form.loaded_) return;
    form.loaded_ = true;
    openForms_.push_back(&form);
    if (observer_) observer_->FormLoaded(form);
    if (form.Load) form.Load();
    // A child is on show as soon as it is loaded.
    if (form.mdiParent_ && form.loaded_) form.SetVisible(true);
}

void Runtime::CloseByUser(Form& form) {
    if (ended_ || !form.loaded_) return;
    if (form.mdiParent_ && activeForm_ != &form) Activate(form);
    if (ended_ || !form.loaded_) return;
    if (!form.closeBox_) {
        for (const auto& c : form.Controls()) {
            if (c->IsCancel() && c->Visible() && c->Enabled()) {
                if (c->Click) c->Click();
                return;
            }
        }
    }
    Unload(form);
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
    FormGoing(form);
    // Searched from the end: the forms closed in numbers (Erase All, a
    // memory file read) close from the last one down, so that closing
    // thousands costs no more than opening them.
    if (auto open = std::find(openForms_.rbegin(), openForms_.rend(), &form);
        open != openForms_.rend()) {
        openForms_.erase(std::next(open).base());
    }
    std::erase(topMost_, &form);
    if (activeForm_ == &form) activeForm_ = nullptr;
    // Only a parent holds an active child.
    if (form.mdiParent_ && form.mdiParent_->activeChild_ == &form) {
        form.mdiParent_->activeChild_ = nullptr;
    }
    if (observer_) observer_->FormUnloaded(form);
    if (form.instance_) {
        auto owned = forms_.find(&form);
        if (owned != forms_.end()) {
            if (lastPopup_ && &lastPopup_->Parent() == &form) lastPopup_ = nullptr;
            unloaded_.push_back(std::move(owned->second));
            forms_.erase(owned);
        }
    }
    return true;
}

void Runtime::FreeUnloaded() {
    // A form loaded again after its Unload is still in use.
    for (auto& f : unloaded_) {
        if (f->loaded_) {
            Form* form = f.get();
            forms_.emplace(form, std::move(f));
        }
    }
    unloaded_.clear();
}

Form* Runtime::FindOpenForm(const std::string& name) const {
    for (Form* f : openForms_) {
        if (f->Name() == name) return f;
    }
    return nullptr;
}

void Runtime::Activate(Form& form) {
    if (ended_ || !form.visible_) return;
    if (Form* child = form.activeChild_; child && child->loaded_ && child->visible_) {
        Activate(*child);
        return;
    }
    if (activeForm_ == &form) return;
    if (form.mdiParent_) form.mdiParent_->activeChild_ = &form;
    activeForm_ = &form;
    if (observer_) observer_->ActiveFormChanged(form);
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
    if (activeForm_ != &form) Activate(form);
    if (ended_ || !control.Visible() || !control.Enabled()) return false;
    if (focus_ == &control) return true;
    focus_ = &control;
    if (observer_) observer_->FocusChanged(focus_);
    if (control.GotFocus) control.GotFocus();
    return true;
}

bool Runtime::SetFocus(Form& form) {
    if (ended_ || !form.loaded_ || !form.visible_) return false;
    Activate(form);
    if (focus_ && &focus_->Parent() != &form) {
        focus_ = nullptr;
        if (observer_) observer_->FocusChanged(nullptr);
    }
    if (form.GotFocus) form.GotFocus();
    return true;
}

void Runtime::ShowModal(Form& form) {
    if (ended_) return;
    Load(form);
    if (!form.loaded_) return;
    form.modal_ = true;
    ++modalDepth_;
    form.Show();
    if (services_.modal && form.loaded_ && form.visible_) services_.modal->RunModal(form);
    // With nobody to answer, the form goes as if closed.
    if (form.loaded_ && form.visible_) Unload(form);
    --modalDepth_;
    form.modal_ = false;
}

double Runtime::TextWidth(const Font& font, const std::string& text) const {
    if (services_.textMeasure) return services_.textMeasure->TextWidth(font, text);
    return HalfEmTextWidth(font, text);
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

void Runtime::PressMouse(Control& control, int button, int shift, float x, float y) {
    if (ended_) return;
    if (control.MouseDown) control.MouseDown(button, shift, x, y);
    if (button == kLeftButton) BeginDrag(control);
}

void Runtime::PressMouse(Form& form, int button, int shift, float x, float y) {
    if (ended_) return;
    if (form.MouseDown) form.MouseDown(button, shift, x, y);
}

namespace {
// A control that the pointer can be over at all.
bool Usable(const Control& c) {
    return c.Visible() && c.Enabled() && c.Parent().Loaded() && c.Parent().Visible();
}
}  // namespace

bool Runtime::BeginDrag(Control& source) {
    if (ended_ || dragSource_ || !source.DragAutomatic() || !Usable(source)) return false;
    dragSource_ = &source;
    dragTarget_ = nullptr;
    if (observer_) {
        observer_->DragStarted(source);
        observer_->DragIconChanged(source.DragIcon());
    }
    return true;
}

void Runtime::DragMove(Control* target, float x, float y) {
    if (!dragSource_) return;
    if (target && !Usable(*target)) target = nullptr;
    const int state = target == dragTarget_ && !dragFormTarget_ ? kDragOver : kDragEnter;
    dragTarget_ = target;
    dragFormTarget_ = nullptr;
    if (!target || !target->DragOver) return;
    target->DragOver(*dragSource_, static_cast<float>(x + target->DragOffsetX()),
                     static_cast<float>(y + target->DragOffsetY()), state);
}

void Runtime::DragMoveOverForm(Form& form, float x, float y) {
    if (!dragSource_) return;
    if (!form.Visible()) {
        DragMove(nullptr, x, y);
        return;
    }
    const int state = &form == dragFormTarget_ ? kDragOver : kDragEnter;
    dragTarget_ = nullptr;
    dragFormTarget_ = &form;
    if (form.DragOver) form.DragOver(*dragSource_, x, y, state);
}

void Runtime::Drop(Control* target, float x, float y) {
    if (!dragSource_) return;
    Control& source = *dragSource_;
    EndDrag();
    if (!target || !Usable(*target) || !target->DragDrop) return;
    target->DragDrop(source, static_cast<float>(x + target->DragOffsetX()),
                     static_cast<float>(y + target->DragOffsetY()));
}

void Runtime::CancelDrag() {
    if (dragSource_) EndDrag();
}

void Runtime::EndDrag() {
    dragSource_ = nullptr;
    dragTarget_ = nullptr;
    dragFormTarget_ = nullptr;
    if (observer_) observer_->DragEnded();
}

void Runtime::DragIconSet(Control& control) {
    if (dragSource_ == &control && observer_) observer_->DragIconChanged(control.DragIcon());
}

void Runtime::FormGoing(Form& form) {
    if (dragSource_ && &dragSource_->Parent() == &form) EndDrag();
    if (dragTarget_ && &dragTarget_->Parent() == &form) dragTarget_ = nullptr;
    if (dragFormTarget_ == &form) dragFormTarget_ = nullptr;
}

void Runtime::PopupMenu(MenuItem& menu) {
    if (ended_) return;
    lastPopup_ = &menu;
    if (observer_) observer_->PopupMenuRequested(menu);
}

void Runtime::End() {
    if (ended_) return;
    CancelDrag();
    ended_ = true;
    if (observer_) observer_->ProgramEnded();
}

}  // namespace forms
