#include "qtbind/drag_pictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <cmath>

namespace qtbind {

namespace {

// The tip of each arrow pointer, in logical pixels.
constexpr QPointF kArrowTip(1.5, 1.5);

// A transparent square of kDragPictureSize logical pixels, and a painter on
// it that works in logical pixels.
QPixmap Canvas(qreal ratio) {
    const int side = static_cast<int>(std::ceil(kDragPictureSize * ratio));
    QPixmap pixmap(side, side);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    return pixmap;
}

void Prepare(QPainter& painter) {
    painter.setRenderHint(QPainter::Antialiasing, true);
}

// A shaded disc with a darker rim: light from the upper left.
void DrawDisc(QPainter& painter, const QColor& light, const QColor& dark, const QColor& rim) {
    const QRectF disc(1.5, 1.5, 29, 29);
    QRadialGradient shade(QPointF(11, 10), 20);
    shade.setColorAt(0.0, light);
    shade.setColorAt(1.0, dark);
    painter.setPen(QPen(rim, 1.0));
    painter.setBrush(shade);
    painter.drawEllipse(disc);
}

// A white bar with a faint shadow below it, for the plus and the minus.
void DrawWhiteBars(QPainter& painter, const QPainterPath& bars) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 70));
    painter.drawPath(bars.translated(0.6, 0.9));
    painter.setBrush(Qt::white);
    painter.drawPath(bars);
}

QPainterPath HorizontalBar() {
    QPainterPath path;
    path.addRoundedRect(QRectF(8, 14, 16, 4), 1.0, 1.0);
    return path;
}

QPainterPath VerticalBar() {
    QPainterPath path;
    path.addRoundedRect(QRectF(14, 8, 4, 16), 1.0, 1.0);
    return path;
}

// A black sign with a thin white rim, so it shows on a dark window as well.
void DrawBlackSign(QPainter& painter, const QPainterPath& sign) {
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(sign);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawPath(sign);
}

// The desktop's arrow pointer: white with a black outline, its tip at
// kArrowTip.
void DrawArrow(QPainter& painter) {
    QPainterPath arrow;
    arrow.moveTo(0, 0);
    arrow.lineTo(0, 17);
    arrow.lineTo(4, 13);
    arrow.lineTo(7, 19.5);
    arrow.lineTo(9.5, 18.5);
    arrow.lineTo(6.5, 12);
    arrow.lineTo(12, 12);
    arrow.closeSubpath();
    painter.setPen(QPen(Qt::black, 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(arrow.translated(kArrowTip));
}

// A sheet of paper with its upper right corner folded down and a few lines
// of writing, below and to the right of the arrow.
void DrawSheet(QPainter& painter) {
    const qreal left = 11.5, top = 10.5, right = 28.5, bottom = 30.5, fold = 5.5;
    QPainterPath sheet;
    sheet.moveTo(left, top);
    sheet.lineTo(right - fold, top);
    sheet.lineTo(right, top + fold);
    sheet.lineTo(right, bottom);
    sheet.lineTo(left, bottom);
    sheet.closeSubpath();
    // A soft shadow to the lower right.
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0, 0, 0, 60));
    painter.drawPath(sheet.translated(1.5, 1.5));
    painter.setPen(QPen(QColor(64, 64, 64), 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::white);
    painter.drawPath(sheet);

    QPainterPath corner;
    corner.moveTo(right - fold, top);
    corner.lineTo(right - fold, top + fold);
    corner.lineTo(right, top + fold);
    painter.setBrush(QColor(210, 210, 210));
    painter.drawPath(corner);

    painter.setPen(QPen(QColor(110, 140, 200), 1.0));
    for (qreal y = top + 9; y < bottom - 2; y += 3) {
        const qreal end = y < top + fold + 2 ? right - fold - 2 : right - 3;
        painter.drawLine(QPointF(left + 3, y), QPointF(end, y));
    }
}

// A dotted outline where the dragged thing would be, for the design icon.
void DrawOutline(QPainter& painter) {
    QPen dotted(Qt::black, 1.0, Qt::DotLine);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::white, 1.0));
    painter.drawRect(QRectF(12.5, 15.5, 16, 12));
    painter.setPen(dotted);
    painter.drawRect(QRectF(12.5, 15.5, 16, 12));
}

void DrawPlus(QPainter& painter) {
    DrawDisc(painter, QColor(110, 160, 255), QColor(0, 50, 190), QColor(0, 30, 120));
    DrawWhiteBars(painter, HorizontalBar().united(VerticalBar()));
}

void DrawMinus(QPainter& painter) {
    DrawDisc(painter, QColor(255, 120, 110), QColor(190, 10, 10), QColor(120, 0, 0));
    DrawWhiteBars(painter, HorizontalBar());
}

void DrawTimes(QPainter& painter) {
    // Two strokes across the middle, as an outline so that the rim can go
    // round both at once.
    QPainterPathStroker stroker;
    stroker.setWidth(4.5);
    stroker.setCapStyle(Qt::FlatCap);
    QPainterPath strokes;
    strokes.moveTo(8, 8);
    strokes.lineTo(24, 24);
    strokes.moveTo(24, 8);
    strokes.lineTo(8, 24);
    DrawBlackSign(painter, stroker.createStroke(strokes).simplified());
}

void DrawDivide(QPainter& painter) {
    QPainterPath sign;
    sign.addRect(QRectF(7, 14, 18, 4));
    sign.addEllipse(QPointF(16, 8), 2.5, 2.5);
    sign.addEllipse(QPointF(16, 24), 2.5, 2.5);
    DrawBlackSign(painter, sign);
}

}  // namespace

QPixmap DragPicture(const std::string& picture, qreal devicePixelRatio) {
    const qreal ratio = devicePixelRatio > 0 ? devicePixelRatio : 1.0;
    QPixmap pixmap = Canvas(ratio);
    QPainter painter(&pixmap);
    Prepare(painter);
    if (picture == "Image1") {
        DrawPlus(painter);
    } else if (picture == "Image2") {
        DrawMinus(painter);
    } else if (picture == "Image3") {
        DrawSheet(painter);
        DrawArrow(painter);
    } else if (picture == "Image4") {
        DrawTimes(painter);
    } else if (picture == "Image5") {
        DrawDivide(painter);
    } else {
        DrawOutline(painter);
        DrawArrow(painter);
    }
    return pixmap;
}

QPoint DragHotSpot(const std::string& picture) {
    const bool sign =
        picture == "Image1" || picture == "Image2" || picture == "Image4" || picture == "Image5";
    if (sign) return QPoint(kDragPictureSize / 2, kDragPictureSize / 2);
    return QPoint(static_cast<int>(kArrowTip.x()), static_cast<int>(kArrowTip.y()));
}

QCursor DragCursor(const std::string& picture) {
    const qreal ratio = qGuiApp ? qGuiApp->devicePixelRatio() : 1.0;
    const QPoint spot = DragHotSpot(picture);
    return QCursor(DragPicture(picture, ratio), spot.x(), spot.y());
}

}  // namespace qtbind
