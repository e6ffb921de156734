#include "qtbind/pixel_scale.h"

#include <cmath>

namespace qtbind {

namespace {
constexpr double kTwipsPerInch = 1440.0;

int Round(double v) {
    return static_cast<int>(std::nearbyint(v));
}
}  // namespace

PixelScale::PixelScale(double twipsPerPixelX, double twipsPerPixelY)
    : twipsPerPixelX_(twipsPerPixelX > 0 ? twipsPerPixelX : 15.0),
      twipsPerPixelY_(twipsPerPixelY > 0 ? twipsPerPixelY : 15.0) {}

PixelScale PixelScale::FromDpi(double dpiX, double dpiY) {
    // A screen that reports no resolution is taken as the common 96 dpi.
    const double x = dpiX > 0 ? dpiX : 96.0;
    const double y = dpiY > 0 ? dpiY : 96.0;
    return PixelScale(kTwipsPerInch / x, kTwipsPerInch / y);
}

int PixelScale::ToPixelsX(double twips) const {
    return Round(twips / twipsPerPixelX_);
}

int PixelScale::ToPixelsY(double twips) const {
    return Round(twips / twipsPerPixelY_);
}

QRect PixelScale::ToPixels(double left, double top, double width, double height) const {
    return QRect(ToPixelsX(left), ToPixelsY(top), ToPixelsX(width), ToPixelsY(height));
}

QSize PixelScale::ToPixels(double width, double height) const {
    return QSize(ToPixelsX(width), ToPixelsY(height));
}

}  // namespace qtbind
