// The classic 3-D edges of the desktop the program was drawn on: bands of
// lines lighter on two sides and darker on the other two.
#pragma once

#include <QColor>
#include <QRect>

class QPainter;

namespace qtbind {

// One-pixel lines around the inside of `rect`, `width` deep: the top and
// left in `topLeft`, the bottom and right in `bottomRight`.
void DrawBevel(QPainter& painter, const QRect& rect, const QColor& topLeft,
               const QColor& bottomRight, int width = 1);

// The sunken frame of a well: dark grey over black at the top and left,
// white over light grey at the bottom and right, two pixels deep.
void DrawSunkenEdge(QPainter& painter, const QRect& rect);

// The raised frame of a sizable window: light grey and white outside,
// black and dark grey at the bottom and right, filled out to `width` with
// the button face.
void DrawRaisedFrame(QPainter& painter, const QRect& rect, int width);

}  // namespace qtbind
