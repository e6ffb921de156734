#include "qtbind/qt_binding.h"

#include <QAction>
#include <QApplication>
#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <algorithm>

#include "qtbind/drag_tracker.h"
#include "qtbind/form_surface.h"
#include "qtbind/form_window.h"
#include "qtbind/qt_modal_host.h"
#include "qtbind/screen_info.h"
#include "qtbind/window_style.h"
#include "qtbind/x11_desktop.h"
#include "shell/lathmark_app.h"

namespace qtbind {

QtBinding::QtBinding(shell::LathmarkApp& app)
    : QtBinding(app, ScaleOf(QGuiApplication::primaryScreen())) {}

QtBinding::QtBinding(shell::LathmarkApp& app, const PixelScale& scale)
    : app_(app), scale_(scale), queue_(std::make_unique<QObject>()) {
    if (X11Desktop::OnX11()) desktop_ = std::make_unique<X11Desktop>();
    DragTracker::Hooks hooks;
    hooks.widgetFor = [this](const forms::Control& control) { return WidgetFor(control); };
    hooks.controlAt = [this](const QPoint& global, QPoint& local) {
        return ControlAt(global, &local);
    };
    hooks.formAt = [this](const QPoint& global, QPointF& twips) {
        return FormAreaAt(global, &twips);
    };
    hooks.afterEvent = [this] { AfterEvent(); };
    drag_ = std::make_unique<DragTracker>(app_.Runtime(), scale_, std::move(hooks));
    // The desktop's modal loop needs to hear when its form goes.
    modalHost_ = dynamic_cast<QtModalHost*>(app_.Runtime().GetServices().modal);
    if (modalHost_) modalHost_->SetBinding(this);
    app_.Runtime().SetObserver(this);
}

QtBinding::~QtBinding() {
    // A drag under way lets the mouse and the cursor go.
    drag_.reset();
    desktop_.reset();
    if (modalHost_) modalHost_->SetBinding(nullptr);
    if (app_.Runtime().Observer() == this) app_.Runtime().SetObserver(nullptr);
    for (auto& [form, window] : windows_) window->Detach();
    // A memory cell goes with the parent window that holds it.
    std::vector<FormWindow*> windows;
    for (auto& [form, window] : windows_) {
        if (window->GetHosting() != Hosting::MdiChild) windows.push_back(window);
    }
    windows_.clear();
    for (FormWindow* window : windows) delete window;
    for (QPointer<QWidget>& frame : retired_) delete frame.data();
}

FormWindow* QtBinding::WindowFor(const forms::Form& form) const {
    auto found = windows_.find(&form);
    return found == windows_.end() ? nullptr : found->second;
}

QWidget* QtBinding::WidgetFor(const forms::Control& control) const {
    FormWindow* window = WindowFor(control.Parent());
    return window ? window->WidgetFor(control) : nullptr;
}

forms::Control* QtBinding::ControlAt(const QPoint& globalPos, QPoint* local) const {
    QWidget* widget = QApplication::widgetAt(globalPos);
    // The nearest form's window around the widget knows the control: a
    // memory cell's, not that of the parent that holds the cell.
    for (QWidget* w = widget; w; w = w->parentWidget()) {
        auto* window = dynamic_cast<FormWindow*>(w);
        if (!window) continue;
        forms::Control* control = window->ControlOf(widget);
        if (!control) return nullptr;
        if (local) *local = window->WidgetFor(*control)->mapFromGlobal(globalPos);
        return control;
    }
    return nullptr;
}

forms::Form* QtBinding::FormAreaAt(const QPoint& globalPos, QPointF* twips) const {
    QWidget* widget = QApplication::widgetAt(globalPos);
    for (QWidget* w = widget; w; w = w->parentWidget()) {
        auto* window = dynamic_cast<FormWindow*>(w);
        if (!window) continue;
        if (widget != window->Surface()) return nullptr;
        if (twips) {
            const QPoint local = window->Surface()->mapFromGlobal(globalPos);
            *twips = QPointF(scale_.ToTwipsX(local.x()), scale_.ToTwipsY(local.y()));
        }
        return window->Form();
    }
    return nullptr;
}

void QtBinding::ShowPopupMenu(const forms::MenuItem& top, const QPoint& globalPos) {
    FormWindow* window = EnsureWindow(top.Parent());
    if (!window) return;
    // Not exec(): the press that asked for the menu is still being handled,
    // and the program's handlers expect nothing back from the menu.
    if (QMenu* menu = window->Menus().Popup(top.Name())) menu->popup(globalPos);
}

std::optional<std::string> QtBinding::DragCursorPicture() const {
    return drag_ ? drag_->Picture() : std::nullopt;
}

FormWindow* QtBinding::ShowNow(forms::Form& form) {
    FormWindow* window = EnsureWindow(form);
    if (window) window->ShowNow();
    return window;
}

void QtBinding::AfterEvent() {
    // The main loop polls the calculator's place between events; a pass that
    // itself moves windows must not start another.
    if (inMainLoopPass_ || app_.Ended()) return;
    inMainLoopPass_ = true;
    app_.MainLoopPass();
    inMainLoopPass_ = false;
}

FormWindow* QtBinding::EnsureWindow(forms::Form& form) {
    if (FormWindow* window = WindowFor(form)) return window;
    if (!form.Loaded() || app_.Ended()) return nullptr;
    return MakeWindow(form);
}

FormWindow* QtBinding::MakeWindow(forms::Form& form) {
    QWidget* area = nullptr;
    if (HostingOf(form) == Hosting::MdiChild) {
        // A cell lives inside its parent's area; the parent's window is made
        // for it, hidden if the parent is hidden.
        FormWindow* parent = form.MdiParent() ? EnsureWindow(*form.MdiParent()) : nullptr;
        if (!parent) return nullptr;
        area = parent->Surface();
    }
    WindowCallbacks callbacks;
    callbacks.afterEvent = [this] { AfterEvent(); };
    callbacks.shown = [this] { Restack(); };
    callbacks.activationRefused = [this] { ScheduleActivation(); };
    callbacks.desktop = desktop_.get();
    auto* window = new FormWindow(form, scale_, std::move(callbacks), area);
    windows_[&form] = window;
    Decorate(form, *window);
    if (forms::Control* focus = app_.Runtime().Focus(); focus && &focus->Parent() == &form) {
        window->ApplyFocus(*focus);
    }
    return window;
}

void QtBinding::Decorate(forms::Form& form, FormWindow& window) {
    // The calculator's Paint draws a sunken frame around its readout.
    if (form.Name() == "Calculator") {
        if (forms::Control* readout = form.Find("Readout")) window.SetSunkenEdgeAround(*readout);
    }
}

void QtBinding::Restack() {
    // A platform that draws no windows has no stacking to keep.
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) return;
    const auto& band = app_.Runtime().TopMostBand();
    if (desktop_) {
        // The window manager keeps the band's windows above all others, and
        // the others not; a window mapped anew is told again.
        for (auto& [form, window] : windows_) {
            if (window->GetHosting() == Hosting::MdiChild || !window->isVisible()) continue;
            if (!window->Settled()) continue;
            const bool above = std::find(band.begin(), band.end(), form) != band.end();
            desktop_->SetAbove(window, above);
        }
    }
    // Each window goes to the front in turn, from the back of the band to
    // its front, so that the band's first form ends up in front of all.
    for (auto it = band.rbegin(); it != band.rend(); ++it) {
        FormWindow* window = WindowFor(**it);
        if (window && window->Frame()->isVisible()) window->Frame()->raise();
    }
}

