// A control on a model form: its design name, its rectangle in twips, its
// caption and looks, and the events that the program's handlers hang on it.
//
// Every setter tells the runtime's observer, so that a window that shows the
// form follows at once; nothing here knows of Qt.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "forms/control_kind.h"
#include "forms/font.h"

namespace forms {

class Form;

// Mouse buttons as the events deliver them.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;

// The State of DragOver: the pointer has just come over the control, or
// moves on over it. (The platform's third state, 1 for leaving, is never
// raised here: see Runtime::DragMove.)
inline constexpr int kDragEnter = 0;
inline constexpr int kDragOver = 2;

// Where the X and Y of a control's DragOver and DragDrop count from: its own
// top left corner, or the inner top left corner of its form, that is its
// Left and Top are added. Labels of this program differ: Readout is told the
// pointer in the coordinates of Calculator, a memory cell's label from its
// own left edge.
enum class DragOrigin { Control, Form };

class Control {
  public:
    Control(Form& form, std::string name, ControlKind kind, int index = -1);
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    Form& Parent() const { return form_; }
    const std::string& Name() const { return name_; }
    int Index() const { return index_; }  // place in a control array, -1 if none
    ControlKind Kind() const { return kind_; }
    // "Number(7)" for an array element, the plain name otherwise.
    std::string FullName() const;

    // A control with no rectangle (the common dialog) refuses these: the
    // caller's statement fails, which it learns from the false result.
    bool HasRectangle() const { return kind_ != ControlKind::CommonDialog; }
    double Left() const { return left_; }
    double Top() const { return top_; }
    double Width() const { return width_; }
    double Height() const { return height_; }
    bool SetLeft(double v);
    bool SetTop(double v);
    bool SetWidth(double v);
    bool SetHeight(double v);
    bool Move(double left, double top, double width, double height);

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    const std::string& Tag() const { return tag_; }
    void SetTag(std::string tag);
    const std::string& ToolTipText() const { return toolTip_; }
    void SetToolTipText(std::string text);

    bool Visible() const { return visible_; }
    void SetVisible(bool visible);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);

    std::uint32_t BackColor() const { return backColor_; }
    void SetBackColor(std::uint32_t color);
    bool BackTransparent() const { return backTransparent_; }
    void SetBackTransparent(bool transparent);
    std::uint32_t ForeColor() const { return foreColor_; }
    void SetForeColor(std::uint32_t color);
    const Font& GetFont() const { return font_; }
    void SetFont(Font font);
    Alignment GetAlignment() const { return alignment_; }
    void SetAlignment(Alignment a);
    bool BorderSingle() const { return borderSingle_; }
    void SetBorderSingle(bool single);

    // Automatic dragging: a press of the left button starts a drag showing
    // DragIcon, the name of a picture ("Image3", or "" for the design icon).
    // Handlers may change the icon during the drag; the drag shows it at once.
    bool DragAutomatic() const { return dragAutomatic_; }
    void SetDragAutomatic(bool on) { dragAutomatic_ = on; }
    const std::string& DragIcon() const { return dragIcon_; }
    void SetDragIcon(std::string picture);
    DragOrigin GetDragOrigin() const { return dragOrigin_; }
    void SetDragOrigin(DragOrigin origin) { dragOrigin_ = origin; }
    // What is added to a position in the control's own twips to give the X
    // and Y that its drag events receive: 0, or its Left and Top.
    double DragOffsetX() const { return dragOrigin_ == DragOrigin::Form ? left_ : 0.0; }
    double DragOffsetY() const { return dragOrigin_ == DragOrigin::Form ? top_ : 0.0; }

    // A text box's selection, in characters: typing replaces it.
    int SelStart() const { return selStart_; }
    int SelLength() const { return selLength_; }
    void SetSelection(int start, int length);
    // The default button of its form: Enter anywhere on the form presses it.
    bool IsDefault() const { return default_; }
    void SetDefault(bool isDefault) { default_ = isDefault; }
    // The cancel button of its form: Escape anywhere on the form presses it.
    bool IsCancel() const { return cancel_; }
    void SetCancel(bool isCancel) { cancel_ = isCancel; }

    // Can this control take the keyboard focus at all?
    bool CanFocus() const;

    // Events. Handlers are plain functions set by the program.
    std::function<void()> Click;
    std::function<void()> DblClick;
    // Click is the left button's alone; MouseDown comes for every button,
    // with the position in the control's own twips.
    std::function<void(int button, int shift, float x, float y)> MouseDown;
    // X and Y as GetDragOrigin() tells; state is kDragEnter or kDragOver.
    std::function<void(Control& source, float x, float y, int state)> DragOver;
    std::function<void(Control& source, float x, float y)> DragDrop;
    std::function<void(std::int16_t& keyCode, int shift)> KeyDown;
    std::function<void()> GotFocus;
    std::function<void(int button, int shift, float x, float y)> MouseUp;

  protected:
    void Changed();

  private:
    Form& form_;
    std::string name_;
    ControlKind kind_;
    int index_;
    double left_ = 0, top_ = 0, width_ = 0, height_ = 0;
    std::string caption_, tag_, toolTip_, dragIcon_;
    bool visible_ = true, enabled_ = true, dragAutomatic_ = false, default_ = false,
         cancel_ = false;
    int selStart_ = 0, selLength_ = 0;
    DragOrigin dragOrigin_ = DragOrigin::Control;
    bool backTransparent_ = false, borderSingle_ = false;
    std::uint32_t backColor_ = 0xFFFFFF, foreColor_ = 0;
    Font font_;
    Alignment alignment_ = Alignment::Left;
};

}  // namespace forms
