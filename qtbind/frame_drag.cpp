#include "qtbind/frame_drag.h"

#include <algorithm>

namespace qtbind {

Qt::Edges FrameDrag::EdgesAt(const QPoint& local, const QSize& size) const {
    Qt::Edges edges;
    if (local.y() < band_) edges |= Qt::TopEdge;
    if (local.y() >= size.height() - band_) edges |= Qt::BottomEdge;
    if (local.x() < band_) edges |= Qt::LeftEdge;
    if (local.x() >= size.width() - band_) edges |= Qt::RightEdge;
    return edges;
}

Qt::CursorShape FrameDrag::CursorFor(Qt::Edges edges) {
    const bool vertical = edges & (Qt::TopEdge | Qt::BottomEdge);
    const bool horizontal = edges & (Qt::LeftEdge | Qt::RightEdge);
    if (vertical && horizontal) {
        // Top left and bottom right run one way, the other two the other.
        const bool falling = bool(edges & Qt::TopEdge) == bool(edges & Qt::LeftEdge);
        return falling ? Qt::SizeFDiagCursor : Qt::SizeBDiagCursor;
    }
    if (vertical) return Qt::SizeVerCursor;
    if (horizontal) return Qt::SizeHorCursor;
    return Qt::ArrowCursor;
}

void FrameDrag::Begin(Qt::Edges edges, const QPoint& globalPos, const QRect& geometry) {
    edges_ = edges;
    moving_ = false;
    start_ = globalPos;
    geometry_ = geometry;
}

void FrameDrag::BeginMove(const QPoint& globalPos, const QRect& geometry) {
    edges_ = Qt::Edges();
    moving_ = true;
    start_ = globalPos;
    geometry_ = geometry;
}

QRect FrameDrag::Update(const QPoint& globalPos) const {
    const QPoint d = globalPos - start_;
    if (moving_) return geometry_.translated(d);
    const int minimum = 2 * band_;
    int left = geometry_.left(), top = geometry_.top();
    int right = geometry_.left() + geometry_.width();
    int bottom = geometry_.top() + geometry_.height();
    if (edges_ & Qt::LeftEdge) left = std::min(left + d.x(), right - minimum);
    if (edges_ & Qt::RightEdge) right = std::max(right + d.x(), left + minimum);
    if (edges_ & Qt::TopEdge) top = std::min(top + d.y(), bottom - minimum);
    if (edges_ & Qt::BottomEdge) bottom = std::max(bottom + d.y(), top + minimum);
    return QRect(left, top, right - left, bottom - top);
}

}  // namespace qtbind
