// What only the X server and its window manager know of a top-level window:
// the frame the window manager draws around it, and the band of windows kept
// above all others. Qt learns of a frame's moves only when the window manager
// chooses to tell the client (openbox tells it once the user lets go), so
// the frames are watched here directly.
//
// On any other platform (offscreen, Wayland) each call answers "unknown" or
// does nothing.
#pragma once

#include <QAbstractNativeEventFilter>
#include <QMargins>
#include <QRect>
#include <functional>
#include <optional>
#include <unordered_map>

class QWidget;

namespace qtbind {

class X11Desktop : public QAbstractNativeEventFilter {
  public:
    // Installs itself as the application's native event filter on X11.
    X11Desktop();
    ~X11Desktop() override;
    X11Desktop(const X11Desktop&) = delete;
    X11Desktop& operator=(const X11Desktop&) = delete;

    static bool OnX11();

    // The frame that the window manager put around `window`, in Qt's
    // pixels: its outer rectangle on the screen and how far it reaches
    // past the client area. Empty while the window is not mapped or has no
    // frame of the window manager's (no window manager runs, or it has not
    // framed the window yet).
    struct Frame {
        QRect outer;
        QMargins margins;
    };
    std::optional<Frame> FrameOf(QWidget* window) const;

    // Puts the window into the band that floats above other windows, or
    // takes it out, as the window manager shows it (_NET_WM_STATE_ABOVE).
    void SetAbove(QWidget* window, bool above);

    // Calls `moved` whenever the window manager moves or sizes the frame
    // around `window`, the user's drags of the title bar included. Watching again replaces the
    // call; a frame made anew (the window mapped again) is found by calling it again.
    void Watch(QWidget* window, std::function<void()> moved);
    void Forget(QWidget* window);

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

  private:
    struct Watched {
        QWidget* window;
        std::function<void()> moved;
    };
    std::unordered_map<unsigned, Watched> frames_;  // by frame window
    bool installed_ = false;
};

}  // namespace qtbind
