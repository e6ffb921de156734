"""The calculator on a real desktop: a real X server, a real window manager
(openbox, or mutter with Xwayland), real input through the X server, and
every place and size read back from the X server.

Run by scripts/desktop-test.sh, which brings the desktop up and names it in
LATHMARK_WM; LATHMARK_BINARY is the calculator to run.
"""

import os
import re
import subprocess
import tempfile
import time
import unittest

from compositor_input import CompositorInput
from xdesk import Program, Window, run, settle, wait_for, TWIPS_PER_PIXEL

BINARY = os.environ.get("LATHMARK_BINARY", "build/app/lathmark")
WM = os.environ.get("LATHMARK_WM", "openbox")

CALCULATOR = "Lathmark Calculator"
TAPE = "Lathmark"
PROMPT = "Named Memory"
MEMORY = "Memory"
HELP = "Lathmark Calculator Help"
CONVERTER = "Converter"


def pixels(twips):
    """Twips to whole pixels, as the program rounds them: half to even."""
    return round(twips / TWIPS_PER_PIXEL)


def screen_size():
    info = run("xwininfo", "-root")
    width = int(re.search(r"Width:\s+(\d+)", info).group(1))
    height = int(re.search(r"Height:\s+(\d+)", info).group(1))
    return width, height


class DesktopCase(unittest.TestCase):
    settings = None

    def setUp(self):
        self.program = Program(BINARY, settings=self.settings)
        # mutter draws the frames and takes the window manager's keys as the
        # Wayland compositor: the user's mouse and keyboard reach it there.
        self.compositor = CompositorInput() if WM == "mutter" else None

    def tearDown(self):
        if self.compositor:
            self.compositor.close()
        self.program.cleanup()

    def window_manager_key(self, combination):
        """A key that the window manager takes, such as Alt+F4."""
        if self.compositor:
            self.compositor.key(combination)
            settle(0.25)
        else:
            self.program.key(combination)

    def frame(self, title=CALCULATOR):
        w = wait_for(title, lambda: self.program.window(title))
        return w.frame

    def assertFrameStays(self, before, title=CALCULATOR):
        # The window manager may take a moment to show where it put a window.
        try:
            wait_for(f"{title} back at {before}", lambda: self.frame(title) == before, 3)
        except AssertionError:
            pass
        self.assertEqual(self.frame(title), before)

    def assertTapeAtCalculator(self):
        calc = self.frame()
        tape = self.frame(TAPE)
        # The tape stands 240 twips in from the calculator's left edge, and its
        # lower edge tucks 60 twips behind the calculator's top.
        self.assertLessEqual(abs(tape[0] - (calc[0] + pixels(240))), 1, (calc, tape))
        self.assertLessEqual(abs(tape[1] + tape[3] - (calc[1] + pixels(60))), 1, (calc, tape))

    def popup(self, *keys):
        """The calculator's popup menu, from a right click on its readout."""
        calc = self.program.activate()
        x, y, w, _ = calc.client
        run("xdotool", "mousemove", "--sync", str(x + w // 2), str(y + 35), check=True)
        run("xdotool", "click", "3", check=True)
        settle(0.5)
        self.program.key(*keys)
        settle(0.8)

    def move_by_window_manager(self, title, x, y):
        """The window manager moves the window's frame to x, y, as when the
        user places it with the keyboard or a pager does."""
        w = wait_for(title, lambda: self.program.window(title))
        left, _, top, _ = w.extents
        run("xdotool", "windowmove", "--sync", str(w.wid), str(x + left), str(y + top))
        settle(0.8)

    def close_by_window_manager(self, title):
        w = wait_for(title, lambda: self.program.window(title))
        run("wmctrl", "-i", "-c", hex(w.wid), check=True)
        settle(0.8)


class FramesAndPlaces(DesktopCase):
    def test_the_frame_is_the_size_the_program_gives_the_window(self):
        calc = self.program.calculator()
        self.assertEqual(calc.frame[2:], (pixels(3615), pixels(3590)))
        width, height = screen_size()
        # Centred on the screen at the first start, title bar and all.
        self.assertLessEqual(abs(calc.frame[0] - (width - calc.frame[2]) // 2), 1)
        self.assertGreaterEqual(calc.frame[1], 0)

    def test_zoom_there_and_back_from_the_menu_leaves_the_calculator_in_place(self):
        before = self.frame()
        for _ in range(3):
            self.program.zoom(75)
            self.assertEqual(self.frame()[:2], before[:2])
            self.assertEqual(self.frame()[2:], (pixels(2745), pixels(2844)))
            self.assertTapeAtCalculator()
            self.program.zoom(100)
            self.assertFrameStays(before)
            self.assertTapeAtCalculator()

    def test_zoom_there_and_back_from_the_popup_leaves_the_calculator_in_place(self):
        before = self.frame()
        for _ in range(3):
            self.popup(*["Down"] * 5, "Return")  # Zoom 75%
            self.assertEqual(self.frame()[:2], before[:2])
            self.assertTapeAtCalculator()
            self.popup(*["Down"] * 6, "Return")  # Zoom 100%
            self.assertFrameStays(before)
            self.assertTapeAtCalculator()

    def test_zoom_after_a_move_by_the_window_manager_leaves_the_calculator_in_place(self):
        self.move_by_window_manager(CALCULATOR, 200, 300)
        before = self.frame()
        self.assertEqual(before[:2], (200, 300))
        self.assertTapeAtCalculator()
        for _ in range(2):
            self.program.zoom(75)
            self.program.zoom(100)
            self.assertFrameStays(before)
        self.assertTapeAtCalculator()

    def test_show_keys_folds_and_opens_the_calculator_in_place(self):
        before = self.frame()
        self.program.menu("alt+d", "k")
        self.assertEqual(self.frame(), before[:3] + (pixels(1350),))
        self.program.menu("alt+d", "k")
        self.assertFrameStays(before)

    def test_the_converter_opens_beside_the_calculator_each_time(self):
        self.move_by_window_manager(CALCULATOR, 300, 200)
        calc = self.frame()
        def alt_f4():
            self.program.activate(CONVERTER)
            self.window_manager_key("alt+F4")
        for close in (lambda: self.program.menu("alt+d", "c"),
                      lambda: self.close_by_window_manager(CONVERTER), alt_f4):
            self.program.menu("alt+d", "c")
            conv = self.frame(CONVERTER)
            # On the side with more room, 200 twips away, level with it; it
            # comes up folded, at 770 twips.
            self.assertEqual(conv[:2], (calc[0] + calc[2] + pixels(200), calc[1]))
            self.assertEqual(conv[3], pixels(770))
            self.assertTrue(self.program.window(CONVERTER).above)
            close()
            wait_for("the converter gone", lambda: self.program.window(CONVERTER) is None)

    def test_the_tape_follows_the_calculator_while_its_title_bar_is_dragged(self):
        calc = self.program.calculator()
        seen = self.program.drag_title(
            calc, 150, 90, steps=6, compositor=self.compositor,
            probe=lambda: (self.frame(), self.frame(TAPE)))
        moved = [s for s in seen if s[0][:2] != calc.frame[:2]]
        # The window manager moves the frame while the button is down.
        self.assertGreaterEqual(len(moved), 3, seen)
        for calc_frame, tape_frame in moved:
            # While the button is still down, the tape stands where the
            # calculator is now, not where it was.
            self.assertLessEqual(abs(tape_frame[0] - (calc_frame[0] + pixels(240))), 1,
                                 (calc_frame, tape_frame))
            self.assertLessEqual(
                abs(tape_frame[1] + tape_frame[3] - (calc_frame[1] + pixels(60))), 1,
                (calc_frame, tape_frame))
        self.assertEqual(self.frame()[:2], (calc.frame[0] + 150, calc.frame[1] + 90))
        self.assertTapeAtCalculator()

    def test_the_tape_follows_each_move_of_the_window_manager(self):
        for x, y in ((100, 400), (500, 500), (300, 250)):
            self.move_by_window_manager(CALCULATOR, x, y)
            self.assertEqual(self.frame()[:2], (x, y))
            self.assertTapeAtCalculator()


class TheBandAboveOtherWindows(DesktopCase):
    def above(self, title):
        return wait_for(title, lambda: self.program.window(title)).above

    def test_the_calculator_and_its_tape_float_above_other_windows(self):
        self.assertTrue(self.above(CALCULATOR))
        self.assertTrue(self.above(TAPE))

    def test_zoom_keeps_the_calculator_above_other_windows(self):
        for percent in (75, 100, 75, 100):
            self.program.zoom(percent)
            settle(0.5)
            self.assertTrue(self.above(CALCULATOR), percent)
            self.assertTrue(self.above(TAPE), percent)
        for downs in (5, 6, 5, 6):  # Zoom 75%, Zoom 100% from the popup
            self.popup(*["Down"] * downs, "Return")
            settle(0.5)
            self.assertTrue(self.above(CALCULATOR), downs)
            self.assertTrue(self.above(TAPE), downs)

    def test_the_tape_hidden_and_shown_again_keeps_its_band(self):
        self.program.menu("alt+d", "t")
        self.assertIsNone(self.program.window(TAPE))
        self.program.menu("alt+d", "t")
        self.assertTrue(self.above(TAPE))
        self.assertTrue(self.above(CALCULATOR))

    def test_the_name_prompt_takes_the_calculator_out_of_the_band(self):
        self.program.menu("alt+m", "n")
        wait_for("the prompt", lambda: self.program.window(PROMPT))
        settle(0.5)
        self.assertFalse(self.above(CALCULATOR))
        # Cancel leaves it out, as no cell was made.
        self.program.key("Escape")
        wait_for("the prompt gone", lambda: self.program.window(PROMPT) is None)
        settle(0.5)
        self.assertFalse(self.above(CALCULATOR))
        # A cell made puts it back in front.
        self.program.menu("alt+m", "n")
        wait_for("the prompt", lambda: self.program.window(PROMPT))
        run("xdotool", "type", "--delay", "30", "Studs")
        self.program.key("Return")
        wait_for("the memory window", lambda: self.program.window(MEMORY))
        settle(0.5)
        self.assertTrue(self.above(CALCULATOR))


class ClosingTheNamePrompt(DesktopCase):
    def make_cell(self, name):
        self.program.menu("alt+m", "n")
        wait_for("the prompt", lambda: self.program.window(PROMPT))
        run("xdotool", "type", "--delay", "30", name)
        self.program.key("Return")
        wait_for("the prompt gone", lambda: self.program.window(PROMPT) is None)
        settle(0.5)

    def memory_height(self):
        return self.frame(MEMORY)[3]

    def test_the_prompt_asks_for_no_close_box(self):
        self.program.menu("alt+m", "n")
        prompt = wait_for("the prompt", lambda: self.program.window(PROMPT))
        hints = run("xprop", "-id", str(prompt.wid), "_MOTIF_WM_HINTS")
        found = re.search(r"= (0x[0-9a-f]+|\d+), (0x[0-9a-f]+|\d+)", hints)
        self.assertIsNotNone(found, hints)
        flags, functions = (int(v, 0) for v in found.groups())
        self.assertTrue(flags & 1, "the hints name the functions")
        self.assertFalse(functions & 0x20, "no close among the functions")
        if WM == "mutter":
            # mutter honours the request: it offers no close at all.
            self.assertNotIn("_NET_WM_ACTION_CLOSE", Window(prompt.wid).allowed)
        self.program.key("Escape")

    def check_close_makes_no_cell(self, close):
        self.make_cell("Studs")
        one_cell = self.memory_height()
        self.program.menu("alt+m", "n")
        wait_for("the prompt", lambda: self.program.window(PROMPT))
        run("xdotool", "type", "--delay", "30", "Joists")
        close()
        wait_for("the prompt gone", lambda: self.program.window(PROMPT) is None)
        settle(0.8)
        # The memory window grows by a cell for each cell made.
        self.assertEqual(self.memory_height(), one_cell)
        self.make_cell("Rafters")
        self.assertGreater(self.memory_height(), one_cell)

    def test_a_close_by_the_window_manager_acts_as_cancel(self):
        self.check_close_makes_no_cell(lambda: self.close_by_window_manager(PROMPT))

    def test_alt_f4_acts_as_cancel(self):
        def alt_f4():
            self.window_manager_key("alt+F4")
            if WM == "mutter":
                # mutter honours the prompt's request for no close: Alt+F4
                # leaves it open (it closes the converter, which has a close
                # box), and the user cancels it.
                settle(0.8)
                self.assertIsNotNone(self.program.window(PROMPT))
                self.program.key("Escape")
        self.check_close_makes_no_cell(alt_f4)


class TheHelpWindow(DesktopCase):
    def test_the_help_window_opens_wholly_on_the_screen(self):
        self.program.menu("alt+h", "c")
        help_frame = self.frame(HELP)
        width, height = screen_size()
        x, y, w, h = help_frame
        self.assertGreaterEqual(x, 0, help_frame)
        self.assertGreaterEqual(y, 0, help_frame)
        self.assertLessEqual(x + w, width, help_frame)
        self.assertLessEqual(y + h, height, help_frame)


class TheMemoryWindow(DesktopCase):
    def file_dialog(self, path):
        # Whatever it is titled, it is the one window that is none of the
        # program's own.
        dialog = wait_for("the file dialog",
                          lambda: [w for w in self.program.windows()
                                   if w.title not in (CALCULATOR, TAPE, MEMORY)], 5)
        run("xdotool", "windowactivate", "--sync", str(dialog[0].wid))
        settle(0.3)
        self.program.key("ctrl+a")
        run("xdotool", "type", "--delay", "20", path)
        self.program.key("Return")
        wait_for("the dialog gone", lambda: dialog[0].wid not in
                 [w.wid for w in self.program.windows()], 5)
        settle(0.8)

    def memory_window(self):
        # Titled "Memory", or after an Open by the file's name.
        found = [w for w in self.program.windows() if w.title not in (CALCULATOR, TAPE)]
        return found[0] if len(found) == 1 else None

    def test_save_erase_and_open_bring_the_memory_window_back_in_place(self):
        self.program.menu("alt+m", "n")
        wait_for("the prompt", lambda: self.program.window(PROMPT))
        self.program.key("Return")
        before = wait_for("the memory window", self.memory_window).frame
        path = os.path.join(self.program.config_home, "cells.mem")
        self.program.menu("alt+f", "a")
        self.file_dialog(path)
        self.assertTrue(os.path.exists(path))
        sizes = []
        for _ in range(3):
            self.program.menu("alt+m", "e")
            self.assertIsNone(self.memory_window())
            self.program.menu("alt+f", "o")
            self.file_dialog(path)
            after = wait_for("the memory window", self.memory_window).frame
            # Where it was saved, frame and all: not its inner area there.
            self.assertEqual(after[:2], before[:2])
            sizes.append(after[2:])
        # The cells read back lay the window out once; it keeps that size.
        self.assertEqual(sizes[1:], sizes[:1] * 2)


class Restarts(DesktopCase):
    def restart(self):
        self.program.exit()
        config = self.program.config_home
        self.program.own_config = False  # the next start reads its settings
        self.program.cleanup()
        self.program = Program(BINARY, config_home=config)
        self.program.own_config = True

    def check_restart_in_place(self, prepare, size):
        self.move_by_window_manager(CALCULATOR, 240, 330)
        prepare()
        before = self.frame()
        self.assertEqual(before, (240, 330) + size)
        self.restart()
        self.assertFrameStays(before)
        self.assertTapeAtCalculator()
        self.restart()
        self.assertFrameStays(before)

    def test_a_restart_at_full_size_comes_back_in_place(self):
        self.check_restart_in_place(lambda: None, (pixels(3615), pixels(3590)))

    def test_a_restart_at_75_percent_comes_back_in_place(self):
        self.check_restart_in_place(lambda: self.program.zoom(75),
                                    (pixels(2745), pixels(2844)))

    def test_a_restart_with_the_keys_hidden_comes_back_in_place(self):
        self.check_restart_in_place(lambda: self.program.menu("alt+d", "k"),
                                    (pixels(3615), pixels(1350)))

    def test_a_restart_at_75_percent_with_the_keys_hidden_comes_back_in_place(self):
        def prepare():
            self.program.zoom(75)
            self.program.menu("alt+d", "k")
        self.check_restart_in_place(prepare, (pixels(2745), pixels(1200)))


@unittest.skipIf(WM != "mutter", "a Wayland compositor is needed")
class WaylandSessions(unittest.TestCase):
    """What the program does in a Wayland session, where Xwayland may or may
    not be there."""

    def start(self, env):
        full = {k: v for k, v in os.environ.items()
                if k not in ("QT_QPA_PLATFORM", "DISPLAY", "XAUTHORITY")}
        full.update(env)
        config = tempfile.mkdtemp(prefix="lathmark-wl-")
        full["XDG_CONFIG_HOME"] = config
        err = tempfile.TemporaryFile()
        process = subprocess.Popen([BINARY], env=full, stdout=subprocess.DEVNULL, stderr=err)
        maps = ""
        try:
            end = time.monotonic() + 15
            while time.monotonic() < end and "platforms/" not in maps:
                with open(f"/proc/{process.pid}/maps") as f:
                    maps = f.read()
                time.sleep(0.1)
            settle(2)
        finally:
            process.terminate()
            process.wait(10)
        err.seek(0)
        errors = err.read().decode(errors="replace")
        err.close()
        plugins = set(re.findall(r"platforms/(libq[\w-]+)\.so", maps))
        return plugins, errors

    def test_with_xwayland_there_the_program_runs_on_x11(self):
        plugins, errors = self.start({"DISPLAY": os.environ["DISPLAY"],
                                      "XAUTHORITY": os.environ.get("XAUTHORITY", ""),
                                      "WAYLAND_DISPLAY": os.environ["WAYLAND_DISPLAY"],
                                      "XDG_SESSION_TYPE": "wayland"})
        self.assertEqual(plugins, {"libqxcb"})
        self.assertNotIn("Wayland session", errors)

    def test_with_only_wayland_there_the_program_says_so_once(self):
        plugins, errors = self.start({"WAYLAND_DISPLAY": os.environ["WAYLAND_DISPLAY"],
                                      "XDG_SESSION_TYPE": "wayland"})
        self.assertEqual(plugins, {"libqwayland-generic"})
        self.assertEqual(errors.count("Wayland session"), 1, errors)
        self.assertIn("place its windows", errors)

    def test_an_x_display_that_is_gone_leaves_wayland(self):
        plugins, errors = self.start({"DISPLAY": ":999",
                                      "WAYLAND_DISPLAY": os.environ["WAYLAND_DISPLAY"],
                                      "XDG_SESSION_TYPE": "wayland"})
        # Qt tried X11 first (its plugin stays loaded) and runs on Wayland,
        # which the program says.
        self.assertIn("libqwayland-generic", plugins)
        self.assertEqual(errors.count("Wayland session"), 1, errors)

    def test_a_platform_the_user_chose_stands(self):
        plugins, _ = self.start({"DISPLAY": os.environ["DISPLAY"],
                                 "XAUTHORITY": os.environ.get("XAUTHORITY", ""),
                                 "WAYLAND_DISPLAY": os.environ["WAYLAND_DISPLAY"],
                                 "QT_QPA_PLATFORM": "wayland"})
        self.assertEqual(plugins, {"libqwayland-generic"})


if __name__ == "__main__":
    unittest.main(verbosity=2)
