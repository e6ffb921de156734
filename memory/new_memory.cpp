#include "memory/new_memory.h"

#include "core/evaluate.h"
#include "forms/top_most.h"
#include "measure/whole_numbers.h"
#include "memory/cell_layout.h"
#include "memory/cells.h"
#include "memory/input_prompt.h"

namespace memory {

namespace {

constexpr std::int16_t kFirstCellWidth = 1935;
constexpr double kNamedCellHeight = 630;

void NameTheTape(core::Program& p, forms::Form& cell) {
    auto& names = p.tape->TapeNames();
    names.resize(static_cast<std::size_t>(std::max<int>(p.NextMemoryNumber, 0)) + 1);
    names[static_cast<std::size_t>(p.NextMemoryNumber)] = cell.Caption();
}

// Both counters go up; one that would pass 32,767 stays where it is.
void CountTheCell(core::Program& p) {
    if (auto n = measure::AddInt16(p.MemoryCount, 1)) p.MemoryCount = *n;
    if (auto n = measure::AddInt16(p.NextMemoryNumber, 1)) p.NextMemoryNumber = *n;
}

// What both roads share once the cell has its size: the nudge that makes
// the first two cells run their Resize, the tape column, the layout, and
// the keyboard back to the calculator.
void FinishCell(core::Program& p, forms::Form& cell) {
    if (p.MemoryCount < 4) {
        cell.SetWidth(cell.Width() + 10);
        cell.SetWidth(cell.Width() - 10);
    }
    forms::Grid& grid = p.tape->Grid1();
    if (grid.Cols() < p.NextMemoryNumber) grid.SetCols(p.NextMemoryNumber);
    if (auto w = measure::ToInt32(grid.Width())) grid.SetColWidth(p.NextMemoryNumber - 1, *w);
    grid.SetColAlignment(p.NextMemoryNumber - 1, 1);
    ArrangeMemory(p);
    core::FocusEqual(p);
}

}  // namespace

// Two chosen colours that share no bit count as none: the cell keeps the
// colours of its design.
void ApplyCellColours(core::Program& p, forms::Form& cell) {
    if ((p.MemoryBackColor & p.MemoryReadoutColor) == 0) return;
    p.runtime.Load(cell);
    cell.SetBackColor(static_cast<std::uint32_t>(p.MemoryBackColor));
    ValueLabel(cell).SetBackColor(static_cast<std::uint32_t>(p.MemoryReadoutColor));
}

void NewMemoryClick(core::Program& p) {
    forms::Form& cell = p.NewMemoryForm();
    ApplyCellColours(p, cell);
    p.runtime.Load(cell);
    cell.SetCaption("Memory" + StrForm(p.NextMemoryNumber));
    ValueLabel(cell).SetTag("memory" + StrForm(p.NextMemoryNumber));
    NameTheTape(p, cell);
    CountTheCell(p);
    cell.SetTop(0);
    cell.SetLeft(0);
    cell.Show();
    if (p.NextMemoryNumber == 2) {
        // The first cell since the start or the last erase sets the width.
        p.MemoryWidth = kFirstCellWidth;
    } else {
        cell.SetWidth(p.MemoryWidth);
    }
    FinishCell(p, cell);
}

void NamedMemoryClick(core::Program& p) {
    AskForName(p, "Memory" + StrForm(p.NextMemoryNumber));
    // Cancelled: no cell, no number, and the calculator stays out of the
    // top-most band.
    if (p.InputResult.empty()) return;
    forms::Form& cell = p.NewMemoryForm();
    p.runtime.Load(cell);
    cell.SetCaption(p.InputResult);
    NameTheTape(p, cell);
    ApplyCellColours(p, cell);
    forms::SetTopMost(*p.Calculator, true);
    if (cell.Caption().empty()) {
        p.runtime.Unload(cell);
        return;
    }
    ValueLabel(cell).SetTag("memory" + StrForm(p.NextMemoryNumber));
    CountTheCell(p);
    if (p.NextMemoryNumber == 2) {
        cell.Move(0, 0, cell.Width(), cell.Height());
        p.MemoryWidth = kFirstCellWidth;
    } else {
        // 630 high, where the Resize of a cell makes every cell 585.
        cell.Move(0, 0, p.MemoryWidth, kNamedCellHeight);
    }
    FinishCell(p, cell);
}

}  // namespace memory
