// Prints a tape through the program's own printing: the calculator runs
// without windows, a calculation, a clear and another entry go on its tape,
// and File, Print Current Tape sends it to the Qt printer, to the default
// print queue (--queue) or into a PDF file (--pdf FILE).
//
// Writes to standard output the font family that the printer's "Courier"
// became, then the printed lines as the program handed them over, for the
// test that reads the printout back.
#include <QFont>
#include <QFontInfo>
#include <QGuiApplication>
#include <cstdio>
#include <cstring>
#include <string>

#include "forms/headless_services.h"
#include "qtbind/qt_printer.h"
#include "shell/lathmark_app.h"
#include "tape/tape_printing.h"

namespace {

// Hands each line to both printers: the real one, and a record of what went.
class TeePrinter : public forms::Printer {
  public:
    explicit TeePrinter(forms::Printer& real) : real_(real) {}
    void SetFontName(const std::string& name) override {
        real_.SetFontName(name);
        record.SetFontName(name);
    }
    void PrintLine(const std::string& line) override {
        real_.PrintLine(line);
        record.PrintLine(line);
    }
    void EndDoc() override {
        real_.EndDoc();
        record.EndDoc();
    }
    forms::RecordingPrinter record;

  private:
    forms::Printer& real_;
};

void Type(core::Program& p, const char* keys) {
    for (const char* k = keys; *k; ++k) {
        std::int16_t ascii = static_cast<unsigned char>(*k);
        if (p.Calculator->KeyPress) p.Calculator->KeyPress(ascii);
    }
}

}  // namespace

int main(int argc, char** argv) {
    const bool queue = argc == 2 && std::strcmp(argv[1], "--queue") == 0;
    const bool pdf = argc == 3 && std::strcmp(argv[1], "--pdf") == 0;
    if (!queue && !pdf) {
        std::fprintf(stderr, "usage: %s --queue | --pdf FILE\n", argv[0]);
        return 2;
    }
    QGuiApplication application(argc, argv);
    qtbind::QtPrinter real =
        pdf ? qtbind::QtPrinter(QString::fromLocal8Bit(argv[2])) : qtbind::QtPrinter();
    TeePrinter printer(real);
    forms::CountingBeeper beeper;
    forms::RecordingMessageBoxes messages;
    forms::MemorySettingsStore settings;
    forms::Services services{&beeper, &messages, &settings};
    services.printer = &printer;
    shell::LathmarkApp app(services, forms::ScreenInfo{});
    app.Start();
    app.MainLoopPass();
    core::Program& p = app.Program();

    // 12'- 3 1/2" plus 7'- 9", then a clear, then 2'.
    Type(p, "12'3 1/2\r+7'9\r");
    p.calc->Cancel.Click();
    Type(p, "2'\r");
    p.Calculator->GetMenu("mnuPrint").Click();

    QFont font(QStringLiteral("Courier"));
    font.setStyleHint(QFont::TypeWriter);
    font.setFixedPitch(true);
    const QFontInfo info(font);
    std::printf("font %s%s\n", info.family().toUtf8().constData(),
                info.fixedPitch() ? "" : " (not fixed pitch)");
    if (printer.record.printed.size() != 1) {
        std::fprintf(stderr, "%zu documents printed, not one\n", printer.record.printed.size());
        return 1;
    }
    for (const std::string& line : printer.record.printed.front().lines) {
        std::printf("|%s|\n", line.c_str());
    }
    return 0;
}
