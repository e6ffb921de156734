// The geometries that the program itself gave a window lately. The window
// system reports each of them back, sometimes late and one after another;
// a report that matches one of them is an echo and not the user's doing.
#pragma once

#include <QPoint>
#include <QSize>
#include <deque>

namespace qtbind {

class AppliedGeometry {
  public:
    void Remember(const QPoint& position, const QSize& size);
    // True for an echo. Once the latest geometry comes back, the older ones
    // can no longer arrive and are forgotten.
    bool IsEcho(const QPoint& position, const QSize& size);

  private:
    struct Entry {
        QPoint position;
        QSize size;
    };
    static constexpr std::size_t kKept = 8;
    std::deque<Entry> entries_;
};

}  // namespace qtbind
