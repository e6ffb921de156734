// One model form on screen. The model's Left, Top, Width and Height are the
// outer rectangle in twips, ScaleWidth and ScaleHeight the inner area: the
// window is placed with its frame at Left and Top, and its client area (the
// part below the menu bar, for a form with one) is the inner area in
// pixels. A frameless form draws the model's frame band itself and lets the
// user drag its edges.
//
// A memory cell is no window of the desktop but a widget inside its
// parent's area, at exactly the model's outer rectangle: it draws its own
// small frame (ChildFrame) and lets the user move it by its title bar, size
// it by its edges and close it with its close box.
//
// Every change the user makes (a move, a drag of the frame, the close box,
// minimising, maximising, activation) goes to the model, and every change of
// the model comes back here through Apply...; geometry the window was given
// by the program is not reported back as if the user had made it.
#pragma once

#include <QMargins>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "qtbind/applied_geometry.h"
#include "qtbind/child_frame.h"
#include "qtbind/frame_drag.h"
#include "qtbind/menu_bridge.h"
#include "qtbind/pixel_scale.h"
#include "qtbind/window_style.h"

class QMenuBar;

namespace qtbind {

class ControlView;
class FormInput;
class FormSurface;
class X11Desktop;

struct WindowCallbacks {
    std::function<void()> afterEvent;  // after every event that reached the model
    std::function<void()> shown;       // after the window came on screen
    // The window system made the window active although it was shown
    // without taking the activation: the activation goes back to where the
    // model has it.
    std::function<void()> activationRefused;
    // The window manager's frames, where there is one (X11).
    X11Desktop* desktop = nullptr;
    // Ctrl+C on the window, and the menu key (or Shift+F10); none where
    // the window has no use for them.
    std::function<void()> copy;
    std::function<void()> popupKey;
};

class FormWindow : public QWidget {
  public:
    // A memory cell needs the area of its parent window to live in.
    FormWindow(forms::Form& form, const PixelScale& scale, WindowCallbacks callbacks,
               QWidget* parentArea = nullptr);
    ~FormWindow() override;

    forms::Form* Form() const { return form_; }
    Hosting GetHosting() const { return hosting_; }
    // The widget that the desktop moves: the window itself (for a memory
    // cell, the widget that draws its frame).
    QWidget* Frame() { return this; }
    QMenuBar* MenuBar() const { return menuBar_; }
    // The inner area, where the controls (and a parent's cells) lie.
    FormSurface* Surface() const { return surface_; }
    QWidget* WidgetFor(const forms::Control& control) const;
    // The control that `widget` shows, or that holds it; nullptr for a
    // widget of no control of this form (the form's own area, its frame).
    forms::Control* ControlOf(const QWidget* widget) const;
    const MenuBridge& Menus() const { return menus_; }
    // Of a memory cell: where its title bar and its close box lie.
    std::optional<QRect> TitleBar() const;
    std::optional<QRect> CloseBox() const;

    // Where the desktop puts Frame() for an outer rectangle of the model in
    // twips: the frame's position, and the size of the window's client area
    // (or, for a window that draws its own frame, of the whole). It is what
    // the window system reports once the user has put the window there.
    //
    // The model's rectangle is the frame as the window manager draws it:
    // once the window manager has framed the window, the client area is
    // the model's size less that frame. Before (and where no window manager
    // frames windows) the frame is taken to be the model's own.
    struct Placement {
        QPoint position;
        QSize size;
    };
    Placement PlacementFor(double left, double top, double width, double height) const;

    void ApplyForm();
    void ApplyControl(const forms::Control& control);
    void ApplyMenu(const forms::MenuItem& item) { menus_.Apply(item); }
    void ApplyFocus(const forms::Control& control);
    // Brings a window that the program showed on screen at once, rather
    // than once the statement that showed it is over (a modal form, which
    // must be up before its loop runs).
    void ShowNow();
    // The window is where the model says, as far as the window manager has
    // let it be put there: not waiting for a freshly mapped window's frame.
    bool Settled() const { return !settling_; }
    // A memory cell that is the active one inside its parent shows its
    // title bar in the active colours.
    void SetTitleActive(bool active);
    // The form is unloaded: nothing of the model is touched from now on.
    void Detach();
    // A sunken frame two pixels around the control, drawn on the form.
    void SetSunkenEdgeAround(const forms::Control& control);

  protected:
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

  private:
    void BuildControls();
    void ApplyGeometry();
    void ApplyVisible();
    void ApplyWindowState();
    void LayoutChildren();
    // The Tab key passes over a control that the controls in front of it
    // cover whole (Backspace behind Foot, Pi behind Inch), or that lies
    // wholly outside the form's inner area (the keys with Show Keys off):
    // the user could not see where the focus went.
    void UpdateFocusChain();
    bool DrawsOwnFrame() const {
        return hosting_ == Hosting::Frameless || hosting_ == Hosting::MdiChild;
    }
    // Pixels that still say what the model has keep the model's own twips,
    // so that rounding never reads as a move.
    double TwipsX(int pixels, double model) const;
    double TwipsY(int pixels, double model) const;
    void ReportGeometry();
    // The window manager has mapped the window anew: its frame is learnt,
    // watched, and put back where the model has it.
    void StartSettling();
    void Settle();
    // The model's outer rectangle in pixels, as the frame should stand.
    QRect ModelFrame() const;
    void ReportDrag(const QRect& outer);
    void RequestClose();
    void ActivateChild();
    void AfterEvent();
    bool ModelGone() const;

    forms::Form* form_;
    PixelScale scale_;
    WindowCallbacks callbacks_;
    Hosting hosting_;
    QMenuBar* menuBar_ = nullptr;
    int menuBarHeight_ = 0;
    FormSurface* surface_ = nullptr;
    FormInput* input_ = nullptr;
    MenuBridge menus_;
    std::vector<std::unique_ptr<ControlView>> views_;
    std::unordered_map<const forms::Control*, ControlView*> viewOf_;
    std::unordered_map<const QWidget*, forms::Control*> controlOf_;
    std::optional<ChildFrame> childFrame_;
    FrameDrag drag_;
    AppliedGeometry applied_;
    int applying_ = 0;  // depth of the program's own changes under way
    // The frame that the window manager draws, once known.
    std::optional<QMargins> wmMargins_;
    QTimer settleTimer_;
    int settleTries_ = 0;
    bool settling_ = false;
    // The user's move being reported: the window stands where the report
    // says, whatever the model then makes of it.
    std::optional<QRect> reporting_;
    bool showPending_ = false;
    bool titleActive_ = false;
    bool closePressed_ = false;
    // The activation that the platform gives a window with its show, asked
    // for or not.
    bool showActivationComing_ = false;
};

}  // namespace qtbind
