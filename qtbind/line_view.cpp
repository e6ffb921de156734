#include "qtbind/line_view.h"

#include <QPainter>

namespace qtbind {

LineView::LineView(QWidget* parent) : QWidget(parent), color_(Qt::black) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

void LineView::SetColor(const QColor& color) {
    if (color == color_) return;
    color_ = color;
    update();
}

void LineView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setPen(color_);
    painter.drawLine(0, 0, width() - 1, height() - 1);
}

}  // namespace qtbind
