#include "shell/zoom.h"

#include "measure/whole_numbers.h"

namespace shell {

namespace {

constexpr double kScale = 0.75;
// Added to a scaled Left that reads back as an even number of twips: the
// keys then stand as they were drawn for the small size.
constexpr double kEvenLeftCorrection = 10;

struct ReadoutLook {
    double left, width, fontSize;
    bool bold;
};
constexpr ReadoutLook kSmallReadout{139, 2385, 9.75, true};
constexpr ReadoutLook kLargeReadout{185, 3180, 13.5, false};

void SetReadout(core::Program& p, const ReadoutLook& look) {
    forms::Control& r = p.calc->Readout;
    r.SetLeft(look.left);
    r.SetWidth(look.width);
}

void SetReadoutFont(core::Program& p, const ReadoutLook& look) {
    forms::Control& r = p.calc->Readout;
    forms::Font font = r.GetFont();
    font.Size = look.fontSize;
    font.Bold = look.bold;
    r.SetFont(font);
}

void CheckZoom(core::Program& p, bool small) {
    forms::Form& f = *p.Calculator;
    f.GetMenu("ZoomSmall").SetChecked(small);
    f.GetMenu("mnuPopup1Zoom75").SetChecked(small);
    f.GetMenu("ZoomLarge").SetChecked(!small);
    f.GetMenu("mnuPopup1Zoom100").SetChecked(!small);
}

bool KeysShown(core::Program& p) {
    return p.Calculator->GetMenu("ShowKeys").Checked();
}

// A control without a rectangle refuses each statement, and the loop goes
// on with the next.
void ScaleControl(forms::Control& c) {
    c.SetTop(c.Top() * kScale);
    c.SetLeft(c.Left() * kScale);
    if (c.HasRectangle()) {
        auto readBack = measure::ToInt32(c.Left());
        if (readBack && *readBack % 2 == 0) c.SetLeft(c.Left() + kEvenLeftCorrection);
    }
    c.SetWidth(c.Width() * kScale);
    c.SetHeight(c.Height() * kScale);
}

void RestoreControl(core::Program& p, std::size_t i, forms::Control& c) {
    if (i >= p.ControlLefts.size()) return;
    c.SetTop(p.ControlTops[i]);
    c.SetLeft(p.ControlLefts[i]);
    c.SetWidth(p.ControlWidths[i]);
    c.SetHeight(p.ControlHeights[i]);
}

}  // namespace

void ZoomSmallClick(core::Program& p) {
    forms::Form& f = *p.Calculator;
    if (f.Width() > kZoomLine) {
        f.Hide();
        for (const auto& c : f.Controls()) ScaleControl(*c);
        SetReadout(p, kSmallReadout);
        CheckZoom(p, true);
        SetReadoutFont(p, kSmallReadout);
        f.SetWidth(kSmallWidth);
        f.SetHeight(KeysShown(p) ? 2844 : 1200);
        f.Show();
    }
    TapeFollowsZoom(p);
}

void ZoomLargeClick(core::Program& p) {
    forms::Form& f = *p.Calculator;
    if (f.Width() < kZoomLine) {
        f.Hide();
        const auto& controls = f.Controls();
        for (std::size_t i = 0; i < controls.size(); ++i) RestoreControl(p, i, *controls[i]);
        SetReadout(p, kLargeReadout);
        // The design caption again: the write changes nothing.
        f.GetMenu("Memory").SetCaption("&Memory");
        CheckZoom(p, false);
        SetReadoutFont(p, kLargeReadout);
        f.SetWidth(kLargeWidth);
        f.SetHeight(KeysShown(p) ? 3590 : 1350);
        f.Show();
    }
    TapeFollowsZoom(p);
}

void TapeFollowsZoom(core::Program& p) {
    forms::Form& tape = *p.frmTape;
    if (!tape.Visible()) return;
    const forms::Form& calc = *p.Calculator;
    tape.SetLeft(calc.Left() + 240);
    tape.SetWidth(calc.Width() - 480);
    // The lower edge tucks 60 twips behind the top of the calculator.
    tape.SetTop(calc.Top() - tape.Height() + 60);
    forms::Grid& grid = p.tape->Grid1();
    grid.SetHeight(tape.ScaleHeight());
    grid.SetWidth(tape.ScaleWidth());
    if (auto w = measure::ToInt32(grid.Width())) grid.SetColWidth(0, *w);
    tape.Get("Label1").SetWidth(tape.ScaleWidth());
}

void WireZoom(core::Program& p) {
    forms::Form& f = *p.Calculator;
    f.GetMenu("ZoomSmall").Click = [&p] { ZoomSmallClick(p); };
    f.GetMenu("ZoomLarge").Click = [&p] { ZoomLargeClick(p); };
}

}  // namespace shell
