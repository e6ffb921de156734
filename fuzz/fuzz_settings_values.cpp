// What the settings mean, on any values: the readers of truth values and
// whole numbers, and a whole program started headless on a store that
// holds the values given, one a line, for the keys the start reads in its
// order (Zoom, Accuracy, Converter, ShowKeys, ShowTape, CalcTop, CalcLeft,
// ConvTop, ConvLeft, MDITop, MDILeft, then the seven colours). A line of
// one DEL byte (0x7F) leaves its key out; keys past the last line are
// missing too.
//
// The readers: a text that reads as a whole number reads as a truth value,
// true when the number is not 0; the number's own text reads as the number
// again; no text with an "x" after it is a number.
//
// The start: every window stands where its setting says, or where its
// default puts it when the setting reads as no number; the calculator goes
// to 0, 0 when it would stand within 500 twips of the screen's right or
// bottom edge; the colours and the options are as read. A setting that
// reads as no number or truth value leaves what its variable held: the
// places of the converter and the memory window 0, an option off. Then the settings
// the program writes at its end, read by a second program, put every
// window in the same place, with the same colours and options, wherever
// the places were written exactly: a place is written in single
// precision, which holds whole twips exactly up to 2^24.
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/case_insensitive.h"
#include "forms/headless_services.h"
#include "fuzz/fuzz_check.h"
#include "shell/headless_program.h"
#include "shell/settings_io.h"
#include "shell/settings_values.h"

namespace {

struct Key {
    const char* section;
    const char* name;
};
constexpr Key kKeys[] = {
    {"Settings", "Zoom"},
    {"Settings", "Accuracy"},
    {"Settings", "Converter"},
    {"Settings", "ShowKeys"},
    {"Settings", "ShowTape"},
    {"Settings", "CalcTop"},
    {"Settings", "CalcLeft"},
    {"Settings", "ConvTop"},
    {"Settings", "ConvLeft"},
    {"Settings", "MDITop"},
    {"Settings", "MDILeft"},
    {"Colors", "CalcBackGround"},
    {"Colors", "ReadoutBackGround"},
    {"Colors", "MemoryBackground"},
    {"Colors", "MemoryReadout"},
    {"Colors", "Converter"},
    {"Colors", "ConvReadout"},
    {"Colors", "ConvResult"},
};
constexpr std::size_t kKeyCount = sizeof kKeys / sizeof kKeys[0];
enum Field {
    kZoom,
    kAccuracy,
    kConverter,
    kShowKeys,
    kShowTape,
    kCalcTop,
    kCalcLeft,
    kConvTop,
    kConvLeft,
    kMdiTop,
    kMdiLeft,
    kCalcColor
};

// What a started program shows of its settings.
struct Shown {
    double calcLeft, calcTop, convLeft, convTop, mdiLeft, mdiTop;
    std::int32_t CalcTop, CalcLeft;
    std::uint32_t calcColor, readoutColor;
    std::int32_t memoryBack, memoryReadout, converterBack, converterReadout, converterResult;
    bool zoom, thirtySecond, converter, showKeys, showTape;
};

struct Program {
    forms::MemorySettingsStore settings;
    shell::HeadlessProgram program{&settings};

    explicit Program(const forms::MemorySettingsStore& given) : settings(given) {}

