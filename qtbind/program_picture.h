// The program's own picture, for the About box: a calculator's face with its
// readout and a strip of tape measure under it, drawn at any size.
#pragma once

#include <QPixmap>
#include <QSize>

namespace qtbind {

QPixmap ProgramPicture(const QSize& size, qreal devicePixelRatio);

}  // namespace qtbind
