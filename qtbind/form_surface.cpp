#include "qtbind/form_surface.h"

#include <QPainter>

#include "qtbind/bevel.h"

namespace qtbind {

namespace {
constexpr int kEdgeGap = 2;  // the frame lies this many pixels outside its child
}

FormSurface::FormSurface(QWidget* parent) : QWidget(parent), back_(Qt::lightGray) {
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void FormSurface::SetBackColor(const QColor& color) {
    if (color == back_) return;
    back_ = color;
    update();
}

void FormSurface::SetSunkenEdgeAround(QWidget* child) {
    edgeChild_ = child;
    update();
}

void FormSurface::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), back_);
    if (edgeChild_ && edgeChild_->isVisibleTo(this)) {
        const QRect around =
            edgeChild_->geometry().adjusted(-kEdgeGap, -kEdgeGap, kEdgeGap, kEdgeGap);
        DrawSunkenEdge(painter, around);
    }
}

}  // namespace qtbind
