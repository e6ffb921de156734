#include "qtbind/form_window.h"

#include <QCloseEvent>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionTitleBar>
#include <algorithm>

#include "forms/runtime.h"
#include "qtbind/bevel.h"
#include "qtbind/control_view.h"
#include "qtbind/form_input.h"
#include "qtbind/form_surface.h"
#include "qtbind/model_color.h"

namespace qtbind {

namespace {

Qt::WindowFlags OwnFlags(const forms::Form& form) {
    // A memory cell's widget sits inside the frame that its parent's area
    // makes for it.
    return HostingOf(form) == Hosting::MdiChild ? Qt::Widget : FlagsFor(form);
}

bool HasVisibleMenu(const forms::Form& form) {
    return std::any_of(form.Menus().begin(), form.Menus().end(),
                       [](const auto& item) { return item->Visible(); });
}

QMargins SubWindowMargins(QMdiSubWindow* sub) {
    QStyleOptionTitleBar option;
    option.initFrom(sub);
    const int title = sub->style()->pixelMetric(QStyle::PM_TitleBarHeight, &option, sub);
    const int frame = sub->style()->pixelMetric(QStyle::PM_MdiSubWindowFrameWidth, nullptr, sub);
    return QMargins(frame, title, frame, frame);
}

}  // namespace

FormWindow::FormWindow(forms::Form& form, const PixelScale& scale, WindowCallbacks callbacks,
                       QMdiArea* parentArea)
    : QWidget(nullptr, OwnFlags(form)),
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
    const QString name = QString::fromStdString(form.Name());
    setObjectName(name);
    setAccessibleName(name);
    // The program ends when the model says so, never because a window shut.
    setAttribute(Qt::WA_QuitOnClose, false);
    if (ShowsWithoutActivating(form)) setAttribute(Qt::WA_ShowWithoutActivating);

    input_ = new FormInput(form, scale, [this] { AfterEvent(); });
    input_->setParent(this);
    if (hosting_ != Hosting::MdiChild && HasVisibleMenu(form)) {
        menuBar_ = new QMenuBar(this);
        menuBar_->setNativeMenuBar(false);
    }
    menus_.Build(form, menuBar_, this);
    if (menuBar_) menuBarHeight_ = menuBar_->sizeHint().height();

