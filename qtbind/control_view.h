// One control of a model form on screen: the widget that stands for it and
// the code that makes the widget show the control as it is now. Labels are
// QLabels, the keys of the pad raised 3-D keys, plain buttons QPushButtons,
// the grid a GridView, text boxes QLineEdits and lines drawn rules; hidden
// pictures and the common dialog have no widget at all.
#pragma once

#include <QWidget>
#include <functional>
#include <utility>

#include "forms/control.h"
#include "qtbind/pixel_scale.h"

namespace qtbind {

class ControlView {
  public:
    // `clicked` runs when a button is clicked with the left mouse button.
    ControlView(forms::Control& control, QWidget* parent, const PixelScale& scale,
                std::function<void(forms::Control&)> clicked);
    ControlView(const ControlView&) = delete;
    ControlView& operator=(const ControlView&) = delete;

    forms::Control* Control() const { return control_; }
    QWidget* Widget() const { return widget_; }

    // Brings the widget up to date with every property of the control;
    // properties that did not change leave the widget alone.
    void Apply();
    // A control covered whole by controls in front of it takes no focus
    // from the Tab key; uncovered, it takes it as its widget always has.
    void SetCovered(bool covered);
    // The control is going away with its form: the widget forgets it.
    void Detach();

  private:
    QWidget* MakeWidget(QWidget* parent);
    // The name and description that screen readers get: the control's name
    // as a person reads it ("7", "Clear entry", "Readout"; accessible_names)
    // and its tool tip.
    void ApplyAccessibleText();
    void ApplyGeometry();
    void ApplyLooks();
    void ApplyCaption();

    forms::Control* control_;
    PixelScale scale_;
    std::function<void(forms::Control&)> clicked_;
    QWidget* widget_ = nullptr;
    bool settingText_ = false;
    bool coveredSet_ = false;
    Qt::FocusPolicy ownFocus_ = Qt::NoFocus;      // the widget's own, before any cover
    std::pair<int, int> appliedSelection_{0, 0};  // of a text box: start and length
};

}  // namespace qtbind
