#include "scenario_gui/gui_runner.h"

#include <QApplication>
#include <QFile>
#include <QTemporaryFile>

#include "qtbind/font_map.h"
#include "qtbind/qt_binding.h"
#include "shell/lathmark_app.h"

namespace scenario {

namespace {

// The offscreen platform has one screen of 800 by 600 pixels. At 2.5 twips
// to the pixel the program's windows stand far beyond it, where no pointer
// could reach them and no window would be found under one: the screen is
// made large enough to hold every place that a scenario names (40960 twips
// a side).
constexpr const char* kLargeScreen =
    R"({"screens": [{"name": "scenario", "x": 0, "y": 0, "width": 16384, "height": 16384}]})";

// Chooses the offscreen platform, with the large screen, unless another
// platform is named. The file must last until the application is made.
std::unique_ptr<QTemporaryFile> ChooseOffscreenPlatform() {
    const QByteArray named = qgetenv("QT_QPA_PLATFORM");
    if (!named.isEmpty() && named != "offscreen") return nullptr;
    QByteArray platform = "offscreen";
    auto config = std::make_unique<QTemporaryFile>();
    if (config->open() && config->write(kLargeScreen) > 0 && config->flush()) {
        platform += ":configfile=" + QFile::encodeName(config->fileName());
    }
    qputenv("QT_QPA_PLATFORM", platform);
    return config;
}

}  // namespace

GuiRunner::GuiRunner(std::ostream& out, std::ostream& err) : Runner(out, err) {}

GuiRunner::~GuiRunner() {
    // The windows go before the program they show.
    binding_.reset();
    driver_.SetBinding(nullptr);
}

qtbind::PixelScale GuiRunner::Scale() {
    return qtbind::PixelScale(2.5, 2.5);
}

std::unique_ptr<shell::LathmarkApp> GuiRunner::StartApp(forms::Services services,
                                                        forms::ScreenInfo screen) {
    // The scenario's own services stay: its prompt host answers the name
    // prompt as the scenario said, through the driver's real keys, its file
    // dialogs are answered as the scenario said with no window shown, files
    // go to the run's scratch folder, and text is measured as without
    // windows, so that both runs print the same.
    auto app = std::make_unique<shell::LathmarkApp>(services, screen);
    // The binding watches from the start, to see the Load of every form.
    binding_ = std::make_unique<qtbind::QtBinding>(*app, Scale());
    driver_.SetBinding(binding_.get());
    app->Start();
    // The main loop's first pass, before any event.
    binding_->AfterEvent();
    driver_.Settle();
    return app;
}

void GuiRunner::StopApp() {
    driver_.SetBinding(nullptr);
    binding_.reset();
    app_.reset();
    driver_.Settle();
}

int RunWithWindows(int& argc, char** argv, std::istream& in, std::ostream& out, std::ostream& err) {
    const std::unique_ptr<QTemporaryFile> screenConfig = ChooseOffscreenPlatform();
    QApplication application(argc, argv);
    QApplication::setStyle(QStringLiteral("Fusion"));
    // The program ends when its model says so, not when a window closes.
    QApplication::setQuitOnLastWindowClosed(false);
    // Menus speak in the form font of the design.
    QApplication::setFont(qtbind::MapFont(forms::Font{}, GuiRunner::Scale()));
    GuiRunner runner(out, err);
    return runner.Run(in);
}

}  // namespace scenario
