#include "qtbind/screen_info.h"

#include <QScreen>

namespace qtbind {

PixelScale ScaleOf(const QScreen* screen) {
    if (!screen) return PixelScale();
    return PixelScale::FromDpi(screen->logicalDotsPerInchX(), screen->logicalDotsPerInchY());
}

forms::ScreenInfo ScreenInfoOf(const QScreen* screen) {
    forms::ScreenInfo info;
    if (!screen) return info;
    const PixelScale scale = ScaleOf(screen);
    const QRect area = screen->geometry();
    info.twipsPerPixelX = scale.TwipsPerPixelX();
    info.twipsPerPixelY = scale.TwipsPerPixelY();
    info.width = scale.ToTwipsX(area.width());
    info.height = scale.ToTwipsY(area.height());
    return info;
}

}  // namespace qtbind
