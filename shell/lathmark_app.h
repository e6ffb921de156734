// The whole program on a forms runtime: makes the forms, hangs the handlers
// on them, starts as Main does and runs the passes of the main loop. The same
// object runs headless in tests and behind the real windows.
#pragma once

#include <memory>

#include "core/program.h"
#include "forms/runtime.h"

namespace shell {

class LathmarkApp {
  public:
    LathmarkApp(forms::Services services, forms::ScreenInfo screen);
    ~LathmarkApp();

    // Main up to its loop: loads Calculator (whose Load does nearly all the
    // work) and shows it.
    void Start();
    // One pass of the main loop: the tape follows the calculator when it
    // has moved.
    void MainLoopPass();

    forms::Runtime& Runtime() { return *runtime_; }
    core::Program& Program() { return *program_; }
    bool Ended() const { return runtime_->Ended(); }

  private:
    std::unique_ptr<forms::Runtime> runtime_;
    std::unique_ptr<core::Program> program_;
};

}  // namespace shell
