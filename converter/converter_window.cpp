#include "converter/converter_window.h"

#include "shell/placement.h"

namespace converter {

void MenuConverterClick(core::Program& p) {
    forms::Form& conv = *p.Converter;
    forms::Form& calc = *p.Calculator;
    forms::MenuItem& item = calc.GetMenu("mnuConverter");
    if (conv.Visible()) {
        conv.SetVisible(false);
        item.SetChecked(false);
        return;
    }
    conv.SetTop(calc.Top());
    if (p.runtime.Screen().width / 2 > calc.Left() + calc.Width() / 2) {
        conv.SetLeft(calc.Left() + calc.Width() + 200);
    } else {
        conv.SetLeft(calc.Left() - conv.Width() - 200);
    }
    conv.SetVisible(true);
    item.SetChecked(true);
    shell::SetTopMost(conv, true);
}

void ConverterUnload(core::Program& p, int& cancel) {
    p.Converter->SetVisible(false);
    p.Calculator->GetMenu("mnuConverter").SetChecked(false);
    cancel = 1;
}

void WireConverterWindow(core::Program& p) {
    p.Calculator->GetMenu("mnuConverter").Click = [&p] { MenuConverterClick(p); };
    p.Converter->Unload = [&p](int& cancel) { ConverterUnload(p, cancel); };
}

}  // namespace converter
