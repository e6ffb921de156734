// Memory cells benchmark (see scripts/bench-memory.sh): the whole program in
// its real windows makes 499 cells with New Memory, then times New Memory
// for the 500th cell and Arrange with 500 cells (once with the cells where
// it put them, once with every cell moved to the corner), each from the
// menu's click until the windows have caught up with the model (the event
// queue is dry).
// It also reports what the cells cost in resident memory, per cell.
//
// Prints one line:
// "<new memory ms> <arrange ms> <arrange scattered ms> <KiB per cell> <cells>".
#include <QApplication>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdio>
#include <string>

#include "bench/process_memory.h"
#include "bench/real_windows.h"
#include "forms/disk_files.h"
#include "forms/headless_services.h"
#include "memory/cells.h"
#include "qtbind/qt_binding.h"
#include "qtbind/qt_file_dialogs.h"
#include "qtbind/qt_modal_host.h"
#include "qtbind/qt_text_measure.h"
#include "qtbind/screen_info.h"
#include "shell/lathmark_app.h"

namespace {

constexpr int kCells = 500;

// A click of a menu entry of the calculator, as the main loop runs it.
double TimedClick(shell::LathmarkApp& app, qtbind::QtBinding& binding, const char* menu) {
    return bench::TimedMs(binding, [&] { app.Program().Calculator->GetMenu(menu).Click(); });
}

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    const qtbind::PixelScale scale = bench::SetUpAsTheCalculator();
    const QScreen* screen = QGuiApplication::primaryScreen();

    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    qtbind::QtModalHost modal;
    qtbind::QtTextMeasure textMeasure(scale);
    qtbind::QtFileDialogs fileDialogs;
    // No memory file is opened here; the program's folder is a throwaway one.
    const QTemporaryDir programFolder;
    forms::DiskFiles files(QFile::encodeName(programFolder.path()).toStdString());
    forms::Services services{&beeper,      &messages,    &settings, &modal,
                             &textMeasure, &fileDialogs, &files};
    shell::LathmarkApp app(services, qtbind::ScreenInfoOf(screen));
    qtbind::QtBinding binding(app, scale);
    app.Start();
    binding.AfterEvent();
    bench::Settle();

    // The first cell brings up the memory window itself; what the cells
    // cost is measured from there on.
    TimedClick(app, binding, "NewMemory");
    const long before = bench::StatusKiB("VmRSS");
    for (int cell = 2; cell < kCells; ++cell) TimedClick(app, binding, "NewMemory");
    const double newMemory = TimedClick(app, binding, "NewMemory");
    const long after = bench::StatusKiB("VmRSS");
    const double arrangeInPlace = TimedClick(app, binding, "mnuArrangeMemory");
    // Every cell dragged to the corner of the memory window: Arrange has
    // all of them to move.
    for (forms::Form* form : app.Program().runtime.OpenForms()) {
        if (memory::IsCell(*form)) form->Move(0, 0, form->Width(), form->Height());
    }
    binding.AfterEvent();
    bench::Settle();
    const double arrangeScattered = TimedClick(app, binding, "mnuArrangeMemory");

    int cells = 0;
    for (forms::Form* form : app.Program().runtime.OpenForms()) {
        if (memory::IsCell(*form)) ++cells;
    }
    std::printf("%.2f %.2f %.2f %.1f %d\n", newMemory, arrangeInPlace, arrangeScattered,
                static_cast<double>(after - before) / (kCells - 1), cells);
    return cells == kCells ? 0 : 1;
}
