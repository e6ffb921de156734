#include "shell/display_options.h"

namespace shell {

namespace {
void Check(core::Program& p, const char* item, bool on) {
    p.Calculator->GetMenu(item).SetChecked(on);
}
}  // namespace

void SixteenClick(core::Program& p) {
    p.AccuracyDenominator = 16;
    Check(p, "Sixteen", true);
    Check(p, "mnuPopup1Accuracy16", true);
    Check(p, "thirtysecond", false);
    Check(p, "mnuPopup1Accuracy32", false);
}

void ThirtySecondClick(core::Program& p) {
    p.AccuracyDenominator = 32;
    Check(p, "thirtysecond", true);
    Check(p, "mnuPopup1Accuracy32", true);
    Check(p, "Sixteen", false);
    Check(p, "mnuPopup1Accuracy16", false);
}

void ShowKeysClick(core::Program& p) {
    forms::Form& f = *p.Calculator;
    bool show;
    if (f.Width() <= 3000) {
        show = !f.GetMenu("ShowKeys").Checked();
        f.SetHeight(show ? 2844 : 1200);
    } else {
        show = f.Height() == 1350;
        f.SetHeight(show ? 3590 : 1350);
    }
    Check(p, "ShowKeys", show);
    Check(p, "mnuPopup1ShowKeys", show);
}

void WireDisplayOptions(core::Program& p) {
    forms::Form& f = *p.Calculator;
    f.GetMenu("Sixteen").Click = [&p] { SixteenClick(p); };
    f.GetMenu("thirtysecond").Click = [&p] { ThirtySecondClick(p); };
    f.GetMenu("ShowKeys").Click = [&p] { ShowKeysClick(p); };
    f.DblClick = [&p] { ShowKeysClick(p); };
    f.Get("Label1").DblClick = [&p] { ShowKeysClick(p); };
}

}  // namespace shell
