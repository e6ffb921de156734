// The fonts of the design are those of another desktop. Each is mapped to a
// font that a Debian desktop has, at the same size in points, turned into
// pixels by the screen's twips per pixel so that text keeps its place in the
// controls at any resolution.
#pragma once

#include <QFont>
#include <QString>

#include "forms/control.h"
#include "forms/font.h"
#include "qtbind/pixel_scale.h"

namespace qtbind {

QFont MapFont(const forms::Font& font, const PixelScale& scale);

// The caption as it is to be seen: a symbol font's letters become the
// glyphs that they stand for, and line breaks lose their carriage return.
QString DisplayCaption(const forms::Control& control);

}  // namespace qtbind
