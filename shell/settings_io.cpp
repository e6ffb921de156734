#include "shell/settings_io.h"

#include "shell/settings_values.h"

namespace shell {

namespace {

std::string Read(core::Program& p, const char* section, const char* key,
                 const std::string& fallback) {
    if (auto* store = p.runtime.GetServices().settings) {
        if (auto value = store->Read(section, key)) return *value;
    }
    return fallback;
}

void Write(core::Program& p, const char* section, const char* key, const std::string& value) {
    if (auto* store = p.runtime.GetServices().settings) store->Write(section, key, value);
}

// A text that reads as no truth value leaves the local as it was.
void ReadFlag(core::Program& p, const char* key, const char* fallback, bool& flag) {
    if (auto v = ReadTruth(Read(p, "Settings", key, fallback))) flag = *v;
}

void ReadNumber(core::Program& p, const char* key, double fallback, std::int32_t& number) {
    if (auto v = ReadWhole(Read(p, "Settings", key, DefaultText(fallback)))) number = *v;
}

std::string TruthText(bool value) {
    return value ? "True" : "False";
}

std::string PositionText(double twips) {
    // Single precision, as the form reports it; whole twips in practice.
    return DefaultText(static_cast<float>(twips));
}

}  // namespace

SavedOptions ReadSettingsSection(core::Program& p) {
    SavedOptions o;
    ReadFlag(p, "Zoom", "0", o.Zoom);
    ReadFlag(p, "Accuracy", "0", o.Accuracy);
    ReadFlag(p, "Converter", "0", o.Converter);
    ReadFlag(p, "ShowKeys", "1", o.ShowKeys);
    ReadFlag(p, "ShowTape", "1", o.ShowTape);

    const forms::ScreenInfo& screen = p.runtime.Screen();
    const forms::Form& calc = *p.Calculator;
    ReadNumber(p, "CalcTop", (screen.height - calc.Height()) / 2, p.CalcTop);
    ReadNumber(p, "CalcLeft", (screen.width - calc.Width()) / 2, p.CalcLeft);
    // Asking the converter for its size loads it, hidden.
    forms::Form& conv = *p.Converter;
    p.runtime.Load(conv);
    ReadNumber(p, "ConvTop", (screen.height - conv.Height()) / 2, o.ConvTop);
    ReadNumber(p, "ConvLeft",
               (screen.width - conv.Width()) / 2 - conv.Width() / 2 - calc.Width() / 2 - 100,
               o.ConvLeft);
    ReadNumber(p, "MDITop", 1635, o.MDITop);
    ReadNumber(p, "MDILeft", 1575, o.MDILeft);
    forms::Form& mdi = *p.MDIForm1;
    mdi.Move(o.MDILeft, o.MDITop, mdi.Width(), mdi.Height());
    return o;
}

void ReadColorsSection(core::Program& p) {
    const std::string teal = "8421376", yellow = "8454143";
    // Read with a capital G; written with a small one. The store finds both.
    if (auto c = ReadWhole(Read(p, "Colors", "CalcBackGround", teal))) {
        p.Calculator->SetBackColor(static_cast<std::uint32_t>(*c));
    }
    if (auto c = ReadWhole(Read(p, "Colors", "ReadoutBackGround", yellow))) {
        p.calc->Readout.SetBackColor(static_cast<std::uint32_t>(*c));
    }
    if (auto c = ReadWhole(Read(p, "Colors", "MemoryBackground", teal))) {
        p.MemoryBackColor = *c;
    }
    if (auto c = ReadWhole(Read(p, "Colors", "MemoryReadout", yellow))) {
        p.MemoryReadoutColor = *c;
    }
    forms::Form& conv = *p.Converter;
    if (auto c = ReadWhole(Read(p, "Colors", "Converter", teal))) {
        p.ConverterBackColor = *c;
        conv.SetBackColor(static_cast<std::uint32_t>(*c));
    }
    if (auto c = ReadWhole(Read(p, "Colors", "ConvReadout", yellow))) {
        p.ConverterReadoutColor = *c;
        conv.Get("Label1").SetBackColor(static_cast<std::uint32_t>(*c));
    }
    if (auto c = ReadWhole(Read(p, "Colors", "ConvResult", yellow))) {
        p.ConverterResultColor = *c;
        for (int i = 2; i <= 6; ++i) {
            conv.Get("lblLabel", i).SetBackColor(static_cast<std::uint32_t>(*c));
        }
    }
}

void WriteSettings(core::Program& p) {
    auto colorText = [](std::uint32_t c) { return std::to_string(static_cast<std::int32_t>(c)); };
    Write(p, "Colors", "CalcBackground", colorText(p.Calculator->BackColor()));
    Write(p, "Colors", "ReadoutBackground", colorText(p.calc->Readout.BackColor()));
    Write(p, "Colors", "MemoryBackground", std::to_string(p.MemoryBackColor));
    Write(p, "Colors", "MemoryReadout", std::to_string(p.MemoryReadoutColor));
    Write(p, "Colors", "Converter", std::to_string(p.ConverterBackColor));
    Write(p, "Colors", "ConvReadout", std::to_string(p.ConverterReadoutColor));
    Write(p, "Colors", "ConvResult", std::to_string(p.ConverterResultColor));

    Write(p, "Settings", "CalcTop", PositionText(p.Calculator->Top()));
    Write(p, "Settings", "CalcLeft", PositionText(p.Calculator->Left()));
    Write(p, "Settings", "ConvTop", PositionText(p.Converter->Top()));
    Write(p, "Settings", "ConvLeft", PositionText(p.Converter->Left()));
    Write(p, "Settings", "MDITop", PositionText(p.MDIForm1->Top()));
    Write(p, "Settings", "MDILeft", PositionText(p.MDIForm1->Left()));

    const forms::Form& f = *p.Calculator;
    Write(p, "Settings", "Zoom", TruthText(f.GetMenu("ZoomSmall").Checked()));
    Write(p, "Settings", "Accuracy", TruthText(!f.GetMenu("Sixteen").Checked()));
    Write(p, "Settings", "Converter", TruthText(f.GetMenu("mnuConverter").Checked()));
    Write(p, "Settings", "ShowKeys", TruthText(f.GetMenu("ShowKeys").Checked()));
    Write(p, "Settings", "ShowTape", TruthText(f.GetMenu("mnuTape").Checked()));

    // All of them reach the disk together, as one new settings file.
    if (auto* store = p.runtime.GetServices().settings) store->Flush();
}

}  // namespace shell
