#include "forms/control.h"

#include "forms/form.h"
#include "forms/runtime.h"

namespace forms {

Control::Control(Form& form, std::string name, ControlKind kind, int index)
    : form_(form), name_(std::move(name)), kind_(kind), index_(index) {}

std::string Control::FullName() const {
    if (index_ < 0) return name_;
    return name_ + "(" + std::to_string(index_) + ")";
}

void Control::Changed() {
    if (auto* observer = form_.GetRuntime().Observer()) observer->ControlChanged(*this);
}

bool Control::SetLeft(double v) {
    return Move(v, top_, width_, height_);
}
bool Control::SetTop(double v) {
    return Move(left_, v, width_, height_);
}
bool Control::SetWidth(double v) {
    return Move(left_, top_, v, height_);
}
bool Control::SetHeight(double v) {
    return Move(left_, top_, width_, v);
}

bool Control::Move(double left, double top, double width, double height) {
    if (!HasRectangle() || width < 0 || height < 0) return false;
    if (left == left_ && top == top_ && width == width_ && height == height_) return true;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Changed();
    return true;
}

void Control::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Changed();
}

void Control::SetTag(std::string tag) {
    tag_ = std::move(tag);
}

void Control::SetToolTipText(std::string text) {
    toolTip_ = std::move(text);
    Changed();
}

void Control::SetVisible(bool visible) {
    if (visible == visible_) return;
    visible_ = visible;
    Changed();
}

void Control::SetEnabled(bool enabled) {
    if (enabled == enabled_) return;
    enabled_ = enabled;
    Changed();
}

void Control::SetBackColor(std::uint32_t color) {
    backColor_ = color;
    Changed();
}

void Control::SetBackTransparent(bool transparent) {
    backTransparent_ = transparent;
    Changed();
}

void Control::SetForeColor(std::uint32_t color) {
    foreColor_ = color;
    Changed();
}

void Control::SetFont(Font font) {
    if (font == font_) return;
    font_ = std::move(font);
    Changed();
}

void Control::SetAlignment(Alignment a) {
    alignment_ = a;
    Changed();
}

void Control::SetBorderSingle(bool single) {
    borderSingle_ = single;
    Changed();
}

void Control::SetDragIcon(std::string picture) {
    if (picture == dragIcon_) return;
    dragIcon_ = std::move(picture);
    Changed();
    form_.GetRuntime().DragIconSet(*this);
}

void Control::SetSelection(int start, int length) {
    selStart_ = start;
    selLength_ = length;
    Changed();
}

bool Control::CanFocus() const {
    switch (kind_) {
        case ControlKind::PushButton:
        case ControlKind::CommandButton:
        case ControlKind::Grid:
        case ControlKind::TextBox:
            return true;
        default:
            return false;
    }
}

}  // namespace forms
