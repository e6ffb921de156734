// The text grid of the tape on screen: from its first visible row down and
// from its first visible column across, one line of text per row, on the
// grid's back colour, without grid lines or scroll bars. The wheel and the
// Up, Down, Page and Home/End keys scroll it by changing the model's TopRow.
#pragma once

#include <QWidget>

#include "forms/grid.h"
#include "qtbind/pixel_scale.h"

namespace qtbind {

class GridView : public QWidget {
  public:
    GridView(forms::Grid& grid, const PixelScale& scale, QWidget* parent);

    // The model grid goes away with its form; from then on nothing is read.
    void Detach() { grid_ = nullptr; }

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    int RowPixels() const;
    int VisibleRows() const;
    void ScrollTo(int topRow);

    forms::Grid* grid_;
    PixelScale scale_;
    int wheelRemainder_ = 0;
};

}  // namespace qtbind
