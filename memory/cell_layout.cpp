#include "memory/cell_layout.h"

#include "measure/whole_numbers.h"
#include "memory/cells.h"

namespace memory {

namespace {

using measure::ToInt16;

// A 16-bit product; nullopt where it overflows.
std::optional<std::int16_t> Times(std::int32_t a, std::int32_t b) {
    return ToInt16(static_cast<double>(a) * b);
}

// The grid grows along its longer side (the rows, when the two are equal)
// until two more of that side would not fit on the screen, then along the
// other. A test whose product overflows takes the longer side.
void GrowUntilScreen(core::Program& p, std::int16_t& columns, std::int16_t& rows,
                     std::int16_t count, double rowHeight) {
    const forms::ScreenInfo& screen = p.runtime.Screen();
    for (;;) {
        // A product past 32,767 holds more cells than a count can be.
        auto cells = Times(columns, rows);
        if (!cells || *cells >= count) break;
        const std::int16_t columnsBefore = columns, rowsBefore = rows;
        if (columns > rows) {
            auto wide = Times(columns + 2, p.MemoryWidth);
            if (!wide || *wide < screen.width) {
                if (auto c = measure::AddInt16(columns, 1)) columns = *c;
            } else if (auto r = measure::AddInt16(rows, 1)) {
                rows = *r;
            }
        } else {
            auto high = ToInt16((rows + 2) * rowHeight);
            if (!high || *high < screen.height) {
                if (auto r = measure::AddInt16(rows, 1)) rows = *r;
            } else if (auto c = measure::AddInt16(columns, 1)) {
                columns = *c;
            }
        }
        // At the end of the 16-bit range nothing grows any more.
        if (columns == columnsBefore && rows == rowsBefore) break;
    }
}

}  // namespace

void RunGridSteps(core::Program& p, const GridSteps& steps, const std::vector<int>& cellOrder) {
    forms::Form& parent = *p.MDIForm1;
    const std::int16_t count = static_cast<std::int16_t>(p.MemoryCount - 1);
    std::int16_t borderWidth = 0, borderHeight = 0, columns = 0, rows = 0;

    // 1. What the frame takes.
    if (auto v = ToInt16(parent.Width() - parent.ScaleWidth())) borderWidth = *v;
    if (auto v = ToInt16(parent.Height() - parent.ScaleHeight())) borderHeight = *v;
    // 2. How many cells the inner area holds; a width of 0 fails the
    // division and leaves the columns at 0.
    if (p.MemoryWidth != 0) {
        if (auto v = ToInt16(parent.ScaleWidth() / p.MemoryWidth)) columns = *v;
    }
    if (steps.rowHeight != 0) {
        if (auto v = ToInt16(parent.ScaleHeight() / steps.rowHeight)) rows = *v;
    }
    if (columns < 1) columns = 1;
    if (rows < 1) rows = 1;

    // 3. Large enough for every cell.
    if (steps.grow == GrowGrid::UntilScreen) {
        GrowUntilScreen(p, columns, rows, count, steps.screenRowHeight);
    } else {
        auto cells = Times(columns, rows);
        if (cells && *cells < count) {
            if (columns > rows) {
                ++columns;
            } else {
                ++rows;
            }
        }
    }

    // 4. The parent takes the grid's size, unless maximised or minimised.
    if (steps.flag == GridSteps::Flag::AroundStateTest) p.ArrangingMemory = 1;
    if (parent.WindowState() == forms::kNormal) {
        if (steps.flag == GridSteps::Flag::AroundMove) p.ArrangingMemory = 1;
        // The width is 16-bit arithmetic; the height goes by the cell's own
        // Height, a floating value, and cannot overflow.
        auto wide = Times(p.MemoryWidth, columns);
        auto width = wide ? measure::AddInt16(*wide, borderWidth) : std::nullopt;
        if (width) {
            parent.Move(parent.Left(), parent.Top(), *width, steps.pitch * rows + borderHeight);
        }
        if (steps.flag == GridSteps::Flag::AroundMove) p.ArrangingMemory = 0;
    }
    if (steps.flag == GridSteps::Flag::AroundStateTest) p.ArrangingMemory = 0;

    // 5. The cells run down the first column, then down the next.
    std::int16_t x = static_cast<std::int16_t>(-p.MemoryWidth);
    std::int16_t k = 0;
    for (int c = 1; c <= columns; ++c) {
        if (auto v = measure::AddInt16(x, p.MemoryWidth)) x = *v;
        std::int16_t y = 0;
        for (int r = 1; r <= rows; ++r) {
            if (auto across = Times(rows, c)) {
                auto v = measure::AddInt16(static_cast<std::int16_t>(r), *across);
                if (v) v = measure::AddInt16(*v, static_cast<std::int16_t>(-rows));
                if (v) k = *v;
            }
            if (k > count) return;
            if (k >= 1 && static_cast<std::size_t>(k) <= cellOrder.size()) {
                if (forms::Form* cell = OpenFormAt(p, static_cast<std::size_t>(cellOrder[k - 1]))) {
                    cell->Move(x, y, cell->Width(), cell->Height());
                }
            }
            if (auto v = ToInt16(y + steps.pitch)) y = *v;
        }
    }
}

void ArrangeMemory(core::Program& p) {
    if (p.MemoryCount < 2) return;
    std::vector<int> order;
    forms::Form* reference = nullptr;
    const auto& open = p.runtime.OpenForms();
    for (std::size_t i = 0; i < open.size(); ++i) {
        forms::Form& f = *open[i];
        if (!IsCell(f)) continue;
        order.push_back(static_cast<int>(i));
        reference = &f;
        // A wider cell found late doesn't widen those before it here; the
        // resizes that follow do.
        if (f.Width() > p.MemoryWidth) {
            if (auto w = ToInt16(f.Width())) p.MemoryWidth = *w;
        } else if (f.Width() < p.MemoryWidth) {
            f.SetWidth(p.MemoryWidth);
        }
    }
    forms::Form& parent = *p.MDIForm1;
    if (p.NextMemoryNumber == 2) {
        // The parent's size for its first cell.
        if (auto w = measure::AddInt16(p.MemoryWidth, 120)) parent.SetWidth(*w);
        parent.SetHeight(1040);
        return;
    }
    const double height = reference ? reference->Height() : 0;
    GridSteps steps;
    steps.rowHeight = height;
    steps.pitch = height;
    steps.screenRowHeight = 630;
    steps.flag = GridSteps::Flag::AroundMove;
    RunGridSteps(p, steps, order);
}

void RepackCells(core::Program& p) {
    std::vector<int> order;
    forms::Form* reference = nullptr;
    const auto& open = p.runtime.OpenForms();
    for (std::size_t i = 0; i < open.size(); ++i) {
        if (!IsCell(*open[i])) continue;
        order.push_back(static_cast<int>(i));
        reference = open[i];
    }
    GridSteps steps;
    steps.rowHeight = 585;
    steps.pitch = reference ? reference->Height() : 0;
    steps.screenRowHeight = 585;
    steps.flag = GridSteps::Flag::AroundStateTest;
    RunGridSteps(p, steps, order);
}

}  // namespace memory
