// The drag of a window's edges by hand, for a window that draws its own
// sizing frame: which edges lie under the mouse, the cursor that says so,
// and the rectangle that the drag asks for as the mouse moves.
#pragma once

#include <QCursor>
#include <QPoint>
#include <QRect>
#include <Qt>

namespace qtbind {

class FrameDrag {
  public:
    // `band` is the depth of the frame in pixels; the mouse catches an edge
    // anywhere within it.
    explicit FrameDrag(int band) : band_(band) {}

    void SetBand(int band) { band_ = band; }
    Qt::Edges EdgesAt(const QPoint& local, const QSize& size) const;
    static Qt::CursorShape CursorFor(Qt::Edges edges);

    void Begin(Qt::Edges edges, const QPoint& globalPos, const QRect& geometry);
    bool Active() const { return edges_ != Qt::Edges(); }
    // The geometry asked for with the mouse at `globalPos`: the edges held
    // move with it, the others stay.
    QRect Update(const QPoint& globalPos) const;
    void End() { edges_ = Qt::Edges(); }

  private:
    int band_;
    Qt::Edges edges_;
    QPoint start_;
    QRect geometry_;
};

}  // namespace qtbind
