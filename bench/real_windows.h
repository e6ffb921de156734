// The benchmarks that run the program in its real windows: the application
// set up as the calculator sets itself up, and the wait until the windows
// have caught up with the model.
#pragma once

#include <QApplication>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QScreen>
#include <functional>

#include "forms/font.h"
#include "qtbind/font_map.h"
#include "qtbind/pixel_scale.h"
#include "qtbind/qt_binding.h"
#include "qtbind/screen_info.h"

namespace bench {

// The style, the font and the end of the program as the calculator has
// them; the scale of the primary screen.
inline qtbind::PixelScale SetUpAsTheCalculator() {
    QApplication::setStyle(QStringLiteral("Fusion"));
    QApplication::setQuitOnLastWindowClosed(false);
    const qtbind::PixelScale scale = qtbind::ScaleOf(QGuiApplication::primaryScreen());
    QApplication::setFont(qtbind::MapFont(forms::Font{}, scale));
    return scale;
}

// The event queue run dry: what the model changed comes on screen, windows
// on their way out go.
inline void Settle() {
    for (int round = 0; round < 4; ++round) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents(QEventLoop::AllEvents);
    }
}

// The milliseconds of one command as the user meets it: from the command,
// through the main loop's pass, until the windows have caught up.
inline double TimedMs(qtbind::QtBinding& binding, const std::function<void()>& command) {
    QElapsedTimer timer;
    timer.start();
    command();
    binding.AfterEvent();
    Settle();
    return static_cast<double>(timer.nsecsElapsed()) / 1e6;
}

}  // namespace bench
