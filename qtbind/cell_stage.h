// The memory cells inside the memory window as the user sees them: the
// order in which they lie on one another, and which of them show at all.
// A cell wholly covered by the cells above it, or outside the window's
// area, shows nothing, so it needs no widgets: the binding builds windows
// only for the cells that show, and any number of cells costs what the
// memory window shows.
#pragma once

#include <QRect>
#include <functional>
#include <list>
#include <unordered_map>
#include <vector>

namespace forms {
class Form;
}

namespace qtbind {

class CellStage {
  public:
    // Puts the cell on top of the others: a new cell, or the active one.
    void Raise(forms::Form& cell);
    void Remove(const forms::Form& cell);
    bool Contains(const forms::Form& cell) const { return where_.count(&cell) != 0; }
    std::size_t Size() const { return order_.size(); }
    // Every cell, the bottom one first.
    std::vector<forms::Form*> Order() const { return {order_.begin(), order_.end()}; }

    // The cells of which some part shows in `area`, the bottom one first.
    // `rectOf` tells where a cell lies, in the area's own pixels; a cell
    // that is not on show gives an empty rectangle. Cells are opaque, so a
    // cell shows where no cell above it covers it.
    std::vector<forms::Form*> Showing(const QRect& area,
                                      const std::function<QRect(const forms::Form&)>& rectOf) const;

  private:
    std::list<forms::Form*> order_;  // the bottom one first
    std::unordered_map<const forms::Form*, std::list<forms::Form*>::iterator> where_;
};

}  // namespace qtbind
