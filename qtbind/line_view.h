// A drawn line: a rule from the top left to the bottom right of its box in
// the control's fore colour. A level rule has a box one pixel high.
#pragma once

#include <QColor>
#include <QWidget>

namespace qtbind {

class LineView : public QWidget {
  public:
    explicit LineView(QWidget* parent);
    void SetColor(const QColor& color);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor color_;
};

}  // namespace qtbind
