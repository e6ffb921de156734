#include "qtbind/x11_desktop.h"

#include <QtGui/qguiapplication_platform.h>
#include <xcb/xcb.h>
#include <QGuiApplication>
#include <QWidget>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace qtbind {

namespace {

xcb_connection_t* Connection() {
    auto* x11 = qApp ? qApp->nativeInterface<QNativeInterface::QX11Application>() : nullptr;
    return x11 ? x11->connection() : nullptr;
}

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> Own(T* reply) {
    return Reply<T>(reply, &std::free);
}

xcb_atom_t Atom(xcb_connection_t* c, const char* name) {
    auto reply = Own(xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : XCB_ATOM_NONE;
}

xcb_window_t RootOf(xcb_connection_t* c, xcb_window_t window) {
    auto tree = Own(xcb_query_tree_reply(c, xcb_query_tree(c, window), nullptr));
    return tree ? tree->root : XCB_WINDOW_NONE;
}

// The window of the window manager's that holds `window`: its ancestor that
// is a child of the root. The window itself where nobody framed it.
xcb_window_t FrameWindowOf(xcb_connection_t* c, xcb_window_t window) {
    xcb_window_t current = window;
    for (int depth = 0; depth < 16; ++depth) {
        auto tree = Own(xcb_query_tree_reply(c, xcb_query_tree(c, current), nullptr));
        if (!tree || tree->parent == XCB_WINDOW_NONE || tree->parent == tree->root) return current;
        current = tree->parent;
    }
    return current;
}

double RatioOf(const QWidget* window) {
    const double ratio = window->devicePixelRatioF();
    return ratio > 0 ? ratio : 1.0;
}

int Logical(int native, double ratio) {
    return static_cast<int>(std::lround(native / ratio));
}

}  // namespace

X11Desktop::X11Desktop() {
    if (OnX11() && qApp) {
        qApp->installNativeEventFilter(this);
        installed_ = true;
    }
}

X11Desktop::~X11Desktop() {
    if (installed_ && qApp) qApp->removeNativeEventFilter(this);
}

bool X11Desktop::OnX11() {
    return QGuiApplication::platformName() == QLatin1String("xcb") && Connection() != nullptr;
}

std::optional<X11Desktop::Frame> X11Desktop::FrameOf(QWidget* window) const {
    xcb_connection_t* c = Connection();
    if (!c || !window || !window->isWindow() || !window->testAttribute(Qt::WA_WState_Created)) {
        return std::nullopt;
    }
    const auto id = static_cast<xcb_window_t>(window->winId());
    auto attributes =
        Own(xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, id), nullptr));
    if (!attributes || attributes->map_state != XCB_MAP_STATE_VIEWABLE) return std::nullopt;

    // The frame as the window manager draws it: what it tells in
    // _NET_FRAME_EXTENTS, which leaves out the invisible borders that some
    // window managers grab the mouse on.
    static const xcb_atom_t extentsAtom = Atom(c, "_NET_FRAME_EXTENTS");
    auto property = Own(xcb_get_property_reply(
        c, xcb_get_property(c, 0, id, extentsAtom, XCB_ATOM_CARDINAL, 0, 4), nullptr));
    if (!property || property->format != 32 || xcb_get_property_value_length(property.get()) < 16) {
        return std::nullopt;
    }
    const auto* extents = static_cast<const uint32_t*>(xcb_get_property_value(property.get()));
    // Not framed yet: the window manager tells the extents before it has
    // put the window into its frame.
    if (FrameWindowOf(c, id) == id && (extents[0] | extents[1] | extents[2] | extents[3]) != 0) {
        return std::nullopt;
    }

    auto geometry = Own(xcb_get_geometry_reply(c, xcb_get_geometry(c, id), nullptr));
    const xcb_window_t root = RootOf(c, id);
    auto origin = Own(
        xcb_translate_coordinates_reply(c, xcb_translate_coordinates(c, id, root, 0, 0), nullptr));
    if (!geometry || !origin) return std::nullopt;

    const double ratio = RatioOf(window);
    const QMargins margins(
        Logical(static_cast<int>(extents[0]), ratio), Logical(static_cast<int>(extents[2]), ratio),
        Logical(static_cast<int>(extents[1]), ratio), Logical(static_cast<int>(extents[3]), ratio));
    const QRect client(Logical(origin->dst_x, ratio), Logical(origin->dst_y, ratio),
                       Logical(geometry->width, ratio), Logical(geometry->height, ratio));
    return Frame{client.marginsAdded(margins), margins};
}

void X11Desktop::SetAbove(QWidget* window, bool above) {
    xcb_connection_t* c = Connection();
    if (!c || !window || !window->isWindow() || !window->testAttribute(Qt::WA_WState_Created)) {
        return;
    }
    const auto id = static_cast<xcb_window_t>(window->winId());
    static const xcb_atom_t stateAtom = Atom(c, "_NET_WM_STATE");
    static const xcb_atom_t aboveAtom = Atom(c, "_NET_WM_STATE_ABOVE");
    // The window manager's own request, as a pager sends it: it holds for
    // a mapped window, whatever the window asked for when it was mapped.
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = id;
    event.type = stateAtom;
    event.data.data32[0] = above ? 1 : 0;  // _NET_WM_STATE_ADD or _REMOVE
    event.data.data32[1] = aboveAtom;
    event.data.data32[2] = 0;
    event.data.data32[3] = 1;  // from an application
    xcb_send_event(c, 0, RootOf(c, id),
                   XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT | XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(c);
}

void X11Desktop::Watch(QWidget* window, std::function<void()> moved) {
    xcb_connection_t* c = Connection();
    Forget(window);
    if (!c || !window || !window->testAttribute(Qt::WA_WState_Created)) return;
    const auto id = static_cast<xcb_window_t>(window->winId());
    const xcb_window_t frame = FrameWindowOf(c, id);
    // The client's own moves reach Qt already.
    if (frame == id) return;
    const uint32_t mask = XCB_EVENT_MASK_STRUCTURE_NOTIFY;
    xcb_change_window_attributes(c, frame, XCB_CW_EVENT_MASK, &mask);
    xcb_flush(c);
    frames_[frame] = Watched{window, std::move(moved)};
}

void X11Desktop::Forget(QWidget* window) {
    std::erase_if(frames_, [window](const auto& entry) { return entry.second.window == window; });
}

bool X11Desktop::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    if (eventType != "xcb_generic_event_t" || frames_.empty()) return false;
    const auto* event = static_cast<const xcb_generic_event_t*>(message);
    const uint8_t type = event->response_type & 0x7f;
    if (type == XCB_CONFIGURE_NOTIFY) {
        const auto* configure = reinterpret_cast<const xcb_configure_notify_event_t*>(event);
        auto found = frames_.find(configure->window);
        if (found != frames_.end() && configure->event == configure->window) {
            // Copied: the call may watch or forget frames.
            const Watched watched = found->second;
            watched.moved();
        }
    } else if (type == XCB_DESTROY_NOTIFY) {
        const auto* destroy = reinterpret_cast<const xcb_destroy_notify_event_t*>(event);
        frames_.erase(destroy->window);
    }
    return false;
}

}  // namespace qtbind
