// Opening a large memory file (see scripts/bench-memory.sh): File, Open of a
// file of 30,000 cells, from the command until the windows have caught up
// with the model, then of a file of 30,000 cells that promises one more,
// which leaves them stacked at the memory window's corner. With
// `--headless` the program runs without windows, as the scenario tool runs
// it.
//
// Prints one line: "<good file ms> <stacked file ms> <peak resident KiB>".
#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QScreen>
#include <QTemporaryDir>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>

#include "bench/process_memory.h"
#include "bench/real_windows.h"
#include "forms/disk_files.h"
#include "forms/headless_services.h"
#include "memory/cells.h"
#include "qtbind/qt_binding.h"
#include "qtbind/qt_text_measure.h"
#include "qtbind/screen_info.h"
#include "shell/lathmark_app.h"

namespace {

constexpr int kCells = 30000;

std::string WriteFile(const std::string& path, int promised) {
    std::string text =
        " 1635 \r\n 1980 \r\n 3990 \r\n 1040 \r\n " + std::to_string(promised) + "\r\n 1935\r\n";
    for (int n = 1; n <= kCells; ++n) {
        text += "Cell " + std::to_string(n) + "\r\n " + std::to_string(n % 50) + "'- 0\" \r\n";
    }
    std::ofstream(path, std::ios::binary) << text;
    return path;
}

class QueuedFileDialogs : public forms::FileDialogs {
  public:
    std::optional<std::string> Show(const forms::FileDialogRequest&) override { return next; }
    std::string next;
};

}  // namespace

int main(int argc, char** argv) {
    const bool headless = argc > 1 && std::strcmp(argv[1], "--headless") == 0;
    std::unique_ptr<QApplication> application;
    qtbind::PixelScale scale;
    forms::ScreenInfo screenInfo;
    if (!headless) {
        application = std::make_unique<QApplication>(argc, argv);
        scale = bench::SetUpAsTheCalculator();
        screenInfo = qtbind::ScreenInfoOf(QGuiApplication::primaryScreen());
    }

    const QTemporaryDir programFolder;
    const std::string folder = QFile::encodeName(programFolder.path()).toStdString();
    const std::string good = WriteFile(folder + "/good.mem", kCells);
    const std::string stacked = WriteFile(folder + "/stacked.mem", kCells + 1);

    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    forms::HalfEmTextMeasure halfEm;
    std::unique_ptr<qtbind::QtTextMeasure> textMeasure;
    if (!headless) textMeasure = std::make_unique<qtbind::QtTextMeasure>(scale);
    QueuedFileDialogs fileDialogs;
    forms::DiskFiles files(folder);
    forms::Services services;
    services.beeper = &beeper;
    services.messages = &messages;
    services.settings = &settings;
    services.textMeasure = textMeasure ? static_cast<forms::TextMeasure*>(textMeasure.get())
                                       : static_cast<forms::TextMeasure*>(&halfEm);
    services.fileDialogs = &fileDialogs;
    services.files = &files;
    shell::LathmarkApp app(services, screenInfo);
    std::unique_ptr<qtbind::QtBinding> binding;
    if (!headless) binding = std::make_unique<qtbind::QtBinding>(app, scale);
    app.Start();
    if (binding) binding->AfterEvent();
    if (!headless) bench::Settle();

    auto open = [&](const std::string& path) {
        fileDialogs.next = path;
        QElapsedTimer timer;
        timer.start();
        app.Program().Calculator->GetMenu("mnuOpen").Click();
        if (binding) binding->AfterEvent();
        if (!headless) bench::Settle();
        return static_cast<double>(timer.nsecsElapsed()) / 1e6;
    };
    const double goodMs = open(good);
    int cells = 0;
    for (forms::Form* form : app.Program().runtime.OpenForms()) cells += memory::IsCell(*form);
    // The good read closed its file, so the next Open reads; it stops at the
    // file's end, which leaves the file in use and the cells stacked.
    const double stackedMs = open(stacked);
    std::printf("%.1f %.1f %ld\n", goodMs, stackedMs, bench::StatusKiB("VmHWM"));
    return cells == kCells ? 0 : 1;
}
