#include "memory/memory_parent.h"

#include "core/evaluate.h"
#include "forms/top_most.h"
#include "measure/whole_numbers.h"
#include "memory/cell_layout.h"
#include "memory/cells.h"

namespace memory {

namespace {

constexpr double kClosedWidth = 2055;

// A maximised parent leaves the top-most band, so that it does not cover
// everything; the calculator and its companions stay in it, the calculator
// in front.
void KeepWindowBands(core::Program& p) {
    forms::Form& parent = *p.MDIForm1;
    const std::int16_t state = parent.WindowState();
    if (state == forms::kMinimized) return;
    forms::SetTopMost(parent, state == forms::kNormal);
    if (p.Converter->Visible()) forms::SetTopMost(*p.Converter, true);
    if (p.frmTape->Visible()) forms::SetTopMost(*p.frmTape, true);
    forms::SetTopMost(*p.Calculator, true);
    core::FocusEqual(p);
}

}  // namespace

void MemoryParentResize(core::Program& p) {
    KeepWindowBands(p);
    if (p.ResizeSkip == 1 && p.MemoryCount > 2) {
        // The Resize that this handler's own move below caused.
        p.ResizeSkip = 0;
        return;
    }
    if (p.ArrangingMemory == 1) return;
    p.ResizeSkip = 1;

    const auto& open = p.runtime.OpenForms();
    for (std::size_t i = 0; i < open.size(); ++i) {
        forms::Form& f = *open[i];
        if (IsCell(f) && f.Width() > p.MemoryWidth) {
            if (auto w = measure::ToInt16(f.Width())) p.MemoryWidth = *w;
        }
    }
    std::vector<int> order;
    if (p.MemoryCount > 1) {
        for (std::size_t i = 0; i < open.size(); ++i) {
            forms::Form& f = *open[i];
            if (!IsCell(f)) continue;
            f.SetWidth(p.MemoryWidth);
            order.push_back(static_cast<int>(i));
        }
    }
    // The first cell of the list, or with none the form at index 0.
    forms::Form* reference = open.empty() ? nullptr : open[0];
    for (forms::Form* f : open) {
        if (IsCell(*f)) {
            reference = f;
            break;
        }
    }
    GridSteps steps;
    steps.rowHeight = 585;
    steps.pitch = reference ? reference->Height() : 0;
    steps.grow = GrowGrid::OnceOnly;
    RunGridSteps(p, steps, order);
}

void MemoryParentUnload(core::Program& p, int& cancel) {
    forms::Form& parent = *p.MDIForm1;
    p.ArrangingMemory = 1;
    parent.SetWindowState(forms::kNormal);
    parent.SetWidth(kClosedWidth);
    parent.SetCaption("Memory");
    parent.Hide();
    // Walking downward finds every cell, however the list closes up.
    for (std::size_t i = p.runtime.OpenForms().size(); i-- > 0;) {
        forms::Form* f = OpenFormAt(p, i);
        if (f && IsCell(*f)) p.runtime.Unload(*f);
    }
    p.tape->Grid1().SetCols(1);
    p.tape->TapeRowCount().resize(1);
    p.tape->TapeNames().resize(1);
    p.MemoryCount = 1;
    p.NextMemoryNumber = 1;
    // The parent is not really closed: it stays loaded, with its place,
    // for the next cell.
    cancel = 1;
    parent.Hide();
    p.ArrangingMemory = 0;
}

}  // namespace memory