    if (hosting_ == Hosting::MdiParent) {
        mdiArea_ = new QMdiArea(this);
    } else {
        surface_ = new FormSurface(this);
        input_->Watch(surface_, nullptr);
        BuildControls();
    }
    input_->Watch(this, nullptr, /*keysOnly=*/true);
    if (hosting_ == Hosting::Frameless) setMouseTracking(true);
    if (hosting_ == Hosting::MdiChild && parentArea) {
        subWindow_ = parentArea->addSubWindow(this, FlagsFor(form));
        subWindow_->setAttribute(Qt::WA_DeleteOnClose, false);
        subWindow_->installEventFilter(this);
        subWindow_->hide();
    }
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

QWidget* FormWindow::Frame() {
    if (subWindow_) return subWindow_;
    return this;
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

bool FormWindow::ModelGone() const {
    return !form_ || form_->GetRuntime().Ended();
}

void FormWindow::AfterEvent() {
    if (callbacks_.afterEvent) callbacks_.afterEvent();
}

void FormWindow::ApplyForm() {
    if (ModelGone()) return;
    ++applying_;
    QWidget* frame = Frame();
    const QString title = QString::fromStdString(form_->Caption());
    if (frame->windowTitle() != title) frame->setWindowTitle(title);
    const QColor back = ModelColor(form_->BackColor());
    if (surface_) surface_->SetBackColor(back);
    if (mdiArea_ && mdiArea_->background().color() != back) mdiArea_->setBackground(back);
    ApplyGeometry();
    ApplyVisible();
    ApplyWindowState();
    --applying_;
}

FormWindow::Placement FormWindow::PlacementFor(double left, double top, double width,
                                               double height) const {
    Placement placement{QPoint(scale_.ToPixelsX(left), scale_.ToPixelsY(top)), QSize()};
    if (hosting_ == Hosting::Frameless) {
        placement.size = scale_.ToPixels(width, height);
    } else {
        const forms::FrameInsets in = form_->Insets();
        const QSize inner =
            scale_.ToPixels(width - in.left - in.right, height - in.top - in.bottom);
        placement.size = QSize(inner.width(), inner.height() + menuBarHeight_);
    }
    if (hosting_ == Hosting::MdiChild && subWindow_) {
        placement.size = placement.size.grownBy(SubWindowMargins(subWindow_));
    }
    return placement;
}

void FormWindow::ApplyGeometry() {
    const Placement placement =
        PlacementFor(form_->Left(), form_->Top(), form_->Width(), form_->Height());
    const QPoint position = placement.position;
    ++applying_;
    if (hosting_ == Hosting::MdiChild) {
        // The window system reports a cell's inner size; its frame is larger.
        const QMargins margins = subWindow_ ? SubWindowMargins(subWindow_) : QMargins();
        applied_.Remember(position, placement.size.shrunkBy(margins));
        if (subWindow_) {
            const QRect outer(position, placement.size);
            if (subWindow_->geometry() != outer) subWindow_->setGeometry(outer);
        }
    } else {
        const QSize size = placement.size;
        applied_.Remember(position, size);
        if (HasFixedSize(*form_)) {
            if (minimumSize() != size || maximumSize() != size) setFixedSize(size);
        } else if (this->size() != size) {
            resize(size);
        }
        if (pos() != position) move(position);
    }
    LayoutChildren();
    --applying_;
}

void FormWindow::LayoutChildren() {
    if (menuBar_) {
        const QRect bar(0, 0, width(), menuBarHeight_);
        if (menuBar_->geometry() != bar) menuBar_->setGeometry(bar);
    }
    if (mdiArea_) {
        const QRect area(0, menuBarHeight_, width(), std::max(0, height() - menuBarHeight_));
        if (mdiArea_->geometry() != area) mdiArea_->setGeometry(area);
    }
    if (surface_ && form_) {
        QRect inner(QPoint(0, menuBarHeight_),
                    scale_.ToPixels(form_->ScaleWidth(), form_->ScaleHeight()));
        if (hosting_ == Hosting::Frameless) {
            const forms::FrameInsets in = form_->Insets();
            inner.moveTopLeft(QPoint(scale_.ToPixelsX(in.left), scale_.ToPixelsY(in.top)));
        }
        if (surface_->geometry() != inner) surface_->setGeometry(inner);
    }
}

void FormWindow::ApplyVisible() {
    QWidget* frame = Frame();
    if (form_->Visible()) {
        // Shown is what the program asked for; a cell inside a hidden parent
        // stays shown and appears with its parent.
        if (!frame->isHidden() || showPending_) return;
        // The window comes on screen once the model's statement is done, at
        // the place where that statement left it, rather than at a place it
        // held only for a moment.
        showPending_ = true;
        QMetaObject::invokeMethod(
            this, [this] { ShowNow(); }, Qt::QueuedConnection);
    } else {
        showPending_ = false;
        if (!frame->isHidden()) frame->hide();
    }
}

void FormWindow::ShowNow() {
    if (!showPending_) return;
    showPending_ = false;
    if (ModelGone() || !form_->Visible()) return;
    ++applying_;
    ApplyGeometry();
    QWidget* frame = Frame();
    frame->show();
    if (hosting_ == Hosting::MdiChild) show();
    if (!testAttribute(Qt::WA_ShowWithoutActivating) && hosting_ != Hosting::MdiChild) {
        activateWindow();
    }
    ApplyWindowState();
    --applying_;
    if (callbacks_.shown) callbacks_.shown();
}

void FormWindow::ApplyWindowState() {
    QWidget* frame = Frame();
    if (!frame->isVisible()) return;
    const bool minimized = form_->WindowState() == forms::kMinimized;
    if (minimized && !frame->isMinimized()) {
        frame->showMinimized();
    } else if (!minimized && frame->isMinimized()) {
        frame->showNormal();
    }
}

void FormWindow::ApplyControl(const forms::Control& control) {
    auto found = viewOf_.find(&control);
    if (found == viewOf_.end()) return;
    found->second->Apply();
    // The sunken frame lies on the form around the control: it moves with it.
    if (surface_ && found->second->Widget() &&
        found->second->Widget() == surface_->SunkenEdgeChild()) {
        surface_->update();
    }
}

void FormWindow::ApplyFocus(const forms::Control& control) {
    QWidget* widget = WidgetFor(control);
    if (!widget || widget->window()->focusWidget() == widget) return;
    input_->SetApplyingFocus(true);
    widget->setFocus(Qt::OtherFocusReason);
    input_->SetApplyingFocus(false);
}

void FormWindow::SetSunkenEdgeAround(const forms::Control& control) {
    if (surface_) surface_->SetSunkenEdgeAround(WidgetFor(control));
}

void FormWindow::Detach() {
    form_ = nullptr;
    showPending_ = false;
    drag_.End();
    input_->Detach();
    menus_.Detach();
    for (auto& view : views_) view->Detach();
}

QPoint FormWindow::FramePosition() {
    // For a window Qt's position is that of its frame, as the model's is.
    return Frame()->pos();
}

QSize FormWindow::ClientSize() const {
    return size();
}

void FormWindow::ReportGeometry() {
    if (applying_ > 0 || ModelGone() || drag_.Active()) return;
    QWidget* frame = Frame();
    if (!frame->isVisible() || frame->isMinimized()) return;
    const QPoint position = FramePosition();
    const QSize size = ClientSize();
    if (applied_.IsEcho(position, size)) return;

    // Pixels that still say what the model has keep the model's own twips,
    // so that rounding never reads as a move.
    auto twipsX = [this](int pixels, double model) {
        return pixels == scale_.ToPixelsX(model) ? model : scale_.ToTwipsX(pixels);
    };
    auto twipsY = [this](int pixels, double model) {
        return pixels == scale_.ToPixelsY(model) ? model : scale_.ToTwipsY(pixels);
    };
    const double left = twipsX(position.x(), form_->Left());
    const double top = twipsY(position.y(), form_->Top());
    double width = 0;
    double height = 0;
    if (hosting_ == Hosting::Frameless) {
        width = twipsX(size.width(), form_->Width());
        height = twipsY(size.height(), form_->Height());
    } else {
        const forms::FrameInsets in = form_->Insets();
        const int innerHeight = size.height() - menuBarHeight_;
        width = twipsX(size.width(), form_->ScaleWidth()) + in.left + in.right;
        height = twipsY(innerHeight, form_->ScaleHeight()) + in.top + in.bottom;
    }
    form_->ReportGeometry(left, top, width, height);
    AfterEvent();
}

void FormWindow::ReportDrag(const QRect& outer) {
    if (ModelGone()) return;
    form_->ReportGeometry(scale_.ToTwipsX(outer.x()), scale_.ToTwipsY(outer.y()),
                          scale_.ToTwipsX(outer.width()), scale_.ToTwipsY(outer.height()));
    AfterEvent();
}

void FormWindow::RequestClose() {
    if (ModelGone()) return;
    // The model decides: its QueryUnload and Unload hide or unload the form.
    form_->GetRuntime().Unload(*form_);
    AfterEvent();
}

void FormWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (hosting_ != Hosting::MdiChild) ReportGeometry();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (hosting_ != Hosting::MdiChild) ReportGeometry();
    if (!ModelGone()) LayoutChildren();
}

void FormWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
    RequestClose();
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (ModelGone() || hosting_ == Hosting::MdiChild) return;
    if (event->type() == QEvent::WindowStateChange && applying_ == 0) {
        std::int16_t state = forms::kNormal;
        if (isMinimized()) {
            state = forms::kMinimized;
        } else if (isMaximized()) {
            state = forms::kMaximized;
        }
        if (state != form_->WindowState()) {
            form_->SetWindowState(state);
            AfterEvent();
        }
    } else if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        form_->GetRuntime().Activate(*form_);
        AfterEvent();
    }
}

void FormWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (hosting_ == Hosting::Frameless) {
        DrawRaisedFrame(painter, rect(), scale_.ToPixelsX(form_ ? form_->Insets().left : 60));
    } else {
        painter.fillRect(rect(), palette().color(QPalette::Window));
    }
}

void FormWindow::mousePressEvent(QMouseEvent* event) {
    if (hosting_ == Hosting::Frameless && event->button() == Qt::LeftButton && !ModelGone()) {
        const Qt::Edges edges = drag_.EdgesAt(event->position().toPoint(), size());
        if (edges) {
            drag_.Begin(edges, event->globalPosition().toPoint(), QRect(pos(), size()));
            event->accept();
            return;
        }
    }
    QWidget::mousePressEvent(event);
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
    if (hosting_ == Hosting::Frameless) {
        if (drag_.Active()) {
            ReportDrag(drag_.Update(event->globalPosition().toPoint()));
            event->accept();
            return;
        }
        setCursor(FrameDrag::CursorFor(drag_.EdgesAt(event->position().toPoint(), size())));
    }
    QWidget::mouseMoveEvent(event);
}

void FormWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (drag_.Active()) {
        drag_.End();
        event->accept();
        return;
    }
    QWidget::mouseReleaseEvent(event);
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == subWindow_) {
        switch (event->type()) {
            case QEvent::Move:
            case QEvent::Resize:
                ReportGeometry();
                break;
            case QEvent::Close:
                event->ignore();
                RequestClose();
                return true;
            default:
                break;
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace qtbind
