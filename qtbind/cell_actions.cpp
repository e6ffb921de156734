#include "qtbind/cell_actions.h"

#include "forms/runtime.h"
#include "memory/cells.h"
#include "qtbind/form_click.h"

namespace qtbind {

namespace {

constexpr double kStripMiddle = 135;  // twips: the middle of the strip left of the value

void DropReadout(forms::Form& cell, bool rightHalf, const std::function<void()>& afterEvent) {
    forms::Runtime& runtime = cell.GetRuntime();
    forms::Form* calculator = runtime.FindOpenForm("Calculator");
    forms::Control* readout = calculator ? calculator->Find("Readout") : nullptr;
    if (!readout) return;
    forms::Control& value = memory::ValueLabel(cell);
    runtime.PressMouse(*readout, forms::kLeftButton, 0, static_cast<float>(readout->Width() / 2),
                       static_cast<float>(readout->Height() / 2));
    afterEvent();
    if (!runtime.Dragging()) return;
    // A quarter of the way in from either end: well inside its half.
    const auto x = static_cast<float>(value.Width() * (rightHalf ? 0.75 : 0.25));
    const auto y = static_cast<float>(value.Height() / 2);
    runtime.DragMove(&value, x, y);
    afterEvent();
    runtime.Drop(&value, x, y);
    afterEvent();
}

void Clear(forms::Form& cell, const std::function<void()>& afterEvent) {
    forms::Runtime& runtime = cell.GetRuntime();
    forms::Control& value = memory::ValueLabel(cell);
    const auto x = static_cast<float>(value.Width() / 2);
    const auto y = static_cast<float>(value.Height() / 2);
    ActivateForPress(cell);
    if (!cell.Loaded()) return;
    runtime.PressMouse(value, forms::kLeftButton, 0, x, y);
    afterEvent();
    if (!runtime.Dragging()) return;
    runtime.Drop(&value, x, y);
    afterEvent();
}

void ShowTape(forms::Form& cell, const std::function<void()>& afterEvent) {
    forms::Runtime& runtime = cell.GetRuntime();
    const auto x = static_cast<float>(kStripMiddle);
    const auto y = static_cast<float>(memory::ValueLabel(cell).Height() / 2);
    ActivateForPress(cell);
    if (!cell.Loaded()) return;
    runtime.PressMouse(cell, forms::kLeftButton, 0, x, y);
    afterEvent();
    if (!cell.Loaded()) return;
    ReleaseOnForm(cell, forms::kLeftButton, 0, x, y, /*clicked=*/true);
    afterEvent();
}

}  // namespace

void RunCellAction(forms::Form& cell, CellAction action, const std::function<void()>& afterEvent) {
    forms::Runtime& runtime = cell.GetRuntime();
    if (runtime.Ended() || runtime.Dragging() || runtime.InModal() || !cell.Loaded()) return;
    switch (action) {
        case CellAction::AddReadout:
            DropReadout(cell, true, afterEvent);
            break;
        case CellAction::SubtractReadout:
            DropReadout(cell, false, afterEvent);
            break;
        case CellAction::Clear:
            Clear(cell, afterEvent);
            break;
        case CellAction::ShowTape:
            ShowTape(cell, afterEvent);
            break;
    }
}

}  // namespace qtbind
