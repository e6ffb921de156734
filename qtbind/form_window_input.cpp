// The user's side of a FormWindow: what the window system reports of the
// window itself (moves, sizes, the close box, its state, its activation),
// and the mouse on a frame that the window draws itself.
#include <QCloseEvent>
#include <QMouseEvent>
#include <QPainter>

#include "forms/runtime.h"
#include "qtbind/bevel.h"
#include "qtbind/form_click.h"
#include "qtbind/form_window.h"
#include "qtbind/x11_desktop.h"

namespace qtbind {

double FormWindow::TwipsX(int pixels, double model) const {
    return pixels == scale_.ToPixelsX(model) ? model : scale_.ToTwipsX(pixels);
}

double FormWindow::TwipsY(int pixels, double model) const {
    return pixels == scale_.ToPixelsY(model) ? model : scale_.ToTwipsY(pixels);
}

void FormWindow::ReportGeometry() {
    if (applying_ > 0 || ModelGone() || drag_.Active() || hosting_ == Hosting::MdiChild) return;
    // Maximised or minimised, the window is where the window system keeps
    // it; the model has its own rectangle for those states. A window still
    // being mapped is where the window manager first puts it, not where the
    // user wants it.
    if (!isVisible() || isMinimized() || isMaximized() || settling_) return;
    if (const auto frame = callbacks_.desktop ? callbacks_.desktop->FrameOf(this) : std::nullopt) {
        wmMargins_ = frame->margins;
        const QRect outer = frame->outer;
        if (applied_.IsEcho(outer.topLeft(), outer.size().shrunkBy(frame->margins))) return;
        if (outer == ModelFrame()) return;
        reporting_ = outer;
        form_->ReportGeometry(TwipsX(outer.x(), form_->Left()), TwipsY(outer.y(), form_->Top()),
                              TwipsX(outer.width(), form_->Width()),
                              TwipsY(outer.height(), form_->Height()));
        reporting_.reset();
        AfterEvent();
        return;
    }
    const QPoint position = pos();
    const QSize client = size();
    if (applied_.IsEcho(position, client)) return;

    const double left = TwipsX(position.x(), form_->Left());
    const double top = TwipsY(position.y(), form_->Top());
    double width = 0;
    double height = 0;
    if (DrawsOwnFrame()) {
        width = TwipsX(client.width(), form_->Width());
        height = TwipsY(client.height(), form_->Height());
    } else {
        const forms::FrameInsets in = form_->Insets();
        width = TwipsX(client.width(), form_->ScaleWidth()) + in.left + in.right;
        height =
            TwipsY(client.height() - menuBarHeight_, form_->ScaleHeight()) + in.top + in.bottom;
    }
    form_->ReportGeometry(left, top, width, height);
    AfterEvent();
}

void FormWindow::ReportDrag(const QRect& outer) {
    if (ModelGone()) return;
    form_->ReportGeometry(TwipsX(outer.x(), form_->Left()), TwipsY(outer.y(), form_->Top()),
                          TwipsX(outer.width(), form_->Width()),
                          TwipsY(outer.height(), form_->Height()));
    AfterEvent();
}

void FormWindow::RequestClose() {
    if (ModelGone()) return;
    // The model decides: its QueryUnload and Unload hide or unload the form,
    // and a form with no close box takes the close as its cancel.
    form_->GetRuntime().CloseByUser(*form_);
    AfterEvent();
}

void FormWindow::ActivateChild() {
    // A press anywhere on a cell makes it the active one and brings it in
    // front of the others, before the press itself is handled.
    raise();
    if (ModelGone()) return;
    ActivateForPress(*form_);
}

void FormWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    ReportGeometry();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ReportGeometry();
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
        if (showActivationComing_) {
            // Not the user's doing: the platform's own, with the show.
            showActivationComing_ = false;
            if (callbacks_.activationRefused) callbacks_.activationRefused();
            return;
        }
        form_->GetRuntime().Activate(*form_);
        AfterEvent();
    }
}

void FormWindow::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    if (childFrame_) {
        childFrame_->Paint(painter, size(), windowTitle(), titleActive_);
    } else if (hosting_ == Hosting::Frameless) {
        DrawRaisedFrame(painter, rect(), scale_.ToPixelsX(form_ ? form_->Insets().left : 60));
    } else {
        painter.fillRect(rect(), palette().color(QPalette::Window));
    }
}

void FormWindow::mousePressEvent(QMouseEvent* event) {
    if (!DrawsOwnFrame()) {
        QWidget::mousePressEvent(event);
        return;
    }
    // Nothing on a frame reaches the window beneath it.
    event->accept();
    if (ModelGone()) return;
    const QPoint at = event->position().toPoint();
    const auto part = childFrame_ ? childFrame_->PartAt(at, size()) : ChildFrame::Part::None;
    // The close box activates its cell when it is let go, through the
    // model's close.
    if (hosting_ == Hosting::MdiChild && part != ChildFrame::Part::CloseBox) ActivateChild();
    if (event->button() == Qt::LeftButton && !ModelGone()) {
        const QPoint global = event->globalPosition().toPoint();
        const QRect geometry(pos(), size());
        if (part == ChildFrame::Part::CloseBox) {
            closePressed_ = true;
        } else if (const Qt::Edges edges = drag_.EdgesAt(at, size())) {
            drag_.Begin(edges, global, geometry);
        } else if (part == ChildFrame::Part::TitleBar) {
            drag_.BeginMove(global, geometry);
        }
    }
    if (hosting_ == Hosting::MdiChild) AfterEvent();
}

void FormWindow::mouseMoveEvent(QMouseEvent* event) {
    if (!DrawsOwnFrame()) {
        QWidget::mouseMoveEvent(event);
        return;
    }
    event->accept();
    if (drag_.Active()) {
        QPoint global = event->globalPosition().toPoint();
        if (drag_.Moving() && parentWidget()) {
            // The title bar stays where the mouse can take hold of it again:
            // the pointer counts only as far as the parent's area reaches.
            const QRect area(parentWidget()->mapToGlobal(QPoint(0, 0)), parentWidget()->size());
            global.setX(std::clamp(global.x(), area.left(), area.right()));
            global.setY(std::clamp(global.y(), area.top(), area.bottom()));
        }
        ReportDrag(drag_.Update(global));
        return;
    }
    if (event->buttons() != Qt::NoButton) return;
    const Qt::CursorShape shape =
        FrameDrag::CursorFor(drag_.EdgesAt(event->position().toPoint(), size()));
    if (cursor().shape() != shape) setCursor(shape);
}

void FormWindow::mouseReleaseEvent(QMouseEvent* event) {
    if (!DrawsOwnFrame()) {
        QWidget::mouseReleaseEvent(event);
        return;
    }
    event->accept();
    if (drag_.Active()) {
        drag_.End();
        return;
    }
    if (closePressed_ && event->button() == Qt::LeftButton) {
        closePressed_ = false;
        // Let go over the box it was pressed on: the box closes the cell.
        if (CloseBox() && CloseBox()->contains(event->position().toPoint())) RequestClose();
    }
}

}  // namespace qtbind
