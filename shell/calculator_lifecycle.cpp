#include "shell/calculator_lifecycle.h"

#include "converter/converter_window.h"
#include "core/evaluate.h"
#include "forms/top_most.h"
#include "memory/clear_erase.h"
#include "shell/display_options.h"
#include "shell/help_about.h"
#include "shell/settings_io.h"
#include "shell/zoom.h"

namespace shell {

namespace {

void PlaceCalculator(core::Program& p) {
    // A window saved too far right or down comes back to the top left corner;
    // one saved above or left of the screen is obeyed.
    const forms::ScreenInfo& screen = p.runtime.Screen();
    forms::Form& calc = *p.Calculator;
    if (screen.width - 500 < p.CalcLeft || screen.height - 500 < p.CalcTop) {
        calc.Move(0, 0, calc.Width(), calc.Height());
    } else {
        calc.Move(p.CalcLeft, p.CalcTop, calc.Width(), calc.Height());
    }
}

void StoreDesignGeometry(core::Program& p) {
    const auto& controls = p.Calculator->Controls();
    const std::size_t n = controls.size();
    p.ControlLefts.assign(n, 0);
    p.ControlTops.assign(n, 0);
    p.ControlWidths.assign(n, 0);
    p.ControlHeights.assign(n, 0);
    for (std::size_t i = 0; i < n; ++i) {
        const forms::Control& c = *controls[i];
        if (!c.HasRectangle()) continue;  // the common dialog leaves 0
        p.ControlLefts[i] = static_cast<std::int32_t>(c.Left());
        p.ControlTops[i] = static_cast<std::int32_t>(c.Top());
        p.ControlWidths[i] = static_cast<std::int32_t>(c.Width());
        p.ControlHeights[i] = static_cast<std::int32_t>(c.Height());
    }
}

// The saved display options act only after the design geometry is stored.
void ApplySavedOptions(core::Program& p, const SavedOptions& o) {
    if (o.Zoom) ZoomSmallClick(p);
    if (o.Accuracy) ThirtySecondClick(p);
    if (o.Converter) converter::MenuConverterClick(p);
    if (!o.ShowKeys) ShowKeysClick(p);
}

}  // namespace

void CalculatorLoad(core::Program& p) {
    const SavedOptions options = ReadSettingsSection(p);
    ReadColorsSection(p);
    PlaceCalculator(p);
    p.HelpFilePath = HelpFilePathAtLoad(p);
    p.state.FirstValue.reset();
    p.state.SecondValue.reset();
    p.state.PendingOperation = core::kAddAreas;
    p.MemoryCount = 1;
    p.NextMemoryNumber = 1;
    p.AccuracyDenominator = 16;
    StoreDesignGeometry(p);
    ApplySavedOptions(p, options);
    SetTopMost(*p.Calculator, true);
    p.runtime.Load(*p.frmTape);
    if (options.ShowTape) {
        p.Calculator->GetMenu("mnuPopup1ShowTape").SetChecked(true);
        p.frmTape->SetVisible(true);
        p.Calculator->GetMenu("mnuTape").SetChecked(true);
    }
    p.tape->Grid1().SetHeight(1125);
    p.tape->CurrentTape = 0;
    forms::Form& conv = *p.Converter;
    p.runtime.Load(conv);
    conv.Move(options.ConvLeft, options.ConvTop, conv.Width(), conv.Height());
    core::FocusEqual(p);  // the form is not shown yet: this fails quietly
}

void CalculatorResize(core::Program& p) {
    forms::Form& calc = *p.Calculator;
    // The check marks, not the forms' last state, decide what comes back.
    if (calc.WindowState() == forms::kMinimized) {
        p.frmTape->SetVisible(false);
        p.MDIForm1->SetVisible(false);
        p.Converter->SetVisible(false);
        p.MDIForm1->SetVisible(false);
    } else if (calc.WindowState() == forms::kNormal) {
        if (p.MemoryCount > 1) p.MDIForm1->SetVisible(true);
        if (calc.GetMenu("mnuConverter").Checked()) p.Converter->SetVisible(true);
        if (calc.GetMenu("mnuTape").Checked()) p.frmTape->SetVisible(true);
    }
}

void CalculatorQueryUnload(core::Program& p, int& /*cancel*/, int /*unloadMode*/) {
    p.Calculator->SetVisible(false);
}

void CalculatorUnload(core::Program& p, int& /*cancel*/) {
    WriteSettings(p);
    // The cells go without a question; the memory window's place was saved
    // before.
    memory::EraseMemoryClick(p);
    p.runtime.Unload(*p.Converter);
    p.runtime.Unload(*p.frmTape);
    p.runtime.End();
}

void ExitClick(core::Program& p) {
    p.runtime.Unload(*p.Calculator);
    p.runtime.End();
}

void WireCalculatorLifecycle(core::Program& p) {
    forms::Form& f = *p.Calculator;
    f.Load = [&p] { CalculatorLoad(p); };
    f.Resize = [&p] { CalculatorResize(p); };
    f.QueryUnload = [&p](int& cancel, int mode) { CalculatorQueryUnload(p, cancel, mode); };
    f.Unload = [&p](int& cancel) { CalculatorUnload(p, cancel); };
    f.GetMenu("Exit").Click = [&p] { ExitClick(p); };
}

}  // namespace shell
