#include "qtbind/drag_tracker.h"

#include <QApplication>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

#include "forms/runtime.h"
#include "qtbind/drag_pictures.h"

namespace qtbind {

DragTracker::DragTracker(forms::Runtime& runtime, const PixelScale& scale, Hooks hooks)
    : runtime_(runtime), scale_(scale), hooks_(std::move(hooks)) {
    if (qApp) qApp->installEventFilter(this);
}

DragTracker::~DragTracker() {
    Stop();
}

void DragTracker::Started(forms::Control& source) {
    Stop();
    active_ = true;
    picture_ = source.DragIcon();
    QGuiApplication::setOverrideCursor(CursorFor(picture_));
    // The source keeps the mouse until the button is let go, wherever the
    // pointer goes, even outside the program's windows.
    QWidget* widget = hooks_.widgetFor ? hooks_.widgetFor(source) : nullptr;
    if (widget && widget->isVisible()) {
        grabber_ = widget;
        widget->grabMouse();
    }
}

void DragTracker::IconChanged(const std::string& picture) {
    if (!active_ || picture == picture_) return;
    picture_ = picture;
    QGuiApplication::changeOverrideCursor(CursorFor(picture_));
}

void DragTracker::Ended() {
    Stop();
}

std::optional<std::string> DragTracker::Picture() const {
    if (!active_) return std::nullopt;
    return picture_;
}

const QCursor& DragTracker::CursorFor(const std::string& picture) {
    auto found = cursors_.find(picture);
    if (found == cursors_.end()) found = cursors_.emplace(picture, DragCursor(picture)).first;
    return found->second;
}

void DragTracker::Stop() {
    if (!active_) return;
    active_ = false;
    if (grabber_ && QWidget::mouseGrabber() == grabber_) grabber_->releaseMouse();
    grabber_ = nullptr;
    QGuiApplication::restoreOverrideCursor();
}

bool DragTracker::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseMove:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            // A mouse event comes to the window first and then to the
            // widget that the mouse belongs to; it is taken at the widget.
            if (!active_ || !watched->isWidgetType()) return false;
            return MouseEvent(*event);
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
            return KeyEvent(*event);
        default:
            return false;
    }
}

bool DragTracker::MouseEvent(QEvent& event) {
    auto& mouse = static_cast<QMouseEvent&>(event);
    if (event.type() == QEvent::MouseMove) {
        Move(mouse.globalPosition());
    } else if (event.type() == QEvent::MouseButtonRelease && mouse.button() == Qt::LeftButton) {
        Release(mouse.globalPosition());
    }
    // Other buttons do nothing while the drag lasts. The event goes no
    // further: not to the widget's parents, and not to the widget itself.
    event.accept();
    return true;
}

bool DragTracker::KeyEvent(QEvent& event) {
    auto& key = static_cast<QKeyEvent&>(event);
    if (!active_) {
        if (swallowEscapeRelease_ && event.type() == QEvent::KeyRelease &&
            key.key() == Qt::Key_Escape && !key.isAutoRepeat()) {
            swallowEscapeRelease_ = false;
            return true;
        }
        if (event.type() == QEvent::KeyPress) swallowEscapeRelease_ = false;
        return false;
    }
    if (event.type() == QEvent::KeyPress && key.key() == Qt::Key_Escape) Cancel();
    event.accept();
    return true;
}

forms::Control* DragTracker::TargetAt(const QPointF& global, float& x, float& y) const {
    QPoint local;
    forms::Control* target = hooks_.controlAt ? hooks_.controlAt(global.toPoint(), local) : nullptr;
    x = static_cast<float>(scale_.ToTwipsX(local.x()));
    y = static_cast<float>(scale_.ToTwipsY(local.y()));
    return target;
}

void DragTracker::Move(const QPointF& global) {
    float x = 0;
    float y = 0;
    forms::Control* target = TargetAt(global, x, y);
    QPointF twips;
    forms::Form* form = !target && hooks_.formAt ? hooks_.formAt(global.toPoint(), twips) : nullptr;
    if (form) {
        runtime_.DragMoveOverForm(*form, static_cast<float>(twips.x()),
                                  static_cast<float>(twips.y()));
    } else {
        runtime_.DragMove(target, x, y);
    }
    if (hooks_.afterEvent) hooks_.afterEvent();
}

void DragTracker::Release(const QPointF& global) {
    float x = 0;
    float y = 0;
    forms::Control* target = TargetAt(global, x, y);
    // The drag ends (and Stop runs) before the target's DragDrop.
    runtime_.Drop(target, x, y);
    Stop();
    if (hooks_.afterEvent) hooks_.afterEvent();
}

void DragTracker::Cancel() {
    runtime_.CancelDrag();
    Stop();
    swallowEscapeRelease_ = true;
    if (hooks_.afterEvent) hooks_.afterEvent();
}

}  // namespace qtbind
