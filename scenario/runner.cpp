// The runner's start and stop of the program, the reading of the lines and
// the handing of each command to its family.
#include "scenario/runner.h"

#include <algorithm>
#include <istream>
#include <ostream>

namespace scenario {

Runner::Runner(std::ostream& out, std::ostream& err) : out_(out), err_(err) {
    prompts_.SetOtherModal([this](forms::Form& form) { return AnswerAboutBox(form); });
    MakeGuideFolders();
}

Runner::~Runner() = default;

std::unique_ptr<shell::LathmarkApp> Runner::StartApp(forms::Services services,
                                                     forms::ScreenInfo screen) {
    auto app = std::make_unique<shell::LathmarkApp>(services, screen);
    app->Start();
    app->MainLoopPass();
    return app;
}

void Runner::StopApp() {
    app_.reset();
}

shell::LathmarkApp& Runner::App() {
    if (!app_) {
        forms::Services services{&beeper_,      &messages_,    &settings_, &prompts_,
                                 &textMeasure_, &fileDialogs_, &files_,    &colorDialogs_};
        services.printer = &printer_;
        services.help = &help_;
        services.systemInfo = &systemInfo_;
        app_ = StartApp(services, screen_);
        // An accuracy chosen before the start acts on the program as well.
        if (accuracyChosen_) app_->Program().AccuracyDenominator = accuracy_;
    }
    return *app_;
}

int Runner::Run(std::istream& in) {
    // Without a folder of its own the run would touch the user's files.
    if (scratch_.Path().empty()) {
        err_ << "cannot make a scratch folder: " << scratch_.Error() << "\n";
        return 2;
    }
    std::string line;
    int number = 0;
    while (std::getline(in, line)) {
        ++number;
        const auto first = line.find_first_not_of(" \t\r");
        if (first == std::string::npos || line[first] == '#') continue;
        auto words = SplitWords(line);
        if (!words || words->empty() || !Execute(*words)) {
            err_ << "line " << number << ": cannot read: " << line << "\n";
            return 2;
        }
        out_.flush();
    }
    StopApp();
    return 0;
}

bool Runner::Execute(const Words& w) {
    // Line ends written into a text are for raw file content only.
    if (w[0].text != "writebytes" &&
        std::any_of(w.begin(), w.end(), [](const Word& word) { return word.lineEnds; })) {
        return false;
    }
    if (MeasureCommand(w)) return true;
    if (FileCommand(w)) return true;
    if (LookCommand(w)) return true;
    if (HelpPrintCommand(w)) return true;
    if (w[0].text == "setting" && w.size() == 4 && !app_) {
        settings_.Write(w[1].text, w[2].text, w[3].text);
        return true;
    }
    if (w[0].text == "screen" && w.size() == 3) {
        auto width = ParseNumber(w[1].text), height = ParseNumber(w[2].text);
        if (!width || !height) return false;
        screen_.width = *width;
        screen_.height = *height;
        return true;
    }
    if (w[0].text == "restart" && w.size() == 1) {
        if (app_) {
            App().Runtime().Unload(*P().Calculator);
            StopApp();
        }
        App();
        return true;
    }
    if (ProgramCommand(w)) {
        if (app_) {
            GetDriver().Settle();
            if (!app_->Ended()) app_->MainLoopPass();
        }
        AfterProgramCommand();
        return true;
    }
    return Report(w);
}

}  // namespace scenario
