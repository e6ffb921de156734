#include "qtbind/form_window.h"

#include <QAccessible>
#include <QGuiApplication>
#include <QMenuBar>
#include <algorithm>

#include "forms/runtime.h"
#include "qtbind/accessible_names.h"
#include "qtbind/announce.h"
#include "qtbind/control_view.h"
#include "qtbind/form_input.h"
#include "qtbind/form_surface.h"
#include "qtbind/model_color.h"
#include "qtbind/program_icon.h"
#include "qtbind/x11_desktop.h"

namespace qtbind {

namespace {

bool HasVisibleMenu(const forms::Form& form) {
    return std::any_of(form.Menus().begin(), form.Menus().end(),
                       [](const auto& item) { return item->Visible(); });
}

}  // namespace

FormWindow::FormWindow(forms::Form& form, const PixelScale& scale, WindowCallbacks callbacks,
                       QWidget* parentArea)
    : QWidget(HostingOf(form) == Hosting::MdiChild ? parentArea : nullptr, FlagsFor(form)),
      form_(&form),
      scale_(scale),
      callbacks_(std::move(callbacks)),
      hosting_(HostingOf(form)),
      menus_([this](forms::MenuItem& item) {
          if (ModelGone()) return;
          if (item.Click) item.Click();
          AfterEvent();
      }),
      drag_(scale.ToPixelsX(form.Insets().left)) {
    setObjectName(QString::fromStdString(form.Name()));
    setAccessibleName(AccessibleWindowName(form));
    // Forms drawn without an icon leave the frame to the desktop's default.
    if (form.HasIcon()) setWindowIcon(ProgramIcon());
    // The program ends when the model says so, never because a window shut.
    setAttribute(Qt::WA_QuitOnClose, false);
    if (ShowsWithoutActivating(form)) setAttribute(Qt::WA_ShowWithoutActivating);
    if (hosting_ == Hosting::MdiChild) {
        childFrame_.emplace(scale, form.Insets());
        // A child comes on screen when the model shows it, not with its parent.
        hide();
    }

    input_ = new FormInput(form, scale, [this] { AfterEvent(); });
    input_->setParent(this);
    if (hosting_ == Hosting::MdiChild) input_->SetPressHook([this] { ActivateChild(); });
    input_->SetCopy(callbacks_.copy);
    input_->SetPopupKey(callbacks_.popupKey);
    if (hosting_ != Hosting::MdiChild && HasVisibleMenu(form)) {
        menuBar_ = new QMenuBar(this);
        menuBar_->setNativeMenuBar(false);
    }
    menus_.Build(form, menuBar_, this);
    if (menuBar_) menuBarHeight_ = menuBar_->sizeHint().height();

    surface_ = new FormSurface(this);
    input_->Watch(surface_, nullptr);
    BuildControls();
    UpdateFocusChain();
    input_->Watch(this, nullptr, /*keysOnly=*/true);
    if (DrawsOwnFrame()) setMouseTracking(true);
    settleTimer_.setInterval(20);
    QObject::connect(&settleTimer_, &QTimer::timeout, this, [this] { Settle(); });
    ApplyForm();
}

FormWindow::~FormWindow() = default;

void FormWindow::BuildControls() {
    for (const auto& c : form_->Controls()) {
        // Made in the model's order, so that a later control lies in front.
        auto view =
            std::make_unique<ControlView>(*c, surface_, scale_, [this](forms::Control& control) {
                if (ModelGone()) return;
                if (control.Click) control.Click();
                AfterEvent();
            });
        if (view->Widget()) {
            input_->Watch(view->Widget(), c.get());
            controlOf_[view->Widget()] = c.get();
        }
        viewOf_[c.get()] = view.get();
        views_.push_back(std::move(view));
    }
}

QWidget* FormWindow::WidgetFor(const forms::Control& control) const {
    auto found = viewOf_.find(&control);
    return found == viewOf_.end() ? nullptr : found->second->Widget();
}

forms::Control* FormWindow::ControlOf(const QWidget* widget) const {
    if (ModelGone()) return nullptr;
    for (; widget && widget != this; widget = widget->parentWidget()) {
        auto found = controlOf_.find(widget);
        if (found != controlOf_.end()) return found->second;
    }
    return nullptr;
}

std::optional<QRect> FormWindow::TitleBar() const {
    if (!childFrame_) return std::nullopt;
    return childFrame_->TitleBar(size());
}

std::optional<QRect> FormWindow::CloseBox() const {
    if (!childFrame_) return std::nullopt;
    return childFrame_->CloseBox(size());
}

bool FormWindow::ModelGone() const {
    return !form_ || form_->GetRuntime().Ended();
}

void FormWindow::AfterEvent() {
    if (callbacks_.afterEvent) callbacks_.afterEvent();
}

void FormWindow::ApplyForm() {
    if (ModelGone()) return;
    ++applying_;
    const QString title = QString::fromStdString(form_->Caption());
    if (windowTitle() != title) {
        setWindowTitle(title);
        // Screen readers name the window by its title, and hear of a new one.
        setAccessibleName(AccessibleWindowName(*form_));
        // A cell is told of by the memory window's list (CellAccess).
        if (!childFrame_) {
            QAccessibleEvent renamed(this, QAccessible::NameChanged);
            Announce(renamed);
        }
        // A cell writes its caption itself.
        if (childFrame_) update();
    }
    surface_->SetBackColor(ModelColor(form_->BackColor()));
    // Out of the maximised state first, so that the model's rectangle then
    // lands on a normal window.
    ApplyWindowState();
    ApplyGeometry();
    ApplyVisible();
    --applying_;
}

FormWindow::Placement FormWindow::PlacementFor(double left, double top, double width,
                                               double height) const {
    Placement placement{QPoint(scale_.ToPixelsX(left), scale_.ToPixelsY(top)), QSize()};
    if (DrawsOwnFrame()) {
        placement.size = scale_.ToPixels(width, height);
    } else if (wmMargins_) {
        const QSize outer = scale_.ToPixels(width, height);
        placement.size =
            QSize(std::max(1, outer.width() - wmMargins_->left() - wmMargins_->right()),
                  std::max(1, outer.height() - wmMargins_->top() - wmMargins_->bottom()));
    } else {
        const forms::FrameInsets in = form_->Insets();
        const QSize inner =
            scale_.ToPixels(width - in.left - in.right, height - in.top - in.bottom);
        placement.size = QSize(inner.width(), inner.height() + menuBarHeight_);
    }
    return placement;
}

void FormWindow::ApplyGeometry() {
    ++applying_;
    // A maximised window stays where the window system keeps it.
    if (form_->WindowState() != forms::kMaximized || hosting_ == Hosting::MdiChild) {
        const Placement placement =
            PlacementFor(form_->Left(), form_->Top(), form_->Width(), form_->Height());
        if (hosting_ == Hosting::MdiChild) {
            // Inside the parent nobody but the user's drags reports a move.
            const QRect outer(placement.position, placement.size);
            if (geometry() != outer) setGeometry(outer);
        } else if (reporting_ && *reporting_ == ModelFrame()) {
            // The user's move, taken as it is: the window already stands
            // there, and the window manager may have carried it further.
        } else {
            applied_.Remember(placement.position, placement.size);
            if (HasFixedSize(*form_)) {
                if (minimumSize() != placement.size || maximumSize() != placement.size) {
                    setFixedSize(placement.size);
                }
            }
            const auto frame = callbacks_.desktop && !isMinimized()
                                   ? callbacks_.desktop->FrameOf(this)
                                   : std::nullopt;
            if (frame && wmMargins_) {
                // Framed: the client area goes where the frame around it
                // lands on the model's corner. Asking for the frame's corner
                // instead would leave the sum to the window manager, which
                // gets it wrong for a window it has mapped anew.
                if (frame->outer != ModelFrame() || size() != placement.size) {
                    setGeometry(
                        QRect(placement.position + QPoint(wmMargins_->left(), wmMargins_->top()),
                              placement.size));
                }
            } else {
                if (!HasFixedSize(*form_) && size() != placement.size) resize(placement.size);
                if (pos() != placement.position) move(placement.position);
            }
        }
    }
    LayoutChildren();
    --applying_;
}

QRect FormWindow::ModelFrame() const {
    const Placement placement =
        PlacementFor(form_->Left(), form_->Top(), form_->Width(), form_->Height());
    if (!wmMargins_ || DrawsOwnFrame()) return QRect(placement.position, placement.size);
    return QRect(placement.position, placement.size.grownBy(*wmMargins_));
}

void FormWindow::LayoutChildren() {
    if (menuBar_) {
        const QRect bar(0, 0, width(), menuBarHeight_);
        if (menuBar_->geometry() != bar) menuBar_->setGeometry(bar);
    }
    if (!form_) return;
    QRect inner(QPoint(0, menuBarHeight_),
                scale_.ToPixels(form_->ScaleWidth(), form_->ScaleHeight()));
    if (DrawsOwnFrame()) {
        const forms::FrameInsets in = form_->Insets();
        inner.moveTopLeft(QPoint(scale_.ToPixelsX(in.left), scale_.ToPixelsY(in.top)));
    } else if (hosting_ == Hosting::MdiParent) {
        // The parent's whole client area holds the cells, maximised or not.
        inner = QRect(0, menuBarHeight_, width(), std::max(0, height() - menuBarHeight_));
    }
    if (surface_->geometry() != inner) {
        surface_->setGeometry(inner);
        // Controls that the window's edge cuts off (the keys when Show Keys
        // is off) are no longer on show, or are again.
        UpdateFocusChain();
    }
}

void FormWindow::ApplyVisible() {
    if (form_->Visible()) {
        // Shown is what the program asked for; a cell inside a hidden parent
        // stays shown and appears with its parent.
        if (!isHidden() || showPending_) return;
        // The window comes on screen once the model's statement is done, at
        // the place where that statement left it, rather than at a place it
        // held only for a moment.
        showPending_ = true;
        QMetaObject::invokeMethod(
            this, [this] { ShowNow(); }, Qt::QueuedConnection);
    } else {
        showPending_ = false;
        if (!isHidden()) hide();
        // Modal no longer: the form is gone from the screen.
        if (windowModality() != Qt::NonModal) setWindowModality(Qt::NonModal);
    }
}

void FormWindow::ShowNow() {
    if (!showPending_) return;
    showPending_ = false;
    if (ModelGone() || !form_->Visible()) return;
    ++applying_;
    ApplyGeometry();
    if (hosting_ != Hosting::MdiChild) {
        // A form shown modally keeps every other window from the user.
        const Qt::WindowModality modality = form_->Modal() ? Qt::ApplicationModal : Qt::NonModal;
        if (windowModality() != modality) setWindowModality(modality);
        // The offscreen platform activates every window it shows, whatever
        // the window asks.
        showActivationComing_ = testAttribute(Qt::WA_ShowWithoutActivating) &&
                                QGuiApplication::platformName() == QLatin1String("offscreen");
    }
    show();
    if (!testAttribute(Qt::WA_ShowWithoutActivating) && hosting_ != Hosting::MdiChild) {
        activateWindow();
    }
    ApplyWindowState();
    --applying_;
    // A cell lies inside its parent: the band of windows above the others
    // is no matter of its.
    if (callbacks_.shown && hosting_ != Hosting::MdiChild) callbacks_.shown();
    StartSettling();
}

void FormWindow::StartSettling() {
    if (!callbacks_.desktop || hosting_ == Hosting::MdiChild || !X11Desktop::OnX11()) return;
    settling_ = true;
    settleTries_ = 0;
    settleTimer_.start();
}

void FormWindow::Settle() {
    // About two seconds for the window manager to map and frame the window.
    constexpr int kMostTries = 100;
    const bool gone = ModelGone() || !isVisible() || !form_->Visible();
    const auto frame = gone ? std::nullopt : callbacks_.desktop->FrameOf(this);
    const bool givenUp = ++settleTries_ >= kMostTries;
    if (!gone && !frame && !givenUp) return;
    if (frame) {
        wmMargins_ = frame->margins;
        // A window mapped anew has a new frame around it.
        callbacks_.desktop->Watch(this, [this] { ReportGeometry(); });
        const bool placed = isMinimized() || isMaximized() || frame->outer == ModelFrame();
        if (!placed && !givenUp) {
            ApplyGeometry();
            return;
        }
    }
    settleTimer_.stop();
    settling_ = false;
    if (gone) return;
    // Only now does the window manager know the window well enough to keep
    // it above the others.
    if (callbacks_.shown) callbacks_.shown();
    // Where the window manager would not have the window, it stays.
    if (givenUp) ReportGeometry();
}

void FormWindow::ApplyWindowState() {
    if (hosting_ == Hosting::MdiChild || !isVisible()) return;
    switch (form_->WindowState()) {
        case forms::kMinimized:
            if (!isMinimized()) showMinimized();
            break;
        case forms::kMaximized:
            if (!isMaximized()) showMaximized();
            break;
        default:
            if (isMinimized() || isMaximized()) showNormal();
            break;
    }
}

void FormWindow::ApplyControl(const forms::Control& control) {
    auto found = viewOf_.find(&control);
    if (found == viewOf_.end()) return;
    QWidget* widget = found->second->Widget();
    const QRect before = widget ? widget->geometry() : QRect();
    const bool shownBefore = widget && !widget->isHidden();
    found->second->Apply();
    // A control that moved, came or went may cover another, or no longer.
    if (widget && (widget->geometry() != before || widget->isHidden() == shownBefore)) {
        UpdateFocusChain();
    }
    // The sunken frame lies on the form around the control: it moves with it.
    if (found->second->Widget() && found->second->Widget() == surface_->SunkenEdgeChild()) {
        surface_->update();
    }
}

void FormWindow::UpdateFocusChain() {
    const QRect area(QPoint(0, 0), surface_->size());
    // Later controls lie in front of earlier ones.
    for (std::size_t i = 0; i < views_.size(); ++i) {
        QWidget* widget = views_[i]->Widget();
        if (!widget) continue;
        bool covered = !area.intersects(widget->geometry());
        for (std::size_t j = i + 1; j < views_.size() && !covered; ++j) {
            const QWidget* front = views_[j]->Widget();
            covered = front && !front->isHidden() && front->geometry().contains(widget->geometry());
        }
        views_[i]->SetCovered(covered);
    }
}

void FormWindow::ApplyFocus(const forms::Control& control) {
    QWidget* widget = WidgetFor(control);
    if (!widget || widget->window()->focusWidget() == widget) return;
    input_->SetApplyingFocus(true);
    widget->setFocus(Qt::OtherFocusReason);
    input_->SetApplyingFocus(false);
}

void FormWindow::SetTitleActive(bool active) {
    if (titleActive_ == active) return;
    titleActive_ = active;
    if (childFrame_) update(childFrame_->TitleBar(size()));
}

void FormWindow::SetSunkenEdgeAround(const forms::Control& control) {
    surface_->SetSunkenEdgeAround(WidgetFor(control));
}

void FormWindow::Detach() {
    form_ = nullptr;
    settleTimer_.stop();
    settling_ = false;
    if (callbacks_.desktop) callbacks_.desktop->Forget(this);
    showPending_ = false;
    drag_.End();
    input_->Detach();
    menus_.Detach();
    for (auto& view : views_) view->Detach();
}

}  // namespace qtbind
