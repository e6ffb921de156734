// The long random session: the whole program started headless on the soak
// services, driven by random user actions from a table, with the
// invariants of the program checked after every step. A run is fixed by its
// seed; a failure tells the seed, the step and the last actions.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "scenario/driver.h"
#include "shell/lathmark_app.h"
#include "soak_services.h"

namespace soak {

class Session {
  public:
    explicit Session(std::uint64_t seed);
    ~Session();

    // Runs `steps` steps; returns "" or what went wrong, with the seed, the
    // step and the last actions.
    std::string Run(long steps);

    // Counts, for the report of a run.
    long restarts = 0, cellsMade = 0, drops = 0, converterDrops = 0, fileReads = 0, fileWrites = 0;
    long longestTape = 0;

  private:
    // One entry of the action table: a name, a weight, and what it does. The
    // action writes what it did into `did` (for the failure report) and
    // sets `mayEmpty` when it may reach Cancel or the start of a formula,
    // the only things that empty FirstValue.
    struct Action {
        const char* name;
        int weight;
        std::function<void(Session&)> run;
    };
    static const std::vector<Action>& Actions();

    // soak_session.cpp: the program's runs and the steps.
    void StartProgram();
    void EndProgram();
    void Restart();
    void Step();
    core::Program& P() { return app_->Program(); }
    forms::Runtime& R() { return app_->Runtime(); }
    std::vector<forms::Form*> Cells();

    // soak_invariants.cpp
    std::string CheckInvariants();
    std::string CheckTapeLines(bool wholeGrid);
    std::string CheckSettingsReadBack();

    // soak_actions.cpp: helpers of the actions.
    void Key();
    void ClickKey();
    void LongSum();
    void MenuCommand();
    void PopupMenu();
    void Drag();
    void CellAction();
    void WindowAction();
    void PickPopupEntry();
    forms::Form* RandomCell();

    Random random_;
    std::uint64_t seed_;
    RandomMessageBoxes messages_{random_};
    RandomPrompt prompt_{random_};
    MemoryFiles files_;
    RandomFileDialogs dialogs_{random_};
    RandomColorDialogs colors_{random_};
    SoakSettings settings_;
    forms::CountingBeeper beeper_;
    forms::HalfEmTextMeasure measure_;
    SoakObserver observer_;
    scenario::HeadlessDriver driver_;
    forms::ScreenInfo screen_;
    std::unique_ptr<shell::LathmarkApp> app_;

    long step_ = 0;
    std::string did_;
    bool mayEmpty_ = false;
    // What the last end wrote, to be read back by the next start; empty
    // before the first end.
    std::vector<forms::SettingsStore::Entry> written_;
    std::deque<std::string> recent_;
    std::string settingsFailure_;  // found at the last start
};

}  // namespace soak
