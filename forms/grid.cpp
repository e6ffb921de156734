#include "forms/grid.h"

#include <limits>

namespace forms {

namespace {
bool FitsInt16(int v) {
    return v >= 0 && v <= std::numeric_limits<std::int16_t>::max();
}
const std::string kEmpty;
}  // namespace

Grid::Grid(Form& form, std::string name) : Control(form, std::move(name), ControlKind::Grid) {
    cells_.resize(1);
    colWidths_.assign(1, 0.0);
    colAlignments_.assign(1, 0);
}

bool Grid::SetRows(int rows) {
    if (!FitsInt16(rows) || rows < 1) return false;
    rows_ = static_cast<std::int16_t>(rows);
    // Rows cut off are gone: grown again, they read as empty.
    for (auto& column : cells_) {
        if (column.size() > static_cast<std::size_t>(rows_)) column.resize(rows_);
    }
    if (row_ >= rows_) row_ = static_cast<std::int16_t>(rows_ - 1);
    if (topRow_ >= rows_) topRow_ = static_cast<std::int16_t>(rows_ - 1);
    Changed();
    return true;
}

bool Grid::SetCols(int cols) {
    if (!FitsInt16(cols) || cols < 1) return false;
    cols_ = static_cast<std::int16_t>(cols);
    cells_.resize(cols_);
    colWidths_.resize(cols_, colWidths_.empty() ? 0.0 : colWidths_.front());
    colAlignments_.resize(cols_, 0);
    if (col_ >= cols_) col_ = static_cast<std::int16_t>(cols_ - 1);
    if (leftCol_ >= cols_) leftCol_ = static_cast<std::int16_t>(cols_ - 1);
    Changed();
    return true;
}

bool Grid::SetRow(int row) {
    if (row < 0 || row >= rows_) return false;
    row_ = static_cast<std::int16_t>(row);
    return true;
}

bool Grid::SetCol(int col) {
    if (col < 0 || col >= cols_) return false;
    col_ = static_cast<std::int16_t>(col);
    return true;
}

const std::string& Grid::Cell(int row, int col) const {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) return kEmpty;
    const auto& column = cells_[col];
    return static_cast<std::size_t>(row) < column.size() ? column[row] : kEmpty;
}

std::string& Grid::At(int row, int col) {
    auto& column = cells_[col];
    if (static_cast<std::size_t>(row) >= column.size()) column.resize(row + 1);
    return column[row];
}

const std::string& Grid::Text() const {
    return Cell(row_, col_);
}

bool Grid::SetText(std::string text) {
    return SetCell(row_, col_, std::move(text));
}

bool Grid::SetCell(int row, int col, std::string text) {
    if (row < 0 || row >= rows_ || col < 0 || col >= cols_) return false;
    At(row, col) = std::move(text);
    Changed();
    return true;
}

bool Grid::SetTopRow(int row) {
    if (row < 0 || row >= rows_) return false;
    topRow_ = static_cast<std::int16_t>(row);
    Changed();
    return true;
}

bool Grid::SetLeftCol(int col) {
    if (col < 0 || col >= cols_) return false;
    leftCol_ = static_cast<std::int16_t>(col);
    Changed();
    return true;
}

int Grid::RowHeight(int) const {
    return kRowHeight;
}

double Grid::ColWidth(int col) const {
    if (col < 0 || col >= cols_) return 0;
    return colWidths_[col];
}

bool Grid::SetColWidth(int col, double width) {
    if (col < 0 || col >= cols_ || width < 0) return false;
    colWidths_[col] = width;
    Changed();
    return true;
}

int Grid::ColAlignment(int col) const {
    if (col < 0 || col >= cols_) return 0;
    return colAlignments_[col];
}

bool Grid::SetColAlignment(int col, int alignment) {
    if (col < 0 || col >= cols_) return false;
    colAlignments_[col] = alignment;
    Changed();
    return true;
}

}  // namespace forms
