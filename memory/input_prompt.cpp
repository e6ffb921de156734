#include "memory/input_prompt.h"

#include "forms/top_most.h"

namespace memory {

void AskForName(core::Program& p, const std::string& proposed) {
    forms::Form& prompt = *p.frmInput;
    forms::SetTopMost(*p.Calculator, false);
    p.runtime.Load(prompt);
    forms::Control& text = prompt.Get("txtText1");
    text.SetCaption(proposed);
    // Selected, so that typing replaces it.
    text.SetSelection(0, static_cast<int>(proposed.size()));
    const forms::ScreenInfo& screen = p.runtime.Screen();
    prompt.Move((screen.width - prompt.Width()) / 2, (screen.height - prompt.Height()) / 2,
                prompt.Width(), prompt.Height());
    p.runtime.ShowModal(prompt);
}

void InputOkClick(core::Program& p) {
    p.InputResult = p.frmInput->Get("txtText1").Caption();
    p.runtime.Unload(*p.frmInput);
}

void InputCancelClick(core::Program& p) {
    p.InputResult = "";
    p.runtime.Unload(*p.frmInput);
}

void WireInputPrompt(core::Program& p) {
    forms::Form& prompt = *p.frmInput;
    prompt.Get("Command1").Click = [&p] { InputOkClick(p); };
    prompt.Get("Command2").Click = [&p] { InputCancelClick(p); };
}

}  // namespace memory
