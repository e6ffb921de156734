#include "tape/tape_store.h"

#include <cmath>

#include "measure/whole_numbers.h"

namespace tape {

TapeStore::TapeStore(forms::Grid& grid) : grid_(&grid) {
    Reset();
}

void TapeStore::Reset() {
    rowCount_.assign(1, 0);
    names_.assign(1, "Calculator");
}

namespace {
bool InRange(std::int16_t tape, std::size_t size) {
    return tape >= 0 && static_cast<std::size_t>(tape) < size;
}
}  // namespace

void TapeStore::TapeAddRows(std::int16_t tape, std::int16_t count) {
    if (!InRange(tape, rowCount_.size())) return;  // both statements fail on the bound
    // A count that would pass 32,767 is not stored: later lines then land on
    // the last rows again.
    if (auto sum = measure::AddInt16(rowCount_[tape], count)) rowCount_[tape] = *sum;
    auto wanted = measure::AddInt16(rowCount_[tape], 10);
    if (!wanted) return;  // past 32,767 the grid no longer grows
    if (grid_->Rows() < *wanted) grid_->SetRows(*wanted);
}

void TapeStore::AppendLines(std::int16_t tape, const std::vector<std::string>& lines,
                            bool selectColumn) {
    const auto n = static_cast<std::int16_t>(lines.size());
    TapeAddRows(tape, n);
    if (selectColumn) grid_->SetCol(tape);
    // A tape beyond the arrays fails every Row statement; a row outside the
    // grid fails too. Either way the text goes to the row current before.
    const bool counted = InRange(tape, rowCount_.size());
    for (int k = 1; k <= n; ++k) {
        if (counted) grid_->SetRow(rowCount_[tape] - (n - k));
        grid_->SetText(lines[k - 1]);
    }
}

void TapeStore::TapeWriteClear(std::int16_t tape) {
    TapeAddRows(tape, 3);
    grid_->SetCol(tape);
    // Beyond the arrays the Row statements fail and the texts all go into
    // the current cell.
    const bool counted = InRange(tape, rowCount_.size());
    if (counted) grid_->SetRow(rowCount_[tape] - 2);
    grid_->SetText(" ");
    if (counted) grid_->SetRow(rowCount_[tape] - 1);
    grid_->SetText("Clear ");
    if (counted) grid_->SetRow(rowCount_[tape]);
    grid_->SetText(" ");
}

void TapeStore::TapeScrollToEnd() {
    // A height that does not fit the 32- or 16-bit steps leaves visibleRows
    // at 0, and the routine goes on with that.
    std::int16_t visibleRows = 0;
    if (auto height = measure::ToInt32(grid_->Height())) {
        auto rows = measure::ToInt16(static_cast<double>(*height / grid_->RowHeight(0)));
        if (rows) visibleRows = *rows;
    }
    if (!InRange(CurrentTape, rowCount_.size())) return;
    const int count = rowCount_[CurrentTape];
    if (count - visibleRows < 0) {
        grid_->SetTopRow(0);
        return;
    }
    grid_->SetTopRow(count - visibleRows + 1);
}

}  // namespace tape
