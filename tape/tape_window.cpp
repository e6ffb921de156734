#include "tape/tape_window.h"

#include "core/evaluate.h"
#include "forms/top_most.h"
#include "measure/whole_numbers.h"

namespace tape {

namespace {

constexpr int kTitleHeight = 280;  // the title strip above the grid
constexpr int kFrameAndTitle = 400;
constexpr int kInset = 240;   // the tape is narrower by this on each side
constexpr int kOverlap = 60;  // its lower edge reaches under the calculator
constexpr int kArrowWidth = 210;

forms::Form& Tape(core::Program& p) {
    return *p.frmTape;
}
forms::Form& Calc(core::Program& p) {
    return *p.Calculator;
}
forms::Grid& Grid(core::Program& p) {
    return p.tape->Grid1();
}

bool CalculatorMinimized(core::Program& p) {
    return Calc(p).WindowState() == forms::kMinimized;
}

void TapeThenCalculatorOnTop(core::Program& p) {
    forms::SetTopMost(Tape(p), true);
    forms::SetTopMost(Calc(p), true);
}

}  // namespace

void TapeFormLoad(core::Program& p) {
    forms::Form& f = Tape(p);
    forms::Form& calc = Calc(p);
    // The 50 is not the 60 used everywhere else; the first Resize puts it right.
    f.Move(calc.Left() + kInset, calc.Top() - f.Height() + 50, calc.Width() - 2 * kInset, 1525);
    f.Get("Label1").Move(0, 0, f.ScaleWidth(), kTitleHeight);
    forms::Grid& grid = Grid(p);
    grid.SetHeight(1125);
    grid.SetWidth(f.ScaleWidth());
    if (auto w = measure::ToInt32(grid.Width())) grid.SetColWidth(0, *w);
    grid.SetColAlignment(0, 1);
    p.tape->Reset();
    core::FocusEqual(p);
}

void TapeFormResize(core::Program& p) {
    if (CalculatorMinimized(p)) {
        p.TapeResizeGuard = 0;
        return;
    }
    if (p.TapeResizeGuard == 1) {
        p.TapeResizeGuard = 0;
        return;
    }
    p.TapeResizeGuard = 1;
    forms::Form& f = Tape(p);
    forms::Form& calc = Calc(p);
    forms::Grid& grid = Grid(p);
    const int rowHeight = grid.RowHeight(0);

    // The height snaps to whole lines, a tie going to the even count.
    std::int16_t lines = 0;
    if (auto n = measure::ToInt16((f.Height() - kFrameAndTitle) / rowHeight)) lines = *n;
    // A 16-bit product: past 32,767 twips it fails and keeps the line count.
    std::int16_t gridHeight = lines;
    if (auto h = measure::ToInt16(static_cast<double>(lines) * rowHeight)) gridHeight = *h;

    // The bottom edge stays on the calculator; the window grows upward. This
    // move raises a Resize of its own, which the guard swallows.
    f.Move(calc.Left() + kInset, calc.Top() - (gridHeight + kFrameAndTitle) + kOverlap,
           calc.Width() - 2 * kInset, gridHeight + kFrameAndTitle);

    grid.SetWidth(f.ScaleWidth());
    std::int16_t columnWidth = 0;
    if (auto w = measure::ToInt16(grid.Width())) columnWidth = *w;
    grid.SetHeight(gridHeight < 1 ? rowHeight : gridHeight);
    for (int column = 0; column < grid.Cols(); ++column) grid.SetColWidth(column, columnWidth);
    f.Get("cmdScrollTape", 1).SetLeft(f.ScaleWidth() - kArrowWidth);
    if (p.TapeFollowing == 0) {
        if (f.Visible()) forms::SetTopMost(f, true);
        forms::SetTopMost(calc, true);
    }
    p.TapeResizeGuard = 0;
}

void TapeGridKeyDown(core::Program& p, std::int16_t& keyCode, int /*shift*/) {
    forms::Grid& grid = Grid(p);
    if (keyCode != 37 && keyCode != 39) return;
    if (keyCode == 37) {
        grid.SetCol(grid.Col() == 0 ? grid.Cols() - 1 : grid.Col() - 1);
    } else {
        grid.SetCol(grid.Col() == grid.Cols() - 1 ? 0 : grid.Col() + 1);
    }
    const auto& names = p.tape->TapeNames();
    if (grid.Col() >= 0 && static_cast<std::size_t>(grid.Col()) < names.size()) {
        Tape(p).Get("Label1").SetCaption(names[grid.Col()]);
    }
    p.tape->CurrentTape = grid.Col();
    keyCode = 0;
    grid.SetLeftCol(grid.Col());
    p.tape->TapeScrollToEnd();
}

void ScrollTapeClick(core::Program& p, int index) {
    std::int16_t key = index == 0 ? 37 : 39;
    TapeGridKeyDown(p, key, 0);
    p.runtime.SetFocus(Grid(p));
}

void TapeGridGotFocus(core::Program& p) {
    // A click into the tape must not let it cover the main window.
    if (!CalculatorMinimized(p) && p.TapeFollowing == 0) TapeThenCalculatorOnTop(p);
}

void HideTapeByDoubleClick(core::Program& p) {
    // The popup's twin keeps its mark; the next use goes by mnuTape's.
    Tape(p).SetVisible(false);
    Calc(p).GetMenu("mnuTape").SetChecked(false);
}

void MenuTapeClick(core::Program& p) {
    forms::MenuItem& tapeItem = Calc(p).GetMenu("mnuTape");
    forms::MenuItem& popupItem = Calc(p).GetMenu("mnuPopup1ShowTape");
    if (tapeItem.Checked()) {
        p.TapeResizeGuard = 1;
        Tape(p).SetVisible(false);
        tapeItem.SetChecked(false);
        popupItem.SetChecked(false);
    } else {
        Tape(p).SetVisible(true);
        tapeItem.SetChecked(true);
        popupItem.SetChecked(true);
        TapeThenCalculatorOnTop(p);
    }
}

void WireTapeWindow(core::Program& p) {
    forms::Form& f = Tape(p);
    f.Load = [&p] { TapeFormLoad(p); };
    f.Resize = [&p] { TapeFormResize(p); };
    forms::Grid& grid = Grid(p);
    grid.KeyDown = [&p](std::int16_t& k, int shift) { TapeGridKeyDown(p, k, shift); };
    grid.GotFocus = [&p] { TapeGridGotFocus(p); };
    grid.DblClick = [&p] { HideTapeByDoubleClick(p); };
    grid.MouseDown = [](int, int, float, float) {};  // so the print popup never shows
    f.Get("Label1").DblClick = [&p] { HideTapeByDoubleClick(p); };
    for (int i = 0; i < 2; ++i)
        f.Get("cmdScrollTape", i).Click = [&p, i] { ScrollTapeClick(p, i); };
    Calc(p).GetMenu("mnuTape").Click = [&p] { MenuTapeClick(p); };
}

}  // namespace tape
