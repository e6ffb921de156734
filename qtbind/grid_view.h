// The text grid of the tape on screen: from its first visible row down and
// from its first visible column across, one line of text per row, on the
// grid's back colour, without grid lines or scroll bars. The wheel and the
// Up, Down, Page and Home/End keys scroll it by changing the model's TopRow.
// Screen readers find it as a list of the lines of the tape on show
// (TapeAccessible).
#pragma once

#include <QWidget>
#include <functional>

#include "forms/grid.h"
#include "qtbind/pixel_scale.h"

namespace qtbind {

class GridView : public QWidget {
  public:
    GridView(forms::Grid& grid, const PixelScale& scale, QWidget* parent);

    // The model grid goes away with its form; from then on nothing is read.
    void Detach() { grid_ = nullptr; }
    const forms::Grid* Grid() const { return grid_; }
    // How many lines a tape (a column) holds: the grid itself keeps more
    // rows than it uses. Told by whoever keeps the count.
    void SetLineCount(std::function<int(int column)> count) { lineCount_ = std::move(count); }
    int LineCount(int column) const;
    // The model's grid changed: it is drawn anew, and a screen reader that
    // has looked at the tape hears of its lines once the statements that
    // write them are over.
    void ModelChanged();
    // A screen reader has asked for the tape's lines (TapeAccessible).
    void SetListened() { listened_ = true; }
    // The height of one line on screen.
    int RowPixels() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    int VisibleRows() const;
    void ScrollTo(int topRow);

    forms::Grid* grid_;
    PixelScale scale_;
    std::function<int(int)> lineCount_;
    bool listened_ = false;
    bool accessibleUpdatePending_ = false;
    int wheelRemainder_ = 0;
};

}  // namespace qtbind
