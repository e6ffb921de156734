// Commands with 500 memory cells (see scripts/bench-memory.sh): the whole
// program in its real windows makes 500 cells with New Memory, then times
// every command the user has: each entry of the calculator's menus and of
// its popup, keys, drops of the readout and of a cell on a cell, clicks and
// double clicks on a cell, a cell moved and closed, the memory window sized,
// each from the command until the windows have caught up with the model
// (the event queue is dry). The dialogs answer at once, as a user who knows
// what to answer, so that what is timed is the program's own work; the
// printer and the help are recorded, not real. Erase All, Open and Exit-free
// commands that take the cells away come last, Open reading the 500 cells
// back.
//
// Prints one line a command, "<name> <ms>".
#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdio>
#include <functional>
#include <string>
#include <vector>

#include "bench/real_windows.h"
#include "forms/disk_files.h"
#include "forms/headless_services.h"
#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/qt_binding.h"
#include "qtbind/qt_text_measure.h"
#include "qtbind/screen_info.h"
#include "shell/lathmark_app.h"

namespace {

constexpr int kCells = 500;

// The user at a modal form (the name prompt, the About box): its default
// button, at once.
class DefaultButtonHost : public forms::ModalHost {
  public:
    void RunModal(forms::Form& form) override {
        for (const auto& control : form.Controls()) {
            if (control->IsDefault() && control->Click) {
                control->Click();
                return;
            }
        }
        form.Hide();
    }
};

class AnsweringFileDialogs : public forms::FileDialogs {
  public:
    explicit AnsweringFileDialogs(std::string path) : path_(std::move(path)) {}
    std::optional<std::string> Show(const forms::FileDialogRequest&) override { return path_; }

  private:
    std::string path_;
};

class AnsweringColorDialogs : public forms::ColorDialogs {
  public:
    std::optional<std::uint32_t> Show(std::uint32_t) override { return 0x80ff80u; }
};

class Bench {
  public:
    Bench(shell::LathmarkApp& app, qtbind::QtBinding& binding) : app_(app), binding_(binding) {}

    void Time(const std::string& name, const std::function<void()>& command) {
        std::printf("%s %.3f\n", name.c_str(), bench::TimedMs(binding_, command));
    }

    core::Program& P() { return app_.Program(); }
    std::vector<forms::Form*> Cells() {
        std::vector<forms::Form*> cells;
        for (forms::Form* form : P().runtime.OpenForms()) {
            if (memory::IsCell(*form)) cells.push_back(form);
        }
        return cells;
    }
    // Every entry under `item` that does something, in menu order.
    void Entries(forms::MenuItem& item, std::vector<forms::MenuItem*>& out) {
        if (item.Click && !item.IsSeparator()) out.push_back(&item);
        for (const auto& child : item.Items()) Entries(*child, out);
    }
    void DropOn(forms::Control& source, forms::Control& target, float x) {
        forms::Runtime& runtime = P().runtime;
        if (!runtime.BeginDrag(source)) return;
        runtime.DragMove(&target, x, 100);
        runtime.Drop(&target, x, 100);
    }

  private:
    shell::LathmarkApp& app_;
    qtbind::QtBinding& binding_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const qtbind::PixelScale scale = bench::SetUpAsTheCalculator();
    const QScreen* screen = QGuiApplication::primaryScreen();

    const QTemporaryDir programFolder;
    const std::string folder = QFile::encodeName(programFolder.path()).toStdString();
    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    DefaultButtonHost modal;
    qtbind::QtTextMeasure textMeasure(scale);
    AnsweringFileDialogs fileDialogs(folder + "/cells.mem");
    AnsweringColorDialogs colorDialogs;
    forms::DiskFiles files(folder);
    forms::RecordingPrinter printer;
    forms::RecordingHelpSystem help;
    forms::ScriptedSystemInfoTool systemInfo;
    forms::Services services{&beeper, &messages,     &settings, &modal, &textMeasure, &fileDialogs,
                             &files,  &colorDialogs, &printer,  &help,  &systemInfo};
    shell::LathmarkApp app(services, qtbind::ScreenInfoOf(screen));
    qtbind::QtBinding binding(app, scale);
    app.Start();
    binding.AfterEvent();
    bench::Settle();

    Bench bench(app, binding);
    core::Program& p = bench.P();
    for (int cell = 1; cell < kCells; ++cell) {
        p.Calculator->GetMenu("NewMemory").Click();
        binding.AfterEvent();
        bench::Settle();
    }
    bench.Time("NewMemory (the 500th cell)", [&] { p.Calculator->GetMenu("NewMemory").Click(); });

    // Keys and drops.
    forms::Control& readout = *p.Calculator->Find("Readout");
    bench.Time("key 7", [&] { p.Calculator->Find("Number", 7)->Click(); });
    bench.Time("key Equal", [&] { p.Calculator->Find("Equal")->Click(); });
    std::vector<forms::Form*> cells = bench.Cells();
    forms::Control& first = memory::ValueLabel(*cells.front());
    forms::Control& last = memory::ValueLabel(*cells.back());
    bench.Time("readout dropped on a cell, right half",
               [&] { bench.DropOn(readout, last, static_cast<float>(last.Width() * 3 / 4)); });
    bench.Time("cell dropped on a cell, left half",
               [&] { bench.DropOn(last, first, static_cast<float>(first.Width() / 2 - 30)); });
    bench.Time("cell dropped on the readout",
               [&] { bench.DropOn(first, readout, static_cast<float>(readout.Left() + 2000)); });
    bench.Time("click on a cell", [&] { cells.back()->Click(); });
    bench.Time("double click on a cell", [&] { cells.back()->DblClick(); });
    bench.Time("double click on a cell's value", [&] { last.DblClick(); });
    bench.Time("a cell moved by its frame", [&] {
        forms::Form& cell = *cells[cells.size() / 2];
        cell.ReportGeometry(cell.Left() + 300, cell.Top() + 300, cell.Width(), cell.Height());
    });
    bench.Time("the memory window sized", [&] {
        forms::Form& parent = *p.MDIForm1;
        parent.ReportGeometry(parent.Left(), parent.Top(), parent.Width() + 2000, parent.Height());
    });
    bench.Time("a cell closed by its close box",
               [&] { p.runtime.CloseByUser(*bench.Cells()[kCells / 3]); });

    // Every menu command that keeps the cells, then those that take them.
    std::vector<forms::MenuItem*> entries;
    for (const auto& top : p.Calculator->Menus()) bench.Entries(*top, entries);
    const std::vector<std::string> last_ = {"ClearMemory", "mnuSaveAs", "mnuSave", "EraseMemory",
                                            "mnuOpen"};
    for (forms::MenuItem* entry : entries) {
        const std::string& name = entry->Name();
        if (name == "Exit" || std::find(last_.begin(), last_.end(), name) != last_.end()) continue;
        bench.Time(entry->FullName(), [entry] { entry->Click(); });
    }
    for (const std::string& name : last_) {
        forms::MenuItem& entry = p.Calculator->GetMenu(name);
        bench.Time(entry.FullName(), [&entry] { entry.Click(); });
    }
    return bench.Cells().size() >= kCells - 1 ? 0 : 1;
}
