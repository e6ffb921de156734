// The model's automatic drag on screen. The runtime begins a drag when the
// left button goes down on a control that drags automatically; from then on
// this tracker holds the mouse: every move finds the control under the
// pointer, in whichever of the program's windows it lies, and tells the
// runtime (DragMove), letting go drops there (Drop), and Escape calls the
// drag off (CancelDrag). Keys do nothing else while the drag lasts.
//
// The drag shows the source's DragIcon as the mouse cursor, over all the
// program's windows, and changes it whenever a handler sets a new icon.
#pragma once

#include <QCursor>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "qtbind/pixel_scale.h"

class QWidget;

namespace forms {
class Control;
class Form;
class Runtime;
}  // namespace forms

namespace qtbind {

class DragTracker : public QObject {
  public:
    struct Hooks {
        // The widget that shows a control, or nullptr.
        std::function<QWidget*(const forms::Control&)> widgetFor;
        // The control under a point of the screen, and that point in its
        // widget; nullptr over none.
        std::function<forms::Control*(const QPoint& global, QPoint& local)> controlAt;
        // The form whose own area lies under a point of the screen where no
        // control is, and that point in twips of its inner area; nullptr
        // over none.
        std::function<forms::Form*(const QPoint& global, QPointF& twips)> formAt;
        // After every event that reached the model.
        std::function<void()> afterEvent;
    };

    // Watches the whole application's input; needs a QApplication.
    DragTracker(forms::Runtime& runtime, const PixelScale& scale, Hooks hooks);
    ~DragTracker() override;
    DragTracker(const DragTracker&) = delete;
    DragTracker& operator=(const DragTracker&) = delete;

    // What the runtime tells its observer.
    void Started(forms::Control& source);
    void IconChanged(const std::string& picture);
    void Ended();

    bool Active() const { return active_; }
    // The picture that the cursor shows now, while a drag lasts.
    std::optional<std::string> Picture() const;

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    bool MouseEvent(QEvent& event);
    bool KeyEvent(QEvent& event);
    // The control under the pointer and the position there in twips.
    forms::Control* TargetAt(const QPointF& global, float& x, float& y) const;
    void Move(const QPointF& global);
    void Release(const QPointF& global);
    void Cancel();
    const QCursor& CursorFor(const std::string& picture);
    void Stop();

    forms::Runtime& runtime_;
    PixelScale scale_;
    Hooks hooks_;
    bool active_ = false;
    std::string picture_;
    QPointer<QWidget> grabber_;
    // The release of the Escape that called a drag off belongs to no one.
    bool swallowEscapeRelease_ = false;
    std::map<std::string, QCursor> cursors_;
};

}  // namespace qtbind
