"""Input that mutter takes as the user's own: its remote desktop service,
reached over the session bus that mutter runs on.

Under mutter the frames and the window manager's keys belong to the Wayland
compositor. Xwayland's X test extension reaches only X clients, so a press on
a title bar or Alt+F4 sent through it never gets to mutter. The remote desktop
service feeds the compositor's own seat, as a real mouse and keyboard do.
"""

import time

SERVICE = "org.gnome.Mutter.RemoteDesktop"
BTN_LEFT = 0x110  # linux/input-event-codes.h

# X keysyms of the keys the tests press here.
KEYSYMS = {"alt": 0xFFE9, "ctrl": 0xFFE3, "shift": 0xFFE1, "F4": 0xFFC1,
           "Escape": 0xFF1B, "Return": 0xFF0D}


class CompositorInput:
    def __init__(self):
        import dbus  # Debian's python3-dbus

        bus = dbus.SessionBus()
        desktop = bus.get_object(SERVICE, "/org/gnome/Mutter/RemoteDesktop")
        path = desktop.CreateSession(dbus_interface=SERVICE)
        self.session = dbus.Interface(bus.get_object(SERVICE, path), SERVICE + ".Session")
        self.session.Start()

    def close(self):
        try:
            self.session.Stop()
        except Exception:  # the session ends with mutter anyway
            pass

    def move_to(self, x, y):
        # Relative motion needs no screen-cast stream; the pointer is first
        # pushed into the top-left corner, where the screen stops it.
        self.session.NotifyPointerMotionRelative(-100000.0, -100000.0)
        self.session.NotifyPointerMotionRelative(float(x), float(y))
        time.sleep(0.1)

    def move_by(self, dx, dy):
        self.session.NotifyPointerMotionRelative(float(dx), float(dy))

    def button(self, down):
        self.session.NotifyPointerButton(BTN_LEFT, bool(down))

    def key(self, combination):
        """A combination such as "alt+F4": the modifiers held down while the
        last key is pressed and let go."""
        syms = [KEYSYMS[name] for name in combination.split("+")]
        for sym in syms:
            self.session.NotifyKeyboardKeysym(sym, True)
            time.sleep(0.03)
        for sym in reversed(syms):
            self.session.NotifyKeyboardKeysym(sym, False)
            time.sleep(0.03)