void QtBinding::FormLoaded(forms::Form&) {
    // Nothing to show yet: the window is made when the form is first shown.
}

void QtBinding::FormChanged(forms::Form& form) {
    if (FormWindow* window = WindowFor(form)) {
        window->ApplyForm();
    } else if (form.Visible()) {
        EnsureWindow(form);
    }
    if (modalHost_ && !form.Visible()) modalHost_->FormGone(form);
}

void QtBinding::FormUnloaded(forms::Form& form) {
    auto found = windows_.find(&form);
    if (found == windows_.end()) return;
    FormWindow* window = found->second;
    windows_.erase(found);
    if (modalHost_) modalHost_->FormGone(form);
    if (activeChild_ == window) activeChild_ = nullptr;
    // The model's form may be dropped right after this; the window forgets
    // it at once and goes when the event that unloaded it is over.
    window->Detach();
    window->Frame()->hide();
    window->Frame()->deleteLater();
    std::erase_if(retired_, [](const QPointer<QWidget>& frame) { return frame.isNull(); });
    retired_.emplace_back(window->Frame());
}

void QtBinding::ControlChanged(forms::Control& control) {
    if (FormWindow* window = WindowFor(control.Parent())) window->ApplyControl(control);
}

void QtBinding::MenuChanged(forms::MenuItem& item) {
    if (FormWindow* window = WindowFor(item.Parent())) window->ApplyMenu(item);
}

void QtBinding::FocusChanged(forms::Control* control) {
    if (!control) return;
    if (FormWindow* window = WindowFor(control->Parent())) window->ApplyFocus(*control);
    // The keys go where the focus is: its window must be the active one.
    ScheduleActivation();
}

void QtBinding::ActiveFormChanged(forms::Form& form) {
    if (form.MdiParent()) {
        // The active cell comes in front of the others and shows it.
        FormWindow* window = WindowFor(form);
        if (activeChild_ && activeChild_ != window) activeChild_->SetTitleActive(false);
        activeChild_ = window;
        if (window) {
            window->raise();
            window->SetTitleActive(true);
        }
    }
    ScheduleActivation();
}

void QtBinding::ScheduleActivation() {
    if (activationPending_) return;
    activationPending_ = true;
    QMetaObject::invokeMethod(
        queue_.get(),
        [this] {
            activationPending_ = false;
            Activate();
        },
        Qt::QueuedConnection);
}

void QtBinding::Activate() {
    if (app_.Ended()) return;
    forms::Form* active = app_.Runtime().ActiveForm();
    if (!active) return;
    // A cell is active inside its parent, and the parent's window on the
    // desktop.
    forms::Form& top = active->MdiParent() ? *active->MdiParent() : *active;
    FormWindow* window = WindowFor(top);
    if (!window || !window->isVisible() || window->isMinimized()) return;
    if (QApplication::activeWindow() == window) return;
    // A modal window keeps the activation while it is up.
    if (QWidget* modal = QApplication::activeModalWidget(); modal && modal != window) return;
    window->activateWindow();
}

void QtBinding::TopMostChanged() {
    Restack();
}

void QtBinding::PopupMenuRequested(forms::MenuItem& menu) {
    ShowPopupMenu(menu, QCursor::pos());
}

void QtBinding::DragStarted(forms::Control& source) {
    drag_->Started(source);
}

void QtBinding::DragIconChanged(const std::string& picture) {
    drag_->IconChanged(picture);
}

void QtBinding::DragEnded() {
    drag_->Ended();
}

void QtBinding::ProgramEnded() {
    if (modalHost_) modalHost_->EndAll();
    for (auto& [form, window] : windows_) {
        window->Detach();
        window->Frame()->hide();
    }
    QCoreApplication::exit(0);
}

}  // namespace qtbind