    Shown Show() {
        core::Program& p = program.P();
        const forms::Form& calc = *p.Calculator;
        return {calc.Left(),
                calc.Top(),
                p.Converter->Left(),
                p.Converter->Top(),
                p.MDIForm1->Left(),
                p.MDIForm1->Top(),
                p.CalcTop,
                p.CalcLeft,
                calc.BackColor(),
                p.calc->Readout.BackColor(),
                p.MemoryBackColor,
                p.MemoryReadoutColor,
                p.ConverterBackColor,
                p.ConverterReadoutColor,
                p.ConverterResultColor,
                calc.GetMenu("ZoomSmall").Checked(),
                p.AccuracyDenominator == 32,
                calc.GetMenu("mnuConverter").Checked(),
                calc.GetMenu("ShowKeys").Checked(),
                calc.GetMenu("mnuTape").Checked()};
    }
};

// The program as an empty store starts it: every default.
const Shown& Defaults() {
    static const Shown shown = Program(forms::MemorySettingsStore()).Show();
    return shown;
}

// What the variables and the calculator's colour hold before the start
// reads anything: a program made and not started.
struct Held {
    std::int32_t CalcTop, CalcLeft;
    std::uint32_t calcColor;
};
const Held& BeforeTheStart() {
    static const Held held = [] {
        forms::MemorySettingsStore none;
        forms::Services services{nullptr, nullptr, &none};
        shell::LathmarkApp app(services, forms::ScreenInfo{});
        core::Program& p = app.Program();
        return Held{p.CalcTop, p.CalcLeft, p.Calculator->BackColor()};
    }();
    return held;
}

void CheckReaders(const std::string& text) {
    const auto whole = shell::ReadWhole(text);
    const auto truth = shell::ReadTruth(text);
    if (whole) {
        FUZZ_CHECK(truth.has_value(), "'%s' reads as %d but as no truth value", text.c_str(),
                   *whole);
        if (*whole != 0) FUZZ_CHECK(*truth, "'%s' reads as %d but as false", text.c_str(), *whole);
        const std::string own = std::to_string(*whole);
        FUZZ_CHECK(shell::ReadWhole(own) == whole, "'%s' reads as %d, its text '%s' not",
                   text.c_str(), *whole, own.c_str());
        FUZZ_CHECK(shell::ReadWhole(shell::DefaultText(*whole)) == whole,
                   "'%s' reads as %d, its default text not", text.c_str(), *whole);
        FUZZ_CHECK(shell::ReadTruth(own) == (*whole != 0), "'%s' as a truth", own.c_str());
    }
    FUZZ_CHECK(!shell::ReadWhole(text + "x"), "'%sx' reads as a number", text.c_str());
    std::string trimmed = text;
    while (!trimmed.empty() && trimmed.back() == ' ') trimmed.pop_back();
    if (forms::EqualsIgnoringCase(trimmed, "true")) FUZZ_CHECK(truth == true, "'%s'", text.c_str());
    if (forms::EqualsIgnoringCase(trimmed, "false")) {
        FUZZ_CHECK(truth == false, "'%s'", text.c_str());
    }
}

// What a setting gives: its number; the default when the key is missing;
// and when it holds no number, what the variable held before, as every
// failed read leaves it.
double Place(const std::optional<std::string>& text, double fallback, double held) {
    if (!text) return fallback;
    if (auto v = shell::ReadWhole(*text)) return *v;
    return held;
}

// A colour as read: the whole number's 32 bits.
std::uint32_t Colour(const std::optional<std::string>& text, std::uint32_t fallback,
                     std::uint32_t held) {
    if (!text) return fallback;
    if (auto v = shell::ReadWhole(*text)) return static_cast<std::uint32_t>(*v);
    return held;
}

// An option as read; one that reads as no truth value stays off, as the
// start's locals begin.
bool Flag(const std::optional<std::string>& text, bool fallback) {
    if (!text) return fallback;
    if (auto v = shell::ReadTruth(*text)) return *v;
    return false;
}

// Whole twips that a single-precision number holds exactly.
bool Exact(double twips) {
    return std::fabs(twips) <= 16777216.0;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    std::vector<std::optional<std::string>> values(kKeyCount);
    std::size_t at = 0;
    for (std::size_t k = 0; k < kKeyCount && at <= input.size() && !input.empty(); ++k) {
        std::size_t end = input.find('\n', at);
        if (end == std::string::npos) end = input.size();
        const std::string line = input.substr(at, end - at);
        if (line != "\x7f") values[k] = line;
        at = end + 1;
    }

    forms::MemorySettingsStore given;
    for (std::size_t k = 0; k < kKeyCount; ++k) {
        if (!values[k]) continue;
        CheckReaders(*values[k]);
        given.Write(kKeys[k].section, kKeys[k].name, *values[k]);
    }

    const Shown& d = Defaults();
    Program first(given);
    const Shown s = first.Show();
    const forms::ScreenInfo screen;

    const Held& h = BeforeTheStart();
    const double calcLeft = Place(values[kCalcLeft], d.CalcLeft, h.CalcLeft);
    const double calcTop = Place(values[kCalcTop], d.CalcTop, h.CalcTop);
    const bool corner = screen.width - 500 < calcLeft || screen.height - 500 < calcTop;
    FUZZ_CHECK(s.calcLeft == (corner ? 0 : calcLeft) && s.calcTop == (corner ? 0 : calcTop),
               "the calculator stands at %g, %g", s.calcLeft, s.calcTop);
    // The first pass of the main loop has taken up where it stands.
    FUZZ_CHECK(s.CalcLeft == s.calcLeft && s.CalcTop == s.calcTop, "CalcLeft %d, CalcTop %d",
               s.CalcLeft, s.CalcTop);
    // The converter's and the memory window's places are read into locals
    // that start at 0.
    FUZZ_CHECK(s.convLeft == Place(values[kConvLeft], d.convLeft, 0) &&
                   s.convTop == Place(values[kConvTop], d.convTop, 0),
               "the converter stands at %g, %g", s.convLeft, s.convTop);
    FUZZ_CHECK(s.mdiLeft == Place(values[kMdiLeft], d.mdiLeft, 0) &&
                   s.mdiTop == Place(values[kMdiTop], d.mdiTop, 0),
               "the memory window stands at %g, %g", s.mdiLeft, s.mdiTop);
    FUZZ_CHECK(s.calcColor == Colour(values[kCalcColor], d.calcColor, h.calcColor),
               "the calculator's colour is %u", s.calcColor);
    FUZZ_CHECK(s.zoom == Flag(values[kZoom], d.zoom) &&
                   s.thirtySecond == Flag(values[kAccuracy], d.thirtySecond) &&
                   s.converter == Flag(values[kConverter], d.converter) &&
                   s.showKeys == Flag(values[kShowKeys], d.showKeys) &&
                   s.showTape == Flag(values[kShowTape], d.showTape),
               "options zoom %d, 1/32 %d, converter %d, keys %d, tape %d", s.zoom, s.thirtySecond,
               s.converter, s.showKeys, s.showTape);

    // What the end writes, the next start reads.
    forms::MemorySettingsStore& store = first.settings;
    shell::WriteSettings(first.program.P());
    Program second(store);
    const Shown t = second.Show();
    if (Exact(s.calcLeft) && Exact(s.calcTop)) {
        FUZZ_CHECK(t.calcLeft == s.calcLeft && t.calcTop == s.calcTop,
                   "the calculator at %g, %g came back at %g, %g", s.calcLeft, s.calcTop,
                   t.calcLeft, t.calcTop);
    }
    if (Exact(s.convLeft) && Exact(s.convTop)) {
        FUZZ_CHECK(t.convLeft == s.convLeft && t.convTop == s.convTop,
                   "the converter at %g, %g came back at %g, %g", s.convLeft, s.convTop, t.convLeft,
                   t.convTop);
    }
    if (Exact(s.mdiLeft) && Exact(s.mdiTop)) {
        FUZZ_CHECK(t.mdiLeft == s.mdiLeft && t.mdiTop == s.mdiTop,
                   "the memory window at %g, %g came back at %g, %g", s.mdiLeft, s.mdiTop,
                   t.mdiLeft, t.mdiTop);
    }
    FUZZ_CHECK(t.calcColor == s.calcColor && t.readoutColor == s.readoutColor &&
                   t.memoryBack == s.memoryBack && t.memoryReadout == s.memoryReadout &&
                   t.converterBack == s.converterBack && t.converterReadout == s.converterReadout &&
                   t.converterResult == s.converterResult,
               "the colours did not come back");
    FUZZ_CHECK(t.zoom == s.zoom && t.thirtySecond == s.thirtySecond && t.converter == s.converter &&
                   t.showKeys == s.showKeys && t.showTape == s.showTape,
               "the options did not come back");
    return 0;
}
