// A started program on headless services, for tests that drive handlers
// directly.
#pragma once

#include <gtest/gtest.h>

#include "forms/headless_services.h"
#include "shell/lathmark_app.h"

class StartedApp : public ::testing::Test {
  protected:
    void SetUp() override {
        app = std::make_unique<shell::LathmarkApp>(forms::Services{&beeper, &messages, &settings},
                                                   forms::ScreenInfo{});
        app->Start();
        app->MainLoopPass();
    }
    core::Program& P() { return app->Program(); }
    forms::Form& Tape() { return *P().frmTape; }
    forms::Grid& Grid() { return P().tape->Grid1(); }

    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    std::unique_ptr<shell::LathmarkApp> app;
};
