// What the model learns of the screen: its size in twips and its twips per
// pixel, taken from a real Qt screen.
#pragma once

#include "forms/services.h"
#include "qtbind/pixel_scale.h"

class QScreen;

namespace qtbind {

// The scale of the primary screen, or 15 twips to the pixel without one.
PixelScale ScaleOf(const QScreen* screen);
forms::ScreenInfo ScreenInfoOf(const QScreen* screen);

}  // namespace qtbind
