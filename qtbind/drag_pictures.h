// The pictures that a drag shows as its cursor, drawn for the program: the
// five that Calculator holds (Image1 to Image5) and the design icon of a
// control that has none set. Each is 32 by 32 logical pixels, painted at the
// device pixel ratio asked for, so that it stays sharp on a scaled screen.
//
//   Image1  a white plus on a blue disc (the drop adds)
//   Image2  a white minus on a red disc (the drop subtracts)
//   Image3  a sheet of paper with an arrow pointer (a neutral drag)
//   Image4  a black multiplication cross
//   Image5  a black division sign
//   ""      the design icon: an arrow pointer with the dotted outline of
//           what it carries
#pragma once

#include <QCursor>
#include <QPixmap>
#include <QPoint>
#include <string>

namespace qtbind {

inline constexpr int kDragPictureSize = 32;  // logical pixels a side

// The picture by the name that a control's DragIcon holds; an unknown name
// gets the design icon.
QPixmap DragPicture(const std::string& picture, qreal devicePixelRatio = 1.0);
// The point of the picture, in logical pixels, that sits on the pointer: the
// tip of the arrow for the arrow pictures, the middle for the others.
QPoint DragHotSpot(const std::string& picture);
// The picture as a mouse cursor, at the device pixel ratio of the screens.
QCursor DragCursor(const std::string& picture);

}  // namespace qtbind
