#include "qtbind/applied_geometry.h"

namespace qtbind {

void AppliedGeometry::Remember(const QPoint& position, const QSize& size) {
    if (!entries_.empty() && entries_.back().position == position && entries_.back().size == size) {
        return;
    }
    entries_.push_back({position, size});
    while (entries_.size() > kKept) entries_.pop_front();
}

bool AppliedGeometry::IsEcho(const QPoint& position, const QSize& size) {
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (entries_[i].position == position && entries_[i].size == size) {
            if (i + 1 == entries_.size()) {
                entries_.erase(entries_.begin(), entries_.end() - 1);
            }
            return true;
        }
    }
    return false;
}

}  // namespace qtbind
