#include "memory/cell_drop.h"

#include "core/evaluate.h"
#include "core/text_marks.h"
#include "measure/combine_texts.h"
#include "memory/cell_events.h"
#include "memory/cells.h"

namespace memory {

namespace {

constexpr const char* kAddPicture = "Image1";
constexpr const char* kSubtractPicture = "Image2";
constexpr const char* kNeutralPicture = "Image3";
constexpr const char* kRule = "---------------- ";  // sixteen dashes

const std::string& Picture(core::Program& p, const char* image) {
    return p.Calculator->Get(image).Caption();
}

// The middle of the label as the program has always worked it out: its Top
// where its Left would be expected. Top is 0 and X counts from the label's
// own left edge, so this is the middle all the same.
float Middle(const forms::Control& label) {
    return static_cast<float>(label.Top() + label.Width() / 2);
}

void WriteSideLine(core::Program& p, const forms::Control& label, forms::Control& source, float x) {
    if (Middle(label) > x) {
        p.state.PendingOperation = core::kSubtract;
        p.tape->Grid1().SetText(" - " + core::RightTrimBlanks(source.Caption()) + " ");
    } else {
        p.state.PendingOperation = core::kAdd;
        p.tape->Grid1().SetText(" + " + core::RightTrimBlanks(source.Caption()) + " ");
    }
}

}  // namespace

void CellLabelDragOver(core::Program& p, forms::Control& /*source*/, float x, float y) {
    // Every cell comes to the same answer, and in practice the walk passes
    // all of them; over the first 270 twips of a label (its own Left) no
    // picture is set.
    const auto& open = p.runtime.OpenForms();
    for (std::size_t i = 0; i < open.size(); ++i) {
        forms::Form& f = *open[i];
        if (!IsCell(f)) continue;
        forms::Control& label = ValueLabel(f);
        if (label.Left() > x || label.Left() + label.Width() < x) continue;
        const char* picture = x < Middle(label) ? kSubtractPicture : kAddPicture;
        p.calc->Readout.SetDragIcon(Picture(p, picture));
        label.SetDragIcon(Picture(p, picture));
        if (label.Top() >= y && label.Top() - label.Height() <= y) break;
    }
}

void CellLabelDragDrop(core::Program& p, forms::Form& cell, forms::Control& source, float x) {
    SelectCellTape(p, cell);
    tape::TapeStore& tape = *p.tape;
    forms::Grid& grid = tape.Grid1();
    forms::Control& label = ValueLabel(cell);
    if (label.Tag() == source.Tag()) {
        // Dropped on itself: cleared, on either half.
        CellLabelDblClick(p, cell);
        tape.TapeWriteClear(tape.CurrentTape);
        tape.TapeScrollToEnd();
        return;
    }
    std::string firstText = label.Caption();
    std::string secondText = source.Caption();
    const std::int16_t t = tape.CurrentTape;
    auto rowCount = [&]() -> std::int16_t* {
        auto& counts = tape.TapeRowCount();
        return t >= 0 && static_cast<std::size_t>(t) < counts.size() ? &counts[t] : nullptr;
    };
    tape.TapeAddRows(t, 1);
    if (auto* n = rowCount()) grid.SetRow(*n);
    WriteSideLine(p, label, source, x);

    core::CalcState& s = p.state;
    measure::CombineState combine{s.PendingOperation, s.ResultValue, s.FractionCount,
                                  p.AccuracyDenominator, [&p] { core::SignalError(p); }};
    measure::CombineTexts(firstText, secondText, s.ResultText, combine);
    if (s.ResultText == "ERROR") {
        // The line is taken back; the cell keeps its value.
        grid.SetText("");
        if (auto* n = rowCount()) --*n;
        grid.SetRow(grid.Row() - 1);
        return;
    }
    WriteSideLine(p, label, source, x);
    label.SetCaption(s.ResultText + " ");
    tape.TapeAddRows(t, 2);
    if (auto* n = rowCount()) {
        grid.SetRow(*n - 1);
        grid.SetText(kRule);
        grid.SetRow(*n);
        grid.SetText(core::RightTrimBlanks(s.ResultText) + " ");
    }
    tape.TapeScrollToEnd();
    p.calc->Readout.SetDragIcon(Picture(p, kNeutralPicture));
    p.runtime.SetFocus(cell);
}

void WireCellDrop(core::Program& p, forms::Form& cell) {
    forms::Form* f = &cell;
    forms::Control& label = ValueLabel(cell);
    label.DragOver = [&p](forms::Control& source, float x, float y, int) {
        CellLabelDragOver(p, source, x, y);
    };
    label.DragDrop = [&p, f](forms::Control& source, float x, float) {
        CellLabelDragDrop(p, *f, source, x);
    };
}

}  // namespace memory
