// A key of the key pad: a raised 3-D push button with a black rim, a white
// upper and left bevel and a grey lower and right one. Pressed, it sinks
// and its caption moves a pixel down and right; with the focus it shows a
// dotted rectangle around its caption.
#pragma once

#include <QAbstractButton>

namespace qtbind {

class KeyButton : public QAbstractButton {
  public:
    explicit KeyButton(QWidget* parent);

    QSize sizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace qtbind
