#include "converter/converter_window.h"

#include "converter/converter_drop.h"
#include "forms/top_most.h"
#include "measure/whole_numbers.h"

namespace converter {

namespace {

constexpr int kLabelMargin = 240;  // the labels are this much narrower
constexpr int kGap = 200;          // between the calculator and the strip

void SetCollapsedHeight(core::Program& p) {
    p.Converter->SetHeight(p.Collapsed ? kFoldedHeight : kOpenHeight);
}

}  // namespace

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
    // Beside the calculator, on the side of the screen with more room.
    if (p.runtime.Screen().width / 2 > calc.Left() + calc.Width() / 2) {
        conv.SetLeft(calc.Left() + calc.Width() + kGap);
    } else {
        conv.SetLeft(calc.Left() - conv.Width() - kGap);
    }
    conv.SetVisible(true);
    item.SetChecked(true);
    forms::SetTopMost(conv, true);
}

void ConverterUnload(core::Program& p, int& cancel) {
    p.Converter->SetVisible(false);
    p.Calculator->GetMenu("mnuConverter").SetChecked(false);
    cancel = 1;
}

void ConverterLoad(core::Program& p) {
    // The strip begins folded; its first Resize brings the height down.
    p.Collapsed = true;
}

void ConverterResize(core::Program& p) {
    forms::Form& conv = *p.Converter;
    // A width past 16 bits fails, and the labels keep theirs.
    if (auto w = measure::ToInt16(conv.Width() - kLabelMargin)) {
        conv.Get("Label1").SetWidth(*w);
        for (int i = kFirstLine; i <= kLastLine; ++i) conv.Get("lblLabel", i).SetWidth(*w);
    }
    SetCollapsedHeight(p);
}

void ToggleFold(core::Program& p) {
    if (p.Converter->Height() != kOpenHeight) {
        p.Collapsed = false;
        p.Converter->SetHeight(kOpenHeight);
    } else {
        p.Collapsed = true;
        p.Converter->SetHeight(kFoldedHeight);
    }
}

void WireConverterWindow(core::Program& p) {
    forms::Form& conv = *p.Converter;
    p.Calculator->GetMenu("mnuConverter").Click = [&p] { MenuConverterClick(p); };
    conv.Load = [&p] { ConverterLoad(p); };
    conv.Resize = [&p] { ConverterResize(p); };
    conv.DblClick = [&p] { ToggleFold(p); };
    conv.Unload = [&p](int& cancel) { ConverterUnload(p, cancel); };
    WireConverterDrop(p);
}

}  // namespace converter
