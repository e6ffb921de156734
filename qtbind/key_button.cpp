#include "qtbind/key_button.h"

#include <QPainter>

#include "qtbind/bevel.h"

namespace qtbind {

namespace {
const QColor kRim(0, 0, 0);
const QColor kHighlight(255, 255, 255);
const QColor kShadow(128, 128, 128);
constexpr int kBevelWidth = 2;
}  // namespace

KeyButton::KeyButton(QWidget* parent) : QAbstractButton(parent) {
    // The keyboard may walk to a key, but a click leaves the focus alone:
    // the keys' own handlers decide where it goes (mostly to Equal), and a
    // key that refuses or stops early keeps it where it was.
    setFocusPolicy(Qt::TabFocus);
}

QSize KeyButton::sizeHint() const {
    return QSize(32, 32);
}

void KeyButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect all = rect();
    if (all.width() < 3 || all.height() < 3) return;

    // The rim leaves its corner pixels out, so the key looks rounded.
    painter.setPen(kRim);
    painter.drawLine(all.left() + 1, all.top(), all.right() - 1, all.top());
    painter.drawLine(all.left() + 1, all.bottom(), all.right() - 1, all.bottom());
    painter.drawLine(all.left(), all.top() + 1, all.left(), all.bottom() - 1);
    painter.drawLine(all.right(), all.top() + 1, all.right(), all.bottom() - 1);

    const QRect face = all.adjusted(1, 1, -1, -1);
    painter.fillRect(face, palette().color(QPalette::Button));
    const bool down = isDown();
    if (down) {
        DrawBevel(painter, face, kShadow, palette().color(QPalette::Button));
    } else {
        DrawBevel(painter, face, kHighlight, kShadow, kBevelWidth);
    }

    QRect textArea = face.adjusted(kBevelWidth, kBevelWidth, -kBevelWidth, -kBevelWidth);
    if (down) textArea.translate(1, 1);
    painter.setFont(font());
    painter.setPen(
        palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText));
    const int flags = Qt::AlignCenter | Qt::TextShowMnemonic;
    painter.drawText(textArea, flags, text());

    if (hasFocus()) {
        QRect bounds = painter.boundingRect(textArea, flags, text().isEmpty() ? " " : text());
        bounds = bounds.adjusted(-2, -1, 1, 0).intersected(textArea.adjusted(1, 1, -1, -1));
        QPen dotted(palette().color(QPalette::ButtonText));
        dotted.setStyle(Qt::DotLine);
        painter.setPen(dotted);
        painter.drawRect(bounds);
    }
}

}  // namespace qtbind
