// The session's runs of the program and its steps.
#include "soak_session.h"

#include <numeric>
#include <sstream>

#include "memory/cells.h"
#include "shell/settings_io.h"

namespace soak {

Session::Session(std::uint64_t seed) : random_(seed), seed_(seed) {
    // A file that is not a memory file, for Open to meet.
    std::string junk;
    for (int i = 0; i < 300; ++i) junk += static_cast<char>(Below(random_, 256));
    files_.files["/soak/junk.mem"] = junk;
    StartProgram();
}

Session::~Session() {
    if (app_) app_->Runtime().SetObserver(nullptr);
}

void Session::StartProgram() {
    forms::Services services{&beeper_,  &messages_, &settings_, &prompt_,
                             &measure_, &dialogs_,  &files_,    &colors_};
    app_ = std::make_unique<shell::LathmarkApp>(services, screen_);
    observer_.grid = &P().tape->Grid1();
    observer_.popup = nullptr;
    R().SetObserver(&observer_);
    app_->Start();
    app_->MainLoopPass();
}

void Session::EndProgram() {
    if (!app_->Ended()) R().Unload(*P().Calculator);
    written_ = settings_.store.Entries();
    R().SetObserver(nullptr);
    app_.reset();
}

void Session::Restart() {
    EndProgram();
    StartProgram();
    settingsFailure_ = CheckSettingsReadBack();
    ++restarts;
    mayEmpty_ = true;
}

std::vector<forms::Form*> Session::Cells() {
    std::vector<forms::Form*> cells;
    for (forms::Form* f : R().OpenForms()) {
        if (memory::IsCell(*f)) cells.push_back(f);
    }
    return cells;
}

void Session::Step() {
    const auto& actions = Actions();
    static const int total = std::accumulate(
        actions.begin(), actions.end(), 0, [](int sum, const Action& a) { return sum + a.weight; });
    int pick = static_cast<int>(Below(random_, static_cast<std::size_t>(total)));
    const Action* action = &actions.front();
    for (const Action& a : actions) {
        if (pick < a.weight) {
            action = &a;
            break;
        }
        pick -= a.weight;
    }
    did_ = action->name;
    mayEmpty_ = false;
    observer_.popup = nullptr;
    action->run(*this);
    if (observer_.popup && !app_->Ended()) PickPopupEntry();
    driver_.Settle();
    if (app_->Ended()) {
        // Exit, or the calculator's close box: the user starts it again.
        Restart();
        did_ += ", started again";
    } else {
        app_->MainLoopPass();
    }
}

std::string Session::Run(long steps) {
    for (step_ = 1; step_ <= steps; ++step_) {
        const bool hadFirstValue = P().state.FirstValue.has_value();
        Step();
        recent_.push_back(std::to_string(step_) + ": " + did_);
        if (recent_.size() > 25) recent_.pop_front();

        std::string failure = CheckInvariants();
        if (failure.empty() && hadFirstValue && !P().state.FirstValue && !mayEmpty_) {
            failure = "FirstValue became empty without Cancel, a formula's start or a start";
        }
        if (!failure.empty()) {
            std::ostringstream report;
            report << "soak failure at step " << step_ << " of seed " << seed_
                   << " (SOAK_SEED=" << seed_ << " reproduces it): " << failure
                   << "\nlast actions:\n";
            for (const auto& line : recent_) report << "  " << line << "\n";
            return report.str();
        }
        for (std::size_t t = 0; t < P().tape->TapeRowCount().size(); ++t) {
            longestTape = std::max<long>(longestTape, P().tape->TapeRowCount()[t]);
        }
    }
    return CheckTapeLines(true);
}

}  // namespace soak
