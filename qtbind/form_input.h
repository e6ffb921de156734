// Real input on the widgets of one form, handed to the model's events.
//
// Keys: a form that has keyboard handlers of its own sees every key before
// its controls do (KeyDown, KeyPress, KeyUp), and the key then goes no
// further, so that a focused button never presses itself on Enter or the
// blank. On other forms Escape presses the cancel button and Enter the
// focused or the default button, as in any dialog; otherwise the focused
// control's KeyDown comes first and the widget may then act on the key
// itself.
// Mouse: a press is the control's MouseDown (or the form's, on the form's
// own area), run by the runtime, which then begins the drag of a control
// that drags automatically; letting go is the MouseUp, and on the form's own
// area, where it was pressed, its Click; a left click on a button is its
// Click, a double click on a label, the grid or the form its DblClick. So a
// double click on the form's own area is MouseDown, MouseUp, Click,
// DblClick and MouseUp. Focus given by the user goes to the model's focus.
// Copy and popup keys: see SetCopy and SetPopupKey.
#pragma once

#include <QObject>
#include <functional>
#include <unordered_map>

#include "forms/form.h"
#include "qtbind/pixel_scale.h"

class QKeyEvent;
class QMouseEvent;
class QWidget;

namespace qtbind {

class FormInput : public QObject {
  public:
    // `afterEvent` runs after every event that reached the model.
    FormInput(forms::Form& form, const PixelScale& scale, std::function<void()> afterEvent);

    // Watches a widget that stands for `control`, or for the form itself
    // when `control` is null. A window watched for keys only keeps its mouse
    // for its own frame.
    void Watch(QWidget* widget, forms::Control* control, bool keysOnly = false);
    void Detach();
    // Runs at every press on any watched widget, before the press is
    // handled (a memory cell is activated by it).
    void SetPressHook(std::function<void()> hook) { pressHook_ = std::move(hook); }
    // Ctrl+C (or Ctrl+Insert) copies a value, the menu key (or Shift+F10)
    // opens a popup menu; each after the model has had the key as usual.
    void SetCopy(std::function<void()> copy) { copy_ = std::move(copy); }
    void SetPopupKey(std::function<void()> popup) { popupKey_ = std::move(popup); }
    // While set, focus changes are the model's own and are not reported.
    void SetApplyingFocus(bool on) { applyingFocus_ = on; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool FormHasKeys() const;
    bool IsFirstDelivery(QObject* watched) const;
    bool KeyPressed(QObject* watched, forms::Control* control, QKeyEvent& event);
    bool KeyReleased(QObject* watched, QKeyEvent& event);
    bool PressedAButton(forms::Control* control, const QKeyEvent& event);
    // A mouse event as the model's MouseDown and MouseUp take it: the
    // button, the shift state and the place in twips.
    struct ModelMouse {
        int button;
        int shift;
        float x;
        float y;
    };
    ModelMouse ToModel(const QMouseEvent& event) const;
    bool MousePressed(QWidget* widget, forms::Control* control, QMouseEvent& event);
    bool MouseReleased(QWidget* widget, forms::Control* control, QMouseEvent& event);
    bool DoubleClicked(QWidget* widget, forms::Control* control);
    void FocusGained(forms::Control* control);

    forms::Form* form_;
    PixelScale scale_;
    std::function<void()> afterEvent_;
    std::function<void()> pressHook_;
    std::function<void()> copy_;
    std::function<void()> popupKey_;
    struct Watched {
        forms::Control* control;
        bool keysOnly;
    };
    std::unordered_map<const QObject*, Watched> watched_;
    bool applyingFocus_ = false;
    // The widget that the left button went down on, until it is let go.
    const QWidget* leftPressedOn_ = nullptr;
    // The widget that holds the mouse after a double click, until the
    // release.
    QWidget* heldForRelease_ = nullptr;
};

}  // namespace qtbind
