// One model form on screen. The model's Left, Top, Width and Height are the
// outer rectangle in twips, ScaleWidth and ScaleHeight the inner area: the
// window is placed with its frame at Left and Top, and its client area (the
// part below the menu bar, for a form with one) is the inner area in
// pixels. A frameless form draws the model's frame band itself and lets the
// user drag its edges.
//
// Every change the user makes (a move, a drag of the frame, the close box,
// minimising, activation) goes to the model, and every change of the model
// comes back here through Apply...; geometry the window was given by the
// program is not reported back as if the user had made it.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <unordered_map>
#include <vector>

#include "forms/form.h"
#include "qtbind/applied_geometry.h"
#include "qtbind/frame_drag.h"
#include "qtbind/menu_bridge.h"
#include "qtbind/pixel_scale.h"
#include "qtbind/window_style.h"

class QMdiArea;
class QMdiSubWindow;
class QMenuBar;

namespace qtbind {

class ControlView;
class FormInput;
class FormSurface;

struct WindowCallbacks {
    std::function<void()> afterEvent;  // after every event that reached the model
    std::function<void()> shown;       // after the window came on screen
};

class FormWindow : public QWidget {
  public:
    // A memory cell needs the area of its parent window to live in.
    FormWindow(forms::Form& form, const PixelScale& scale, WindowCallbacks callbacks,
               QMdiArea* parentArea = nullptr);
    ~FormWindow() override;

    forms::Form* Form() const { return form_; }
    Hosting GetHosting() const { return hosting_; }
    // The widget that the desktop moves: the window, or a child's frame.
    QWidget* Frame();
    QMdiArea* MdiArea() const { return mdiArea_; }
    QMenuBar* MenuBar() const { return menuBar_; }
    FormSurface* Surface() const { return surface_; }
    QWidget* WidgetFor(const forms::Control& control) const;
    // The control that `widget` shows, or that holds it; nullptr for a
    // widget of no control of this form (the form's own area, its frame).
    forms::Control* ControlOf(const QWidget* widget) const;
    const MenuBridge& Menus() const { return menus_; }

    // Where the desktop puts Frame() for an outer rectangle of the model in
    // twips: the frame's position, and the size of the window's client area
    // (or, for a memory cell, of its whole frame). It is what the window
    // system reports once the user has put the window there.
    struct Placement {
        QPoint position;
        QSize size;
    };
    Placement PlacementFor(double left, double top, double width, double height) const;

    void ApplyForm();
    void ApplyControl(const forms::Control& control);
    void ApplyMenu(const forms::MenuItem& item) { menus_.Apply(item); }
    void ApplyFocus(const forms::Control& control);
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
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void BuildControls();
    void ApplyGeometry();
    void ApplyVisible();
    void ApplyWindowState();
    void ShowNow();
    void LayoutChildren();
    int MenuBarHeight() const { return menuBarHeight_; }
    QPoint FramePosition();
    QSize ClientSize() const;
    void ReportGeometry();
    void ReportDrag(const QRect& outer);
    void RequestClose();
    void AfterEvent();
    bool ModelGone() const;

    forms::Form* form_;
    PixelScale scale_;
    WindowCallbacks callbacks_;
    Hosting hosting_;
    QMenuBar* menuBar_ = nullptr;
    int menuBarHeight_ = 0;
    FormSurface* surface_ = nullptr;
    QMdiArea* mdiArea_ = nullptr;
    QMdiSubWindow* subWindow_ = nullptr;
    FormInput* input_ = nullptr;
    MenuBridge menus_;
    std::vector<std::unique_ptr<ControlView>> views_;
    std::unordered_map<const forms::Control*, ControlView*> viewOf_;
    std::unordered_map<const QWidget*, forms::Control*> controlOf_;
    FrameDrag drag_;
    AppliedGeometry applied_;
    int applying_ = 0;  // depth of the program's own changes under way
    bool showPending_ = false;
};

}  // namespace qtbind
