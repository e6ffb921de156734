#include "qtbind/qt_binding.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QCoreApplication>
#include <QCursor>
#include <QGuiApplication>
#include <QMenu>
#include <algorithm>
#include <unordered_set>

#include "memory/cells.h"
#include "qtbind/accessible_factory.h"
#include "qtbind/cell_access.h"
#include "qtbind/drag_tracker.h"
#include "qtbind/form_surface.h"
#include "qtbind/form_window.h"
#include "qtbind/grid_view.h"
#include "qtbind/qt_modal_host.h"
#include "qtbind/screen_info.h"
#include "qtbind/value_copy.h"
#include "qtbind/window_style.h"
#include "qtbind/x11_desktop.h"
#include "shell/lathmark_app.h"

namespace qtbind {

QtBinding::QtBinding(shell::LathmarkApp& app)
    : QtBinding(app, ScaleOf(QGuiApplication::primaryScreen())) {}

QtBinding::QtBinding(shell::LathmarkApp& app, const PixelScale& scale)
    : app_(app), scale_(scale), queue_(std::make_unique<QObject>()) {
    if (X11Desktop::OnX11()) desktop_ = std::make_unique<X11Desktop>();
    InstallAccessibleFactory();
    cellAccess_ = std::make_unique<CellAccess>(app_.Runtime(), scale_, [this] { AfterEvent(); });
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
    cellAccess_.reset();
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
    // The cells that the event brought into view are there for the next input.
    if (cellsPending_) UpdateCells();
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
    callbacks.copy = [this] { CopyValue(); };
    // The calculator's popup menu comes from the keyboard too.
    if (&form == app_.Program().Calculator) callbacks.popupKey = [this] { PopupFromKeyboard(); };
    auto* window = new FormWindow(form, scale_, std::move(callbacks), area);
    windows_[&form] = window;
    // Screen readers find every cell in the memory window's area.
    if (HostingOf(form) == Hosting::MdiParent) cellAccess_->SetArea(window->Surface());
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
    // The tape's grid keeps more rows than a tape has lines; the store
    // knows how many each has.
    if (&form == app_.Program().frmTape) {
        forms::Control* grid = form.Find("Grid1");
        if (auto* view = grid ? dynamic_cast<GridView*>(window.WidgetFor(*grid)) : nullptr) {
            view->SetLineCount([this](int column) {
                const auto& counts = app_.Program().tape->TapeRowCount();
                return column >= 0 && static_cast<std::size_t>(column) < counts.size()
                           ? static_cast<int>(counts[column])
                           : 0;
            });
        }
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

void QtBinding::FormLoaded(forms::Form& form) {
    // Nothing to show yet: the window is made when the form is first shown.
    // A new cell lies on top of the others.
    if (HostingOf(form) == Hosting::MdiChild) {
        cells_.Raise(form);
        ScheduleCells();
        cellAccess_->CellLoaded(form);
    }
}

void QtBinding::FormChanged(forms::Form& form) {
    const Hosting hosting = HostingOf(form);
    if (FormWindow* window = WindowFor(form)) {
        window->ApplyForm();
    } else if (form.Visible() && hosting != Hosting::MdiChild) {
        EnsureWindow(form);
    }
    // A cell that moved or came and went, or a memory window of another
    // size, may change which cells show.
    if (hosting == Hosting::MdiChild) {
        if (!cells_.Contains(form) && form.Loaded()) cells_.Raise(form);
        ScheduleCells();
        cellAccess_->CellChanged(form);
    } else if (hosting == Hosting::MdiParent && cells_.Size() > 0) {
        ScheduleCells();
    }
    if (modalHost_ && !form.Visible()) modalHost_->FormGone(form);
}

void QtBinding::FormUnloaded(forms::Form& form) {
    if (dragSource_ == &form) dragSource_ = nullptr;
    if (HostingOf(form) == Hosting::MdiChild) cellAccess_->CellUnloaded(form);
    if (cells_.Contains(form)) {
        cells_.Remove(form);
        // What it covered comes into view.
        ScheduleCells();
    }
    FormWindow* window = WindowFor(form);
    if (!window) return;
    if (modalHost_) modalHost_->FormGone(form);
    Retire(window);
}

void QtBinding::Retire(FormWindow* window) {
    if (forms::Form* form = window->Form()) windows_.erase(form);
    std::erase_if(windows_, [window](const auto& entry) { return entry.second == window; });
    if (activeChild_ == window) activeChild_ = nullptr;
    // The model's form may be dropped right after this; the window forgets
    // it at once and goes when the event that retired it is over.
    window->Detach();
    window->Frame()->hide();
    window->Frame()->deleteLater();
    std::erase_if(retired_, [](const QPointer<QWidget>& frame) { return frame.isNull(); });
    retired_.emplace_back(window->Frame());
}

void QtBinding::ScheduleCells() {
    if (cellsPending_) return;
    cellsPending_ = true;
    // Once the statements that change the cells are over: a memory file of
    // thousands of cells is worked out once, not once a cell.
    QMetaObject::invokeMethod(
        queue_.get(),
        [this] {
            if (cellsPending_) UpdateCells();
        },
        Qt::QueuedConnection);
}

QRect QtBinding::CellRect(const forms::Form& cell) const {
    if (!cell.Visible()) return {};
    return scale_.ToPixels(cell.Left(), cell.Top(), cell.Width(), cell.Height());
}

void QtBinding::UpdateCells() {
    cellsPending_ = false;
    if (updatingCells_ || app_.Ended()) return;
    updatingCells_ = true;
    const std::vector<forms::Form*> order = cells_.Order();
    forms::Form* parent = order.empty() ? nullptr : order.front()->MdiParent();
    FormWindow* parentWindow = nullptr;
    if (parent) parentWindow = parent->Visible() ? EnsureWindow(*parent) : WindowFor(*parent);
    std::vector<forms::Form*> showing;
    if (parentWindow) {
        const QRect area(QPoint(0, 0), parentWindow->Surface()->size());
        showing = cells_.Showing(area, [this](const forms::Form& cell) { return CellRect(cell); });
    }
    std::unordered_set<const forms::Form*> keep(showing.begin(), showing.end());
    // The cell the user works with keeps its window whatever covers it: the
    // active one, and the one a drag started from.
    forms::Form* active = app_.Runtime().ActiveForm();
    if (active && cells_.Contains(*active)) keep.insert(active);
    if (dragSource_ && cells_.Contains(*dragSource_)) keep.insert(dragSource_);
    if (!parentWindow) keep.clear();

    std::vector<FormWindow*> gone;
    for (auto& [form, window] : windows_) {
        if (window->GetHosting() == Hosting::MdiChild && !keep.count(form)) gone.push_back(window);
    }
    for (FormWindow* window : gone) Retire(window);

    // Windows for the cells that came into view, lying on one another as
    // the cells do.
    std::vector<FormWindow*> stacked;
    for (forms::Form* cell : order) {
        if (!keep.count(cell)) continue;
        FormWindow* window = WindowFor(*cell);
        if (!window) window = MakeWindow(*cell);
        if (window) stacked.push_back(window);
    }
    std::vector<FormWindow*> now;
    if (parentWindow) {
        for (QObject* child : parentWindow->Surface()->children()) {
            auto* window = dynamic_cast<FormWindow*>(child);
            if (window && window->Form()) now.push_back(window);
        }
    }
    if (now != stacked) {
        for (FormWindow* window : stacked) window->raise();
    }
    if (active && active->MdiParent()) {
        FormWindow* window = WindowFor(*active);
        if (activeChild_ && activeChild_ != window) activeChild_->SetTitleActive(false);
        activeChild_ = window;
        if (window) window->SetTitleActive(true);
    }
    updatingCells_ = false;
}

void QtBinding::ControlChanged(forms::Control& control) {
    if (FormWindow* window = WindowFor(control.Parent())) window->ApplyControl(control);
    // A cell's value, whether the cell shows or not.
    cellAccess_->ControlChanged(control);
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
    if (cells_.Contains(form)) {
        cells_.Raise(form);
        ScheduleCells();
    }
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
    ShowPopupMenu(menu, popupAt_.value_or(QCursor::pos()));
}

void QtBinding::PopupFromKeyboard() {
    // The road of a right click on the readout, with the menu at the
    // readout rather than wherever the mouse pointer happens to be.
    forms::Control& readout = app_.Program().calc->Readout;
    if (QWidget* widget = WidgetFor(readout)) {
        popupAt_ = widget->mapToGlobal(QPoint(0, widget->height()));
    }
    app_.Runtime().PressMouse(readout, forms::kRightButton, 0,
                              static_cast<float>(readout.Width() / 2),
                              static_cast<float>(readout.Height() / 2));
    popupAt_.reset();
}

void QtBinding::CopyValue() {
    if (app_.Ended()) return;
    QGuiApplication::clipboard()->setText(QString::fromStdString(ValueToCopy(app_.Program())));
}

void QtBinding::DragStarted(forms::Control& source) {
    dragSource_ = &source.Parent();
    drag_->Started(source);
}

void QtBinding::DragIconChanged(const std::string& picture) {
    drag_->IconChanged(picture);
}

void QtBinding::DragEnded() {
    dragSource_ = nullptr;
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
