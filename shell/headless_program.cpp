#include "shell/headless_program.h"

namespace shell {

HeadlessProgram::HeadlessProgram(forms::SettingsStore* settings, forms::FileStore* files) {
    forms::Services services{&beeper, &messages, settings ? settings : &memorySettings};
    services.textMeasure = &measure;
    services.files = files;
    app_ = std::make_unique<LathmarkApp>(services, forms::ScreenInfo{});
    app_->Start();
    app_->MainLoopPass();
}

}  // namespace shell
