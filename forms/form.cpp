#include "forms/form.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

#include "forms/runtime.h"

namespace forms {

namespace {

// The window frames of the desktop the program was drawn on, in twips at 15
// twips to the pixel: a 3-pixel fixed border, a 4-pixel sizable one, a
// 19-pixel caption (17 for a tool window) and a 20-pixel menu bar.
FrameInsets InsetsFor(BorderStyle border, bool hasMenuBar) {
    FrameInsets in;
    switch (border) {
        case BorderStyle::FixedSingle:
            in = {45, 45 + 285, 45, 45};
            break;
        case BorderStyle::SizableNoTitle:
            in = {60, 60, 60, 60};
            break;
        case BorderStyle::SizableToolWindow:
            in = {60, 60 + 255, 60, 60};
            break;
        case BorderStyle::Sizable:
            in = {60, 60 + 285, 60, 60};
            break;
        case BorderStyle::FixedDialog:
            in = {45, 45 + 285, 45, 45};
            break;
    }
    if (hasMenuBar) in.top += 290;
    return in;
}

}  // namespace

Form::Form(Runtime& runtime, std::string name, BorderStyle border, bool hasMenuBar)
    : runtime_(runtime),
      name_(std::move(name)),
      border_(border),
      insets_(InsetsFor(border, hasMenuBar)) {}

void Form::Changed() {
    if (auto* observer = runtime_.Observer()) observer->FormChanged(*this);
}

void Form::SetCaption(std::string caption) {
    caption_ = std::move(caption);
    Changed();
}

void Form::SetBackColor(std::uint32_t color) {
    backColor_ = color;
    Changed();
}

void Form::SetDesignInnerSize(double innerWidth, double innerHeight) {
    width_ = innerWidth + insets_.left + insets_.right;
    height_ = innerHeight + insets_.top + insets_.bottom;
}

bool Form::Move(double left, double top, double width, double height) {
    if (!loaded_) runtime_.Load(*this);
    if (windowState_ == kMaximized) return false;
    if (width < 0) width = 0;
    if (height < 0) height = 0;
    // The window system never makes a window with the normal sizable frame
    // larger than its maximum tracking size, the screen and the frame around
    // it, whoever asks: a Resize that keeps growing its own window comes to
    // rest there.
    if (!mdiParent_ && border_ == BorderStyle::Sizable) {
        const ScreenInfo& screen = runtime_.Screen();
        const double widest = screen.width + insets_.left + insets_.right;
        const double tallest = screen.height + insets_.top + insets_.bottom;
        if (width > widest) width = widest;
        if (height > tallest) height = tallest;
    }
    const bool sized = width != width_ || height != height_;
    if (!sized && left == left_ && top == top_) return true;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Changed();
    if (sized) RaiseResize();
    return true;
}

void Form::ReportGeometry(double left, double top, double width, double height) {
    // Taking hold of a memory cell's frame makes the cell the active one
    // before it moves, as on every desktop.
    if (mdiParent_ && runtime_.ActiveForm() != this) runtime_.Activate(*this);
    if (!loaded_ || runtime_.Ended()) return;
    // A maximised window stays where the model put it.
    if (windowState_ == kMaximized) return;
    // The window system never lets a frame be dragged smaller than its
    // minimum tracking size of 27 pixels.
    constexpr double kMinimumTrack = 27 * 15;
    if (border_ != BorderStyle::FixedSingle && border_ != BorderStyle::FixedDialog) {
        if (height < kMinimumTrack) height = kMinimumTrack;
        if (width < kMinimumTrack) width = kMinimumTrack;
    }
    Move(left, top, width, height);
}

void Form::RaiseResize() {
    if (loaded_ && Resize && !runtime_.Ended()) Resize();
}

void Form::SetVisible(bool visible) {
    if (!loaded_) runtime_.Load(*this);
    // A child shown is its parent shown.
    if (visible && mdiParent_ && !mdiParent_->Visible()) mdiParent_->SetVisible(true);
    if (visible == visible_) return;
    visible_ = visible;
    Changed();
    if (visible) {
        RaiseResize();
    } else {
        runtime_.FormHidden(*this);
    }
}

void Form::Show() {
    SetVisible(true);
    runtime_.Activate(*this);
}

void Form::SetWindowState(std::int16_t state) {
    if (state == windowState_) return;
    if (state == kMaximized) {
        normalLeft_ = left_;
        normalTop_ = top_;
        normalWidth_ = width_;
        normalHeight_ = height_;
        left_ = 0;
        top_ = 0;
        if (mdiParent_) {
            width_ = mdiParent_->ScaleWidth();
            height_ = mdiParent_->ScaleHeight();
        } else {
            width_ = runtime_.Screen().width;
            height_ = runtime_.Screen().height;
        }
    } else if (windowState_ == kMaximized) {
        left_ = normalLeft_;
        top_ = normalTop_;
        width_ = normalWidth_;
        height_ = normalHeight_;
    }
    windowState_ = state;
    Changed();
    RaiseResize();
}

Control* Form::Find(const std::string& name, int index) const {
    for (const auto& c : controls_) {
        if (c->Name() == name && c->Index() == index) return c.get();
    }
    return nullptr;
}

Control& Form::Get(const std::string& name, int index) const {
    Control* c = Find(name, index);
    if (!c) {
        std::fprintf(stderr, "form %s has no control %s(%d)\n", name_.c_str(), name.c_str(), index);
        std::abort();
    }
    return *c;
}

Grid& Form::GetGrid(const std::string& name) const {
    auto* grid = dynamic_cast<Grid*>(&Get(name));
    if (!grid) {
        std::fprintf(stderr, "control %s of form %s is no grid\n", name.c_str(), name_.c_str());
        std::abort();
    }
    return *grid;
}

MenuItem& Form::AddMenu(std::string name, std::string caption) {
    menus_.push_back(std::make_unique<MenuItem>(*this, std::move(name), std::move(caption)));
    return *menus_.back();
}

namespace {
MenuItem* FindIn(const std::vector<std::unique_ptr<MenuItem>>& items, const std::string& name,
                 int index) {
    for (const auto& item : items) {
        if (item->Name() == name && item->Index() == index) return item.get();
        if (MenuItem* found = FindIn(item->Items(), name, index)) return found;
    }
    return nullptr;
}
}  // namespace

MenuItem* Form::FindMenu(const std::string& name, int index) const {
    auto key = std::make_pair(name, index);
    if (auto it = foundMenus_.find(key); it != foundMenus_.end()) return it->second;
    MenuItem* item = FindIn(menus_, name, index);
    if (item) foundMenus_.emplace(std::move(key), item);
    return item;
}

MenuItem& Form::GetMenu(const std::string& name, int index) const {
    MenuItem* item = FindMenu(name, index);
    if (!item) {
        std::fprintf(stderr, "form %s has no menu item %s(%d)\n", name_.c_str(), name.c_str(),
                     index);
        std::abort();
    }
    return *item;
}

}  // namespace forms
