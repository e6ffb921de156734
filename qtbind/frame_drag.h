// The drag of a window's edges or of its title bar by hand, for a window
// that draws its own frame: which edges lie under the mouse, the cursor that
// says so, and the rectangle that the drag asks for as the mouse moves.
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

    // Sizing: the edges held follow the mouse.
    void Begin(Qt::Edges edges, const QPoint& globalPos, const QRect& geometry);
    // Moving by the title bar: the whole rectangle follows the mouse.
    void BeginMove(const QPoint& globalPos, const QRect& geometry);
    bool Active() const { return moving_ || edges_ != Qt::Edges(); }
    bool Moving() const { return moving_; }
    // The geometry asked for with the mouse at `globalPos`.
    QRect Update(const QPoint& globalPos) const;
    void End() {
        edges_ = Qt::Edges();
        moving_ = false;
    }

  private:
    int band_;
    Qt::Edges edges_;
    bool moving_ = false;
    QPoint start_;
    QRect geometry_;
};

}  // namespace qtbind
