"""The desktop as a user meets it: the real program on a real X server under a
real window manager, driven with xdotool and measured with xwininfo and xprop.

Every geometry here is read from the X server, never from the program: a
window's frame is its client area widened by the _NET_FRAME_EXTENTS that the
window manager sets.
"""

import os
import re
import shutil
import signal
import subprocess
import tempfile
import time

TWIPS_PER_PIXEL = 15  # the test display runs at 96 dots per inch


def run(*args, check=False):
    done = subprocess.run(args, capture_output=True, text=True)
    if check and done.returncode != 0:
        raise RuntimeError(f"{args[0]} failed: {done.stderr.strip()}")
    return done.stdout


def wait_for(what, probe, timeout=10.0, step=0.05):
    """Polls probe() until it gives something true, and returns that."""
    end = time.monotonic() + timeout
    last = None
    while time.monotonic() < end:
        last = probe()
        if last:
            return last
        time.sleep(step)
    raise AssertionError(f"timed out waiting for {what} (last seen: {last!r})")


def settle(seconds=0.4):
    """Lets the program and the window manager finish what an input began."""
    time.sleep(seconds)


class Window:
    """One top-level window of the program as the X server has it now."""

    def __init__(self, wid):
        self.wid = wid
        info = run("xwininfo", "-id", str(wid))
        self.viewable = "IsViewable" in info
        def field(name):
            found = re.search(name + r":\s+(-?\d+)", info)
            return int(found.group(1)) if found else 0
        self.client = (field("Absolute upper-left X"), field("Absolute upper-left Y"),
                       field("Width"), field("Height"))
        extents = re.search(r"= (\d+), (\d+), (\d+), (\d+)",
                            run("xprop", "-id", str(wid), "_NET_FRAME_EXTENTS"))
        self.extents = tuple(map(int, extents.groups())) if extents else (0, 0, 0, 0)
        left, right, top, bottom = self.extents
        x, y, w, h = self.client
        self.frame = (x - left, y - top, w + left + right, h + top + bottom)
        self.state = run("xprop", "-id", str(wid), "_NET_WM_STATE")
        self.name = run("xprop", "-id", str(wid), "_NET_WM_NAME")
        found = re.search(r'= "(.*)"', self.name)
        self.title = found.group(1) if found else ""
        self.allowed = run("xprop", "-id", str(wid), "_NET_WM_ALLOWED_ACTIONS")

    @property
    def above(self):
        return "_NET_WM_STATE_ABOVE" in self.state

    def __repr__(self):
        return f"<{self.title!r} frame={self.frame} extents={self.extents} above={self.above}>"


class Program:
    """The calculator, started fresh with a private settings folder."""

    def __init__(self, binary, settings=None, env=None, config_home=None):
        self.config_home = config_home or tempfile.mkdtemp(prefix="lathmark-desk-")
        self.own_config = config_home is None
        if settings is not None:
            folder = os.path.join(self.config_home, "lathmark")
            os.makedirs(folder, exist_ok=True)
            with open(os.path.join(folder, "Lathmark.conf"), "w") as f:
                f.write(settings)
        full_env = dict(os.environ)
        full_env["XDG_CONFIG_HOME"] = self.config_home
        full_env.pop("QT_QPA_PLATFORM", None)
        if env:
            full_env.update(env)
        self.stderr = tempfile.TemporaryFile()
        self.process = subprocess.Popen([binary], env=full_env, stdout=subprocess.DEVNULL,
                                        stderr=self.stderr)
        wait_for("the calculator's window", lambda: self.window("Lathmark Calculator"), 20)
        settle(0.8)

    def windows(self):
        ids = run("xdotool", "search", "--all", "--onlyvisible", "--pid",
                  str(self.process.pid)).split()
        found = [Window(int(w)) for w in ids]
        return [w for w in found if w.viewable]

    def window(self, title):
        for w in self.windows():
            if w.title == title:
                return w
        return None

    def calculator(self):
        return wait_for("the calculator", lambda: self.window("Lathmark Calculator"))

    def tape(self):
        return self.window("Lathmark")

    def activate(self, title="Lathmark Calculator"):
        w = wait_for(title, lambda: self.window(title))
        run("xdotool", "windowactivate", "--sync", str(w.wid))
        settle(0.2)
        return w

    def key(self, *keys):
        for k in keys:
            run("xdotool", "key", "--clearmodifiers", k, check=True)
            settle(0.25)

    def menu(self, *keys):
        """A menu command by its access keys, as a user types them."""
        self.activate()
        self.key(*keys)
        settle(0.8)

    def zoom(self, percent):
        # Display, Zoom, then the first entry (75%) or the second (100%).
        keys = ["alt+d", "z"] + (["Down"] if percent == 100 else []) + ["Return"]
        self.menu(*keys)

    def drag_title(self, window, dx, dy, steps=10, probe=None, compositor=None):
        """Drags a window by its title bar, as a user does, in steps; probe()
        runs after each step while the button is still down. Through the X
        server, or through `compositor` (a CompositorInput) where the window
        manager is the Wayland compositor and takes no input from X."""
        x, y, w, _ = window.frame
        grab_x = x + w // 2
        grab_y = y + max(window.extents[2] // 2, 3)
        seen = []
        if compositor:
            compositor.move_to(grab_x, grab_y)
            compositor.button(True)
        else:
            run("xdotool", "mousemove", "--sync", str(grab_x), str(grab_y), check=True)
            run("xdotool", "mousedown", "1", check=True)
        settle(0.2)
        done_x = done_y = 0
        for i in range(1, steps + 1):
            to_x, to_y = dx * i // steps, dy * i // steps
            if compositor:
                compositor.move_by(to_x - done_x, to_y - done_y)
            else:
                run("xdotool", "mousemove", str(grab_x + to_x), str(grab_y + to_y), check=True)
            done_x, done_y = to_x, to_y
            settle(0.1)
            if probe:
                seen.append(probe())
        if compositor:
            compositor.button(False)
        else:
            run("xdotool", "mouseup", "1", check=True)
        settle(0.5)
        return seen

    def error_text(self):
        self.stderr.seek(0)
        return self.stderr.read().decode(errors="replace")

    def settings_text(self):
        path = os.path.join(self.config_home, "lathmark", "Lathmark.conf")
        with open(path) as f:
            return f.read()

    def exit(self):
        """File, Exit, as the user ends the program."""
        if self.process.poll() is None:
            self.menu("alt+f", "x")
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()
                raise AssertionError("File, Exit did not end the program")

    def kill(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            try:
                self.process.wait(5)
            except subprocess.TimeoutExpired:
                self.process.kill()
                self.process.wait()

    def cleanup(self):
        self.kill()
        if not self.stderr.closed:
            self.stderr.close()
        if self.own_config:
            shutil.rmtree(self.config_home, ignore_errors=True)
