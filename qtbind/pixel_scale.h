// Twips to pixels and back for one screen. A twip is 1/1440 inch, so a
// screen of 96 logical dots per inch has 15 twips to the pixel. Pixels are
// Qt's device-independent ones: on a scaled display Qt multiplies them out.
#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace qtbind {

class PixelScale {
  public:
    PixelScale() = default;
    PixelScale(double twipsPerPixelX, double twipsPerPixelY);
    // From the logical resolution of a screen, in dots per inch.
    static PixelScale FromDpi(double dpiX, double dpiY);

    double TwipsPerPixelX() const { return twipsPerPixelX_; }
    double TwipsPerPixelY() const { return twipsPerPixelY_; }

    // Rounded to the nearest pixel, a tie going to the even one.
    int ToPixelsX(double twips) const;
    int ToPixelsY(double twips) const;
    QRect ToPixels(double left, double top, double width, double height) const;
    QSize ToPixels(double width, double height) const;

    double ToTwipsX(int pixels) const { return pixels * twipsPerPixelX_; }
    double ToTwipsY(int pixels) const { return pixels * twipsPerPixelY_; }

  private:
    double twipsPerPixelX_ = 15.0;
    double twipsPerPixelY_ = 15.0;
};

}  // namespace qtbind
