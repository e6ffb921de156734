#include "qtbind/cell_stage.h"

#include <QRegion>
#include <algorithm>

namespace qtbind {

void CellStage::Raise(forms::Form& cell) {
    auto found = where_.find(&cell);
    if (found != where_.end()) {
        if (std::next(found->second) == order_.end()) return;  // on top already
        order_.splice(order_.end(), order_, found->second);
        return;
    }
    order_.push_back(&cell);
    where_[&cell] = std::prev(order_.end());
}

void CellStage::Remove(const forms::Form& cell) {
    auto found = where_.find(&cell);
    if (found == where_.end()) return;
    order_.erase(found->second);
    where_.erase(found);
}

std::vector<forms::Form*> CellStage::Showing(
    const QRect& area, const std::function<QRect(const forms::Form&)>& rectOf) const {
    std::vector<forms::Form*> showing;
    if (area.isEmpty()) return showing;
    // From the top down: what is left of the area once the cells above are
    // taken away. Once nothing is left, no cell below can show.
    QRegion open(area);
    for (auto it = order_.rbegin(); it != order_.rend() && !open.isEmpty(); ++it) {
        const QRect rect = rectOf(**it) & area;
        if (rect.isEmpty() || !open.intersects(rect)) continue;
        // Some of it is still open: the cell shows, and covers what it holds.
        showing.push_back(*it);
        open -= rect;
    }
    std::reverse(showing.begin(), showing.end());
    return showing;
}

}  // namespace qtbind
