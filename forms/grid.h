// The text grid that holds every tape: rows by columns of text cells, a
// current cell (Row, Col) that Text reads and writes, and the first visible
// row and column. A setter that names a row or column outside the grid fails
// and returns false; the caller's statement is then dropped.
//
// One row count serves every column, but a column holds only the rows up
// to the last one written in it: a cell below that, or in a column never
// written, reads as "". So the grid costs what its tapes hold, not the
// longest tape times the number of tapes.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "forms/control.h"

namespace forms {

class Grid : public Control {
  public:
    Grid(Form& form, std::string name);

    std::int16_t Rows() const { return rows_; }
    bool SetRows(int rows);
    std::int16_t Cols() const { return cols_; }
    bool SetCols(int cols);

    std::int16_t Row() const { return row_; }
    bool SetRow(int row);
    std::int16_t Col() const { return col_; }
    bool SetCol(int col);

    // The cell at (Row, Col).
    const std::string& Text() const;
    bool SetText(std::string text);
    const std::string& Cell(int row, int col) const;
    bool SetCell(int row, int col, std::string text);

    std::int16_t TopRow() const { return topRow_; }
    bool SetTopRow(int row);
    std::int16_t LeftCol() const { return leftCol_; }
    bool SetLeftCol(int col);

    // Row heights are all alike in this program; ColWidth may differ.
    int RowHeight(int row) const;
    double ColWidth(int col) const;
    bool SetColWidth(int col, double width);
    int ColAlignment(int col) const;
    bool SetColAlignment(int col, int alignment);

    static constexpr int kRowHeight = 225;  // twips: one line of the tape

  private:
    std::string& At(int row, int col);
    std::int16_t rows_ = 10, cols_ = 1, row_ = 0, col_ = 0, topRow_ = 0, leftCol_ = 0;
    // [col][row], each column as long as its last written row.
    std::vector<std::vector<std::string>> cells_;
    std::vector<double> colWidths_;
    std::vector<int> colAlignments_;
};

}  // namespace forms
