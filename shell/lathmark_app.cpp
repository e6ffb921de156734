#include "shell/lathmark_app.h"

#include <cmath>

#include "converter/converter_window.h"
#include "core/evaluate.h"
#include "core/wire_calculator.h"
#include "memory/cell_events.h"
#include "memory/wire_memory.h"
#include "shell/calculator_lifecycle.h"
#include "shell/catalogue.h"
#include "shell/color_menu.h"
#include "shell/display_options.h"
#include "shell/help_about.h"
#include "shell/zoom.h"
#include "tape/tape_printing.h"
#include "tape/tape_window.h"

namespace shell {

LathmarkApp::LathmarkApp(forms::Services services, forms::ScreenInfo screen)
    : runtime_(std::make_unique<forms::Runtime>(services, screen)),
      program_(std::make_unique<core::Program>(*runtime_)) {
    core::Program& p = *program_;
    p.Calculator = &MakeCalculator(*runtime_);
    p.frmTape = &MakeTapeForm(*runtime_);
    p.Converter = &MakeConverter(*runtime_);
    p.MDIForm1 = &MakeMemoryParent(*runtime_);
    p.frmInput = &MakeInputPrompt(*runtime_);
    p.NewMemoryForm = [&p, runtime = runtime_.get()]() -> forms::Form& {
        forms::Form& cell = MakeMemoryCell(*runtime);
        cell.SetMdiParent(p.MDIForm1);
        cell.SetInstance(true);
        memory::WireCell(p, cell);
        return cell;
    };
    p.calc = std::make_unique<core::CalculatorView>(*p.Calculator);
    p.tape = std::make_unique<tape::TapeStore>(p.frmTape->GetGrid("Grid1"));

    core::WireCalculator(p);
    WireCalculatorLifecycle(p);
    WireDisplayOptions(p);
    WireZoom(p);
    WireColorMenu(p);
    tape::WireTapeWindow(p);
    converter::WireConverterWindow(p);
    memory::WireMemory(p);
    tape::WireTapePrinting(p);
    WireHelpAbout(p);
}

LathmarkApp::~LathmarkApp() {
    runtime_->SetObserver(nullptr);
}

void LathmarkApp::Start() {
    core::Program& p = *program_;
    runtime_->Load(*p.Calculator);
    p.Calculator->Show();
}

void LathmarkApp::MainLoopPass() {
    core::Program& p = *program_;
    // Between events no handler of a closed cell runs any more.
    if (!runtime_->InModal()) runtime_->FreeUnloaded();
    forms::Form& calc = *p.Calculator;
    if (runtime_->Ended() || calc.WindowState() != forms::kNormal) return;
    if (calc.Top() == p.CalcTop && calc.Left() == p.CalcLeft) return;
    p.TapeFollowing = 1;
    p.CalcTop = static_cast<std::int32_t>(std::nearbyint(calc.Top()));
    p.CalcLeft = static_cast<std::int32_t>(std::nearbyint(calc.Left()));
    forms::Form& tape = *p.frmTape;
    // The tape moves while hidden too, so it comes back in the right place.
    tape.Move(p.CalcLeft + 240, p.CalcTop - tape.Height() + 60, calc.Width() - 480, tape.Height());
    p.TapeFollowing = 0;
    core::FocusEqual(p);
}

}  // namespace shell
