#include "qtbind/program_picture.h"

#include <QPainter>

namespace qtbind {

QPixmap ProgramPicture(const QSize& size, qreal devicePixelRatio) {
    const int side = std::max(1, std::min(size.width(), size.height()));
    QPixmap pixmap(QSize(side, side) * devicePixelRatio);
    pixmap.setDevicePixelRatio(devicePixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    // Everything below is laid out on a square of 32 units.
    painter.scale(side / 32.0, side / 32.0);
    // The calculator's face.
    painter.setPen(QPen(QColor(64, 64, 64), 1));
    painter.setBrush(QColor(128, 128, 0));
    painter.drawRoundedRect(QRectF(3, 1.5, 26, 21), 2, 2);
    // Its readout, pale yellow as in the program.
    painter.setBrush(QColor(255, 255, 128));
    painter.drawRect(QRectF(6, 4.5, 20, 5));
    // Three rows of keys.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(192, 192, 192));
    for (int row = 0; row < 2; ++row) {
        for (int col = 0; col < 4; ++col)
            painter.drawRect(QRectF(6 + col * 5.2, 12 + row * 4.5, 4, 3.3));
    }
    // The tape measure: a yellow blade with its marks.
    painter.setPen(QPen(QColor(64, 64, 64), 0.8));
    painter.setBrush(QColor(255, 204, 0));
    painter.drawRect(QRectF(1.5, 24, 29, 6));
    for (int mark = 0; mark <= 14; ++mark) {
        const double x = 2.5 + mark * 1.9;
        const double length = mark % 4 == 0 ? 3.5 : (mark % 2 == 0 ? 2.5 : 1.5);
        painter.drawLine(QPointF(x, 24), QPointF(x, 24 + length));
    }
    return pixmap;
}

}  // namespace qtbind
