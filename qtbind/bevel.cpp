#include "qtbind/bevel.h"

#include <QPainter>

namespace qtbind {

namespace {
const QColor kWhite(255, 255, 255);
const QColor kLight(192, 192, 192);  // the button face, and the light edge
const QColor kShadow(128, 128, 128);
const QColor kDarkShadow(0, 0, 0);
}  // namespace

void DrawBevel(QPainter& painter, const QRect& rect, const QColor& topLeft,
               const QColor& bottomRight, int width) {
    QRect r = rect;
    for (int i = 0; i < width && r.width() > 0 && r.height() > 0; ++i) {
        painter.setPen(topLeft);
        painter.drawLine(r.left(), r.top(), r.right(), r.top());
        painter.drawLine(r.left(), r.top(), r.left(), r.bottom());
        painter.setPen(bottomRight);
        painter.drawLine(r.left(), r.bottom(), r.right(), r.bottom());
        painter.drawLine(r.right(), r.top(), r.right(), r.bottom());
        r.adjust(1, 1, -1, -1);
    }
}

void DrawSunkenEdge(QPainter& painter, const QRect& rect) {
    DrawBevel(painter, rect, kShadow, kWhite);
    DrawBevel(painter, rect.adjusted(1, 1, -1, -1), kDarkShadow, kLight);
}

void DrawRaisedFrame(QPainter& painter, const QRect& rect, int width) {
    painter.fillRect(rect, kLight);
    DrawBevel(painter, rect, kLight, kDarkShadow);
    DrawBevel(painter, rect.adjusted(1, 1, -1, -1), kWhite, kShadow);
    // The inner rim, where the frame meets the window's own area.
    if (width > 2) {
        const QRect inner = rect.adjusted(width - 1, width - 1, 1 - width, 1 - width);
        DrawBevel(painter, inner, kShadow, kWhite);
    }
}

}  // namespace qtbind
