#include "scenario_gui/gui_runner.h"

#include <QApplication>

#include "qtbind/font_map.h"
#include "qtbind/qt_binding.h"
#include "shell/lathmark_app.h"

namespace scenario {

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
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
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
