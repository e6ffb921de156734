// The scenario tool: reads one command a line, drives the program or the
// measurement routines, and prints what the commands report.
#pragma once

#include <algorithm>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "forms/disk_files.h"
#include "forms/headless_services.h"
#include "scenario/color_dialog_host.h"
#include "scenario/driver.h"
#include "scenario/file_dialog_host.h"
#include "scenario/prompt_host.h"
#include "scenario/scenario_text.h"
#include "scenario/scratch_folder.h"
#include "shell/lathmark_app.h"

namespace scenario {

class Runner {
  public:
    Runner(std::ostream& out, std::ostream& err);
    virtual ~Runner();

    // Runs every line; returns the exit status (0, or 2 on a line that
    // cannot be read).
    int Run(std::istream& in);

  protected:
    // Starts the program on the runner's services; a GUI runner puts real
    // windows behind it.
    virtual std::unique_ptr<shell::LathmarkApp> StartApp(forms::Services services,
                                                         forms::ScreenInfo screen);
    virtual Driver& GetDriver() { return headless_; }
    virtual void StopApp();

    std::unique_ptr<shell::LathmarkApp> app_;

  private:
    using Words = std::vector<Word>;
    bool Execute(const Words& w);
    bool MeasureCommand(const Words& w);
    bool ProgramCommand(const Words& w);
    bool Report(const Words& w);
    shell::LathmarkApp& App();
    core::Program& P() { return App().Program(); }
    void PrintState();
    void PrintTape(const Words& w);
    bool KeyCommand(const Words& w);
    bool WindowCommand(const Words& w);
    bool MouseCommand(const Words& w);
    bool ControlReport(const Words& w);
    // form_commands.cpp and memory_commands.cpp
    bool FormCommand(const Words& w);
    bool MemoryReport(const Words& w);
    forms::Form* FindForm(const std::string& name);
    // "Form.Control" (the form by its name or its caption), or the plain name
    // of a control of Calculator.
    forms::Control* FindControl(const std::string& name);
    // file_commands.cpp
    bool FileCommand(const Words& w);
    // look_commands.cpp
    bool LookCommand(const Words& w);
    // A file name of the scenario: absolute as it is, else in the scratch
    // folder; an empty name stays empty.
    std::string ScratchPath(const std::string& name) const;
    bool WriteScratchFile(const std::string& name, const std::string& content);
    void PrintFile(const std::string& name);
    // help_print_commands.cpp
    bool HelpPrintCommand(const Words& w);
    // The About box shown modally: written down when `about` asked for it,
    // and closed with OK (after System Info for `about sysinfo`). False for
    // any other form.
    bool AnswerAboutBox(forms::Form& about);
    void AfterProgramCommand();
    // The folders where the program looks for its guide, in the scratch
    // folder: a scenario writes a guide there with `writefile`.
    void MakeGuideFolders();
    std::string BandText();

    std::ostream& out_;
    std::ostream& err_;
    HeadlessDriver headless_;
    forms::CountingBeeper beeper_;
    forms::RecordingMessageBoxes messages_;
    forms::MemorySettingsStore settings_;
    forms::HalfEmTextMeasure textMeasure_;
    FileDialogHost fileDialogs_;
    ColorDialogHost colorDialogs_;
    // The program keeps its files in the run's own folder, made before the
    // store that names it.
    ScratchFolder scratch_;
    forms::DiskFiles files_{scratch_.Path()};
    PromptHost prompts_{[this]() -> Driver& { return GetDriver(); },
                        [this] {
                            const auto& band = App().Runtime().TopMostBand();
                            return std::find(band.begin(), band.end(), P().Calculator) !=
                                   band.end();
                        }};
    forms::ScreenInfo screen_;
    forms::RecordingPrinter printer_;
    // The program's executable stands in a folder "bin" of the scratch
    // folder, so that a scenario can put a guide beside it (bin/guide) or
    // where an installation keeps it (share/lathmark/guide).
    forms::RecordingHelpSystem help_{scratch_.Path() + "/bin"};
    forms::ScriptedSystemInfoTool systemInfo_;
    std::size_t printedShown_ = 0, helpShown_ = 0;
    enum class AboutWatch { Off, Ok, SysInfo };
    AboutWatch aboutWatch_ = AboutWatch::Off;
    bool aboutShown_ = false;
    std::size_t messagesShown_ = 0;
    std::int16_t accuracy_ = 16;
    bool accuracyChosen_ = false;
};

}  // namespace scenario
