// The whole program with no windows, on services that answer at once: no
// beep, no message box, the text measured in half ems, and the settings in
// memory unless a store is given. Started, with one pass of its main loop,
// as the program stands when its first window is up. For the tests,
// benchmarks and fuzz targets that drive the program headless.
#pragma once

#include <memory>

#include "forms/headless_services.h"
#include "shell/lathmark_app.h"

namespace shell {

class HeadlessProgram {
  public:
    explicit HeadlessProgram(forms::SettingsStore* settings = nullptr,
                             forms::FileStore* files = nullptr);
    HeadlessProgram(const HeadlessProgram&) = delete;
    HeadlessProgram& operator=(const HeadlessProgram&) = delete;

    LathmarkApp& App() { return *app_; }
    core::Program& P() { return app_->Program(); }

    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore memorySettings;
    forms::HalfEmTextMeasure measure;

  private:
    std::unique_ptr<LathmarkApp> app_;
};

}  // namespace shell
