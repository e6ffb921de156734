// The store of every tape: the grid Grid1 of the tape window, one column per
// tape, plus the row count and title of each tape. Lines get onto a tape only
// through TapeAddRows and a write into the rows it reserved; the store itself
// never reads a line back.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/grid.h"

namespace tape {

class TapeStore {
  public:
    explicit TapeStore(forms::Grid& grid);

    forms::Grid& Grid1() const { return *grid_; }

    // Back to the one calculator tape, as when the tape window is loaded.
    void Reset();

    // TapeRowCount(t), the number of the last used row of tape t, and
    // TapeNames(t), its title; both arrays have the same bound.
    const std::vector<std::int16_t>& TapeRowCount() const { return rowCount_; }
    std::vector<std::int16_t>& TapeRowCount() { return rowCount_; }
    const std::vector<std::string>& TapeNames() const { return names_; }
    std::vector<std::string>& TapeNames() { return names_; }

    std::int16_t CurrentTape = 0;

    // Reserves `count` more rows on `tape` and grows the grid to keep ten
    // empty rows below it.
    void TapeAddRows(std::int16_t tape, std::int16_t count);
    // Appends the three rows of a clear: a blank, "Clear ", a blank.
    void TapeWriteClear(std::int16_t tape);
    // Scrolls so that the last line of the tape on show sits on the bottom
    // line of the grid.
    void TapeScrollToEnd();

    // The writers' common pattern: TapeAddRows(tape, n), optionally
    // Grid1.Col := tape, then the n lines addressed backwards from the new end.
    // The scroll is left to the caller.
    void AppendLines(std::int16_t tape, const std::vector<std::string>& lines, bool selectColumn);

  private:
    forms::Grid* grid_;
    std::vector<std::int16_t> rowCount_;
    std::vector<std::string> names_;
};

}  // namespace tape
