#include "forms/menu_item.h"

#include "forms/form.h"
#include "forms/runtime.h"

namespace forms {

MenuItem::MenuItem(Form& form, std::string name, std::string caption, int index)
    : form_(form), name_(std::move(name)), caption_(std::move(caption)), index_(index) {}

std::string MenuItem::FullName() const {
    if (index_ < 0) return name_;
    return name_ + "(" + std::to_string(index_) + ")";
}

void MenuItem::Changed() {
    if (auto* observer = form_.GetRuntime().Observer()) observer->MenuChanged(*this);
}

void MenuItem::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Changed();
}

void MenuItem::SetChecked(bool checked) {
    if (checked == checked_) return;
    checked_ = checked;
    Changed();
}

void MenuItem::SetVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    Changed();
}

MenuItem& MenuItem::Add(std::string name, std::string caption, int index) {
    items_.push_back(std::make_unique<MenuItem>(form_, std::move(name), std::move(caption), index));
    return *items_.back();
}

}  // namespace forms
