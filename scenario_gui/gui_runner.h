// The scenario tool with the program behind real Qt windows: the same
// commands, acted out as the user's input on the windows, on Qt's offscreen
// platform (with one screen large enough for every window at the scale
// below) unless another one is chosen.
#pragma once

#include <iosfwd>
#include <memory>

#include "qtbind/pixel_scale.h"
#include "scenario/runner.h"
#include "scenario_gui/gui_driver.h"

namespace qtbind {
class QtBinding;
}

namespace scenario {

class GuiRunner : public Runner {
  public:
    // Needs a QApplication.
    GuiRunner(std::ostream& out, std::ostream& err);
    ~GuiRunner() override;

    // The windows are drawn at 2.5 twips to the pixel (576 dots per inch):
    // every place and size that a scenario names, in whole or half tens of
    // twips, is then a whole pixel, and a window moved or dragged there
    // reports exactly that back. At the common 15 twips to the pixel the
    // window system could only report multiples of 15.
    static qtbind::PixelScale Scale();

  protected:
    std::unique_ptr<shell::LathmarkApp> StartApp(forms::Services services,
                                                 forms::ScreenInfo screen) override;
    Driver& GetDriver() override { return driver_; }
    void StopApp() override;

  private:
    GuiDriver driver_;
    std::unique_ptr<qtbind::QtBinding> binding_;
};

// The whole tool with windows: sets the offscreen platform up unless
// QT_QPA_PLATFORM names another, makes the QApplication and runs the
// scenario. Returns the exit status.
int RunWithWindows(int& argc, char** argv, std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace scenario
