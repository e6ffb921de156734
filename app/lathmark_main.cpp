// lathmark: the calculator on the desktop. It takes no command line of its
// own; the settings of the last run come from the per-user settings file.
#include <QApplication>
#include <QScreen>
#include <cstdio>
#include <cstdlib>

#include "forms/disk_files.h"
#include "forms/settings_file.h"
#include "qtbind/font_map.h"
#include "qtbind/platform_choice.h"
#include "qtbind/qt_beeper.h"
#include "qtbind/qt_binding.h"
#include "qtbind/qt_color_dialogs.h"
#include "qtbind/qt_file_dialogs.h"
#include "qtbind/qt_help.h"
#include "qtbind/qt_message_boxes.h"
#include "qtbind/qt_modal_host.h"
#include "qtbind/qt_printer.h"
#include "qtbind/qt_system_info.h"
#include "qtbind/qt_text_measure.h"
#include "qtbind/screen_info.h"
#include "shell/lathmark_app.h"

int main(int argc, char** argv) {
    const std::string platform = qtbind::PlatformToChoose(
        std::getenv("QT_QPA_PLATFORM"), std::getenv("DISPLAY"), std::getenv("WAYLAND_DISPLAY"));
    if (!platform.empty()) setenv("QT_QPA_PLATFORM", platform.c_str(), 1);
    QApplication application(argc, argv);
    if (qtbind::IsWaylandPlatform(QGuiApplication::platformName().toStdString())) {
        std::fputs(qtbind::kWaylandWarning, stderr);
    }
    QApplication::setApplicationName(QStringLiteral("Lathmark"));
    // The desktop entry this program is started from, for the desktop to
    // match its windows with the entry (and its icon).
    QGuiApplication::setDesktopFileName(QStringLiteral("io.github.lathmark.Calculator"));
    QApplication::setStyle(QStringLiteral("Fusion"));
    // The program ends when its model says so, not when a window closes.
    QApplication::setQuitOnLastWindowClosed(false);

    const QScreen* screen = QGuiApplication::primaryScreen();
    const qtbind::PixelScale scale = qtbind::ScaleOf(screen);
    // Menus and dialogs speak in the form font of the design.
    QApplication::setFont(qtbind::MapFont(forms::Font{}, scale));

    forms::FileSettingsStore settings(forms::FileSettingsStore::DefaultPath());
    qtbind::QtBeeper beeper;
    qtbind::QtMessageBoxes messages;
    // The binding made below finds the modal host among the services.
    qtbind::QtModalHost modal;
    qtbind::QtTextMeasure textMeasure(scale);
    qtbind::QtFileDialogs fileDialogs;
    qtbind::QtColorDialogs colorDialogs;
    // The memory file goes where the user chooses, on the local disk.
    forms::DiskFiles files;
    qtbind::QtPrinter printer;  // the default printer, as each job finds it
    qtbind::QtHelpSystem help;
    qtbind::QtSystemInfoTool systemInfo;
    forms::Services services;
    services.beeper = &beeper;
    services.messages = &messages;
    services.settings = &settings;
    services.modal = &modal;
    services.textMeasure = &textMeasure;
    services.fileDialogs = &fileDialogs;
    services.files = &files;
    services.colorDialogs = &colorDialogs;
    services.printer = &printer;
    services.help = &help;
    services.systemInfo = &systemInfo;

    shell::LathmarkApp app(services, qtbind::ScreenInfoOf(screen));
    qtbind::QtBinding binding(app, scale);
    app.Start();
    // The main loop's first pass, before any event.
    binding.AfterEvent();

    // The Unload of the calculator writes the settings and has the store
    // save them, all in one new file.
    if (app.Ended()) return 0;
    return QApplication::exec();
}
