#include "shell/color_menu.h"

#include <string>

namespace shell {

namespace {

// The Flags value that makes the dialog start on the colour given.
constexpr int kStartOnColor = 1;

enum ColorItem : std::int16_t {
    kCalculatorColor,
    kReadoutColor,
    kMemoryColor,
    kMemoryReadoutColor,
    kConverterColor,
    kConverterReadoutColor,
    kConverterResultColor,
};

bool IsMemoryForm(const forms::Form& f) {
    std::string tag = f.Tag();
    for (char& c : tag) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return tag.find("memory") != std::string::npos;
}

template <typename Apply>
void ForEachMemoryForm(core::Program& p, Apply apply) {
    // A copy: nothing here loads or unloads a form, but the list is the
    // runtime's own.
    const std::vector<forms::Form*> open = p.runtime.OpenForms();
    for (forms::Form* f : open) {
        if (IsMemoryForm(*f)) apply(*f);
    }
}

void Apply(core::Program& p, std::int16_t index, std::uint32_t color) {
    const auto asVariable = static_cast<std::int32_t>(color);
    forms::Form& conv = *p.Converter;
    switch (index) {
        case kCalculatorColor:
            p.Calculator->SetBackColor(color);
            if (p.Calculator->Paint) p.Calculator->Paint();
            break;
        case kReadoutColor:
            p.calc->Readout.SetBackColor(color);
            break;
        case kMemoryColor:
            p.MemoryBackColor = asVariable;
            ForEachMemoryForm(p, [color](forms::Form& f) { f.SetBackColor(color); });
            break;
        case kMemoryReadoutColor:
            p.MemoryReadoutColor = asVariable;
            ForEachMemoryForm(p, [color](forms::Form& f) { f.Get("Label1").SetBackColor(color); });
            break;
        case kConverterColor:
            conv.SetBackColor(color);
            p.ConverterBackColor = asVariable;
            break;
        case kConverterReadoutColor:
            conv.Get("Label1").SetBackColor(color);
            p.ConverterReadoutColor = asVariable;
            break;
        case kConverterResultColor:
            for (int i = 2; i <= 6; ++i) conv.Get("lblLabel", i).SetBackColor(color);
            p.ConverterResultColor = asVariable;
            break;
        default:
            break;
    }
}

}  // namespace

void ColorClick(core::Program& p, std::int16_t index) {
    core::CommonDialog& dialog = p.CMDialog1;
    dialog.Color = kColorDialogStart;
    dialog.Flags = kStartOnColor;
    forms::ColorDialogs* dialogs = p.runtime.GetServices().colorDialogs;
    // A cancel, or no dialog to ask, changes nothing.
    const auto chosen = dialogs ? dialogs->Show(dialog.Color) : std::nullopt;
    if (!chosen) return;
    dialog.Color = *chosen;
    Apply(p, index, dialog.Color);
}

void WireColorMenu(core::Program& p) {
    for (std::int16_t i = 0; i <= 6; ++i) {
        p.Calculator->GetMenu("mnuColor", i).Click = [&p, i] { ColorClick(p, i); };
    }
}

}  // namespace shell
