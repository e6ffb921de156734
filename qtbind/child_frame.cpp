#include "qtbind/child_frame.h"

#include <QFontMetrics>
#include <QLinearGradient>
#include <QPainter>
#include <algorithm>

#include "qtbind/bevel.h"
#include "qtbind/font_map.h"

namespace qtbind {

namespace {

const QColor kFace(192, 192, 192);
const QColor kWhite(255, 255, 255);
const QColor kShadow(128, 128, 128);
const QColor kDark(0, 0, 0);
// The caption colours of the desktop the program was drawn on: navy running
// to light blue when active, two greys when not.
const QColor kActiveLeft(0, 0, 128);
const QColor kActiveRight(16, 132, 208);
const QColor kInactiveLeft(128, 128, 128);
const QColor kInactiveRight(192, 192, 192);
const QColor kInactiveText(212, 208, 200);

void DrawCloseBox(QPainter& painter, const QRect& box) {
    painter.fillRect(box, kFace);
    DrawBevel(painter, box, kWhite, kDark);
    DrawBevel(painter, box.adjusted(1, 1, -1, -1), kFace, kShadow);
    // The cross, two pixels thick at any scale but the smallest.
    const int inset = std::max(3, box.width() / 4);
    const QRect cross = box.adjusted(inset, inset, -inset - 1, -inset - 1);
    QPen pen(kDark, std::max(1.0, box.width() / 7.0));
    pen.setCapStyle(Qt::FlatCap);
    painter.setPen(pen);
    painter.drawLine(cross.topLeft(), cross.bottomRight() + QPoint(1, 1));
    painter.drawLine(cross.topRight() + QPoint(1, 0), cross.bottomLeft() + QPoint(0, 1));
}

}  // namespace

ChildFrame::ChildFrame(const PixelScale& scale, const forms::FrameInsets& insets)
    : border_(scale.ToPixelsX(insets.left)),
      top_(scale.ToPixelsY(insets.bottom)),
      inner_(scale.ToPixelsY(insets.top)),
      // The caption is written in the small bold face of the design's forms.
      font_(MapFont(forms::Font{"MS Sans Serif", 8.25, true}, scale)) {}

QRect ChildFrame::TitleBar(const QSize& size) const {
    return QRect(border_, top_, std::max(0, size.width() - 2 * border_),
                 std::max(0, inner_ - top_));
}

QRect ChildFrame::CloseBox(const QSize& size) const {
    const QRect bar = TitleBar(size);
    const int margin = std::max(1, bar.height() / 8);
    const int side = std::max(1, bar.height() - 2 * margin);
    return QRect(bar.right() + 1 - margin - side - 1, bar.top() + margin, side + 1, side);
}

ChildFrame::Part ChildFrame::PartAt(const QPoint& local, const QSize& size) const {
    if (CloseBox(size).contains(local)) return Part::CloseBox;
    if (TitleBar(size).contains(local)) return Part::TitleBar;
    return Part::None;
}

void ChildFrame::Paint(QPainter& painter, const QSize& size, const QString& caption,
                       bool active) const {
    const QRect all(QPoint(0, 0), size);
    painter.fillRect(all, kFace);
    DrawBevel(painter, all, kFace, kDark);
    DrawBevel(painter, all.adjusted(1, 1, -1, -1), kWhite, kShadow);

    const QRect bar = TitleBar(size);
    if (bar.isEmpty()) return;
    QLinearGradient shade(bar.topLeft(), bar.topRight());
    shade.setColorAt(0, active ? kActiveLeft : kInactiveLeft);
    shade.setColorAt(1, active ? kActiveRight : kInactiveRight);
    painter.fillRect(bar, shade);

    const QRect box = CloseBox(size);
    const int pad = std::max(2, border_ / 2);
    const QRect text(bar.left() + pad, bar.top(), box.left() - bar.left() - 2 * pad, bar.height());
    painter.setFont(font_);
    painter.setPen(active ? kWhite : kInactiveText);
    const QString shown = QFontMetrics(font_).elidedText(caption, Qt::ElideRight, text.width());
    painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, shown);
    DrawCloseBox(painter, box);
}

}  // namespace qtbind
