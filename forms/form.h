// A model form: a window of the program in twips, with its controls in
// design order, its menus and its events.
//
// Setting the size raises Resize inside the setter, and showing a hidden form
// raises it too: handlers that size their own form rely on that re-entry and
// guard against it with flags of their own.
//
// A child form (a memory cell) lives inside the inner area of its parent:
// its Left and Top count from there, it is shown as soon as it is loaded,
// and showing it shows the parent.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "forms/control.h"
#include "forms/font.h"
#include "forms/grid.h"
#include "forms/menu_item.h"

namespace forms {

class Runtime;

enum class BorderStyle {
    FixedSingle,        // the calculator: caption and menu bar, no resizing
    SizableNoTitle,     // the tape: a sizable frame and nothing else
    SizableToolWindow,  // converter and memory cells: a thin caption
    Sizable,            // the memory parent: the normal frame
    FixedDialog,        // prompt and About box
};

// The non-client band around the inner area, in twips.
struct FrameInsets {
    int left = 0, top = 0, right = 0, bottom = 0;
};

enum WindowStates : std::int16_t { kNormal = 0, kMinimized = 1, kMaximized = 2 };

class Form {
  public:
    Form(Runtime& runtime, std::string name, BorderStyle border, bool hasMenuBar);
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    Runtime& GetRuntime() const { return runtime_; }
    const std::string& Name() const { return name_; }
    BorderStyle Border() const { return border_; }
    FrameInsets Insets() const { return insets_; }

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string tag) { tag_ = std::move(tag); }
    // The form's own font, which TextWidth measures with.
    const Font& GetFont() const { return font_; }
    void SetFont(Font font) { font_ = std::move(font); }
    // Whether the form shows the program's icon on its frame and in the
    // desktop's list of windows. Set once, before the form is loaded.
    bool HasIcon() const { return hasIcon_; }
    void SetHasIcon(bool hasIcon) { hasIcon_ = hasIcon; }
    // Whether the form's frame has a close box (its design's ControlBox).
    bool HasCloseBox() const { return closeBox_; }
    void SetCloseBox(bool closeBox) { closeBox_ = closeBox; }

    // The parent whose inner area holds this form; nullptr for a window of
    // its own. Set once, before the form is loaded.
    Form* MdiParent() const { return mdiParent_; }
    void SetMdiParent(Form* parent) { mdiParent_ = parent; }
    // A form made at run time from a design, one of many: it is freed once
    // it is unloaded (Runtime::FreeUnloaded), and a later use needs a new one.
    bool IsInstance() const { return instance_; }
    void SetInstance(bool instance) { instance_ = instance; }
    // Shown modally: no other window takes input until it is gone.
    bool Modal() const { return modal_; }
    std::uint32_t BackColor() const { return backColor_; }
    void SetBackColor(std::uint32_t color);

    // Outer rectangle and inner size, in twips.
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    double ScaleWidth() const { return width_ - insets_.left - insets_.right; }
    double ScaleHeight() const { return height_ - insets_.top - insets_.bottom; }
    // A maximised form refuses to be moved or sized: the statement fails
    // (false) and the form stays where the window system keeps it.
    bool SetLeft(double v) { return Move(v, top_, width_, height_); }
    bool SetTop(double v) { return Move(left_, v, width_, height_); }
    bool SetWidth(double v) { return Move(left_, top_, v, height_); }
    bool SetHeight(double v) { return Move(left_, top_, width_, v); }
    bool Move(double left, double top, double width, double height);
    // Sets the design size from the inner area, before the form is loaded.
    void SetDesignInnerSize(double innerWidth, double innerHeight);
    // What the window system reports after the user moved or sized the
    // window: the same as the setters, Resize included.
    void ReportGeometry(double left, double top, double width, double height);

    bool Loaded() const { return loaded_; }
    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    void Show();
    void Hide() { SetVisible(false); }
    std::int16_t WindowState() const { return windowState_; }
    // Maximising fills the screen (for a child: the parent's inner area);
    // the normal state brings back the rectangle from before.
    void SetWindowState(std::int16_t state);

    // Controls in design order; the position in this list is the control's
    // index in the form's collection.
    template <typename T = Control, typename... Args>
    T& AddControl(Args&&... args) {
        auto owned = std::make_unique<T>(*this, std::forward<Args>(args)...);
        T& ref = *owned;
        controls_.push_back(std::move(owned));
        return ref;
    }
    const std::vector<std::unique_ptr<Control>>& Controls() const { return controls_; }
    // nullptr when the form has no such control.
    Control* Find(const std::string& name, int index = -1) const;
    // For names that the program knows exist: aborts loudly on a typo.
    Control& Get(const std::string& name, int index = -1) const;
    Grid& GetGrid(const std::string& name) const;

    // The control that takes the focus when the form is activated and holds
    // no focus of its own: the first in tab order.
    void SetTabFirst(Control* control) { tabFirst_ = control; }
    Control* TabFirst() const { return tabFirst_; }

    MenuItem& AddMenu(std::string name, std::string caption);
    const std::vector<std::unique_ptr<MenuItem>>& Menus() const { return menus_; }
    MenuItem* FindMenu(const std::string& name, int index = -1) const;
    MenuItem& GetMenu(const std::string& name, int index = -1) const;

    // Events.
    std::function<void()> Load;
    std::function<void()> Resize;
    std::function<void()> Activate;
    std::function<void()> GotFocus;
    std::function<void()> Paint;
    std::function<void()> Click;
    std::function<void()> DblClick;
    std::function<void(int button, int shift, float x, float y)> MouseUp;
    std::function<void(std::int16_t& keyAscii)> KeyPress;
    std::function<void(std::int16_t& keyCode, int shift)> KeyDown;
    std::function<void(std::int16_t& keyCode, int shift)> KeyUp;
    std::function<void(int button, int shift, float x, float y)> MouseDown;
    // A drag over the form's own area, at X and Y of its inner area.
    std::function<void(Control& source, float x, float y, int state)> DragOver;
    std::function<void(int& cancel, int unloadMode)> QueryUnload;
    std::function<void(int& cancel)> Unload;

  private:
    friend class Runtime;
    void RaiseResize();
    void Changed();

    Runtime& runtime_;
    std::string name_;
    BorderStyle border_;
    FrameInsets insets_;
    std::string caption_, tag_;
    Font font_;
    Form* mdiParent_ = nullptr;
    bool instance_ = false, modal_ = false, hasIcon_ = false, closeBox_ = true;
    Form* activeChild_ = nullptr;  // of a parent: the child active last
    // The rectangle to come back to from the maximised state.
    double normalLeft_ = 0, normalTop_ = 0, normalWidth_ = 0, normalHeight_ = 0;
    std::uint32_t backColor_ = 0xC0C0C0;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    bool loaded_ = false, visible_ = false;
    std::int16_t windowState_ = kNormal;
    std::vector<std::unique_ptr<Control>> controls_;
    std::vector<std::unique_ptr<MenuItem>> menus_;
    // Menu items found before, by name and index: items are never taken
    // away, and the program looks its menus up by name many times over.
    mutable std::map<std::pair<std::string, int>, MenuItem*> foundMenus_;
    Control* tabFirst_ = nullptr;
};

}  // namespace forms
