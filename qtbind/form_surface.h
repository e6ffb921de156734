// The inner area of a form: its back colour, with the controls as child
// widgets on it. It can draw a sunken frame around one child, two pixels
// outside it, on the form itself; that frame belongs to no control, so it
// is drawn again with every paint.
#pragma once

#include <QColor>
#include <QPointer>
#include <QWidget>

namespace qtbind {

class FormSurface : public QWidget {
  public:
    explicit FormSurface(QWidget* parent);

    void SetBackColor(const QColor& color);
    void SetSunkenEdgeAround(QWidget* child);
    QWidget* SunkenEdgeChild() const { return edgeChild_; }

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QColor back_;
    QPointer<QWidget> edgeChild_;
};

}  // namespace qtbind
