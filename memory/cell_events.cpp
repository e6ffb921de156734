#include "memory/cell_events.h"

#include "forms/top_most.h"
#include "measure/whole_numbers.h"
#include "memory/cell_drop.h"
#include "memory/cell_layout.h"
#include "memory/cells.h"
#include "memory/input_prompt.h"

namespace memory {

namespace {

constexpr double kCellHeight = 585;
constexpr double kStripAndFrame = 375;  // what of a cell's width is not its value

void ShowTapeArrows(core::Program& p, bool visible) {
    for (int i = 0; i < 2; ++i) p.frmTape->Get("cmdScrollTape", i).SetVisible(visible);
}

}  // namespace

void CellLoad(core::Program& p, forms::Form& /*cell*/) {
    // (The small title bar shows no icon: the cell has none to clear.)
    // The Resize that comes with loading is swallowed.
    p.CellResizeGuard = 2;
    auto& counts = p.tape->TapeRowCount();
    counts.resize(static_cast<std::size_t>(std::max<int>(p.NextMemoryNumber, 0)) + 1);
    counts[static_cast<std::size_t>(p.NextMemoryNumber)] = 0;
    if (p.MemoryCount > 0) ShowTapeArrows(p, true);
}

void CellResize(core::Program& p, forms::Form& cell) {
    if (p.CellResizeGuard == 1) return;
    if (p.CellResizeGuard == 2) {
        p.CellResizeGuard = 0;
        return;
    }
    p.CellResizeGuard = 1;
    // A single cell's width is left to the parent's layout.
    if (p.MemoryCount > 2) {
        if (auto w = measure::ToInt16(cell.Width())) p.MemoryWidth = *w;
    }
    // Every cell takes the width, and the height snaps back.
    const auto& open = p.runtime.OpenForms();
    for (std::size_t i = 0; i < open.size(); ++i) {
        forms::Form& f = *open[i];
        if (!IsCell(f)) continue;
        f.Move(f.Left(), f.Top(), p.MemoryWidth, kCellHeight);
        ValueLabel(f).SetWidth(f.Width() - kStripAndFrame);
    }
    RepackCells(p);
    p.CellResizeGuard = 0;
}

void CellUnload(core::Program& p, forms::Form& /*cell*/) {
    // The cell's tape column, name and row count stay, and so does the hole
    // it leaves in the layout, until the next one.
    if (auto n = measure::AddInt16(p.MemoryCount, -1)) p.MemoryCount = *n;
    if (p.MemoryCount < 2) ShowTapeArrows(p, false);
}

void SelectCellTape(core::Program& p, forms::Form& cell) {
    if (auto n = CellNumber(cell)) p.tape->CurrentTape = *n;
    forms::Grid& grid = p.tape->Grid1();
    grid.SetCol(p.tape->CurrentTape);
    grid.SetLeftCol(p.tape->CurrentTape);
    p.frmTape->Get("Label1").SetCaption(cell.Caption());
}

void CellActivate(core::Program& p, forms::Form& cell) {
    SelectCellTape(p, cell);
    p.tape->TapeScrollToEnd();
}

void CellClick(core::Program& p, forms::Form& cell) {
    // The widest text is kept as well, but the width of the last cell walked
    // is the one compared.
    std::int16_t width = 0;
    std::int16_t widest = 0;
    const auto& open = p.runtime.OpenForms();
    for (std::size_t i = 0; i < open.size(); ++i) {
        forms::Form& f = *open[i];
        if (!IsCell(f)) continue;
        if (auto w = measure::ToInt16(p.runtime.TextWidth(f.GetFont(), ValueLabel(f).Caption()))) {
            width = *w;
        }
        if (width > widest) widest = width;
    }
    if (width > ValueLabel(cell).Width()) {
        if (auto w = measure::AddInt16(width, static_cast<std::int16_t>(kStripAndFrame))) {
            cell.SetWidth(*w);
        }
    }
    RepackCells(p);
}

void CellDblClick(core::Program& p, forms::Form& cell) {
    AskForName(p, cell.Caption());
    forms::SetTopMost(*p.Calculator, true);
    if (!p.InputResult.empty() && cell.Loaded()) {
        cell.SetCaption(p.InputResult);
        if (auto n = CellNumberForRename(cell)) p.tape->CurrentTape = *n;
        auto& names = p.tape->TapeNames();
        const int t = p.tape->CurrentTape;
        if (t >= 0 && static_cast<std::size_t>(t) < names.size()) names[t] = cell.Caption();
    }
    p.runtime.SetFocus(*p.Calculator);
}

void CellLabelDblClick(core::Program& /*p*/, forms::Form& cell) {
    // Nothing goes on the tape.
    ValueLabel(cell).SetCaption("0.");
}

void WireCell(core::Program& p, forms::Form& cell) {
    forms::Form* f = &cell;
    cell.Load = [&p, f] { CellLoad(p, *f); };
    cell.Resize = [&p, f] { CellResize(p, *f); };
    cell.Unload = [&p, f](int&) { CellUnload(p, *f); };
    cell.Activate = [&p, f] { CellActivate(p, *f); };
    cell.MouseUp = [&p, f](int, int, float, float) { CellActivate(p, *f); };
    cell.Click = [&p, f] { CellClick(p, *f); };
    cell.DblClick = [&p, f] { CellDblClick(p, *f); };
    forms::Control& label = ValueLabel(cell);
    label.DblClick = [&p, f] { CellLabelDblClick(p, *f); };
    WireCellDrop(p, cell);
}

}  // namespace memory
