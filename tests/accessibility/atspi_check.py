"""The calculator through AT-SPI, as a screen reader such as Orca meets it.

Starts the real program (LATHMARK_BINARY) with Qt's accessibility on and
reads and drives it through pyatspi alone: the windows are found by their
titles, the keys by their names and pressed through their actions, the
readout is read through its text, the tape as a list of its lines, a
memory cell is made from the menu and given the readout by its action.
Prints each check and a closing line "N passed, N failed"; exits non-zero
on any failure.
"""

import os
import subprocess
import sys
import tempfile
import time

import pyatspi
from gi.repository import GLib

PASSED = []
FAILED = []


def check(what, ok, detail=""):
    (PASSED if ok else FAILED).append(what)
    print(("ok    " if ok else "FAIL  ") + what + (f": {detail}" if detail and not ok else ""),
          flush=True)
    return ok


HEARD = []


def hear(event):
    """What a screen reader is told: the event, its object's name, its data."""
    try:
        name = event.source.name
    except Exception:
        name = None
    HEARD.append((event.type, name, event.any_data))


def pump(seconds):
    """Lets the events that the program sent arrive."""
    context = GLib.MainContext.default()
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        while context.iteration(False):
            pass
        time.sleep(0.02)


def wait_for(find, seconds=15.0):
    """Calls find() until it gives something, or the time is up."""
    end = time.monotonic() + seconds
    while True:
        try:
            found = find()
        except Exception:  # the tree changes under us while the program starts
            found = None
        if found or time.monotonic() > end:
            return found
        pump(0.1)


def children(acc):
    return [acc.getChildAtIndex(i) for i in range(acc.childCount)]


def walk(acc, depth=0, limit=12):
    yield acc
    if depth >= limit:
        return
    for child in children(acc):
        if child is not None:
            yield from walk(child, depth + 1, limit)


def find(root, name=None, role=None):
    for acc in walk(root):
        if (name is None or acc.name == name) and (role is None or acc.getRole() == role):
            return acc
    return None


def text_of(acc):
    text = acc.queryText()
    return text.getText(0, text.characterCount)


def actions_of(acc):
    action = acc.queryAction()
    return [action.getName(i) for i in range(action.nActions)]


def do_action(acc, name):
    action = acc.queryAction()
    for i in range(action.nActions):
        if action.getName(i) == name:
            return action.doAction(i)
    raise KeyError(f"{acc.name} has no action {name}: {actions_of(acc)}")


def the_program():
    desktop = pyatspi.Registry.getDesktop(0)
    for app in children(desktop):
        if app is not None and app.name == "Lathmark":
            return app
    return None


def frame(app, title, role=pyatspi.ROLE_FRAME):
    for window in children(app):
        if window is not None and window.name == title and window.getRole() == role:
            return window
    return None


def main():
    binary = os.environ["LATHMARK_BINARY"]
    env = dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1", QT_QPA_PLATFORM="xcb",
               QT_ACCESSIBILITY="1")
    errors = tempfile.TemporaryFile()
    program = subprocess.Popen([binary], env=env, stdout=subprocess.DEVNULL, stderr=errors)
    try:
        run_checks()
    finally:
        program.terminate()
        try:
            program.wait(10)
        except subprocess.TimeoutExpired:
            program.kill()
        errors.seek(0)
        err = errors.read().decode(errors="replace").strip()
        if err:
            print("program's standard error:\n" + err)
    print(f"accessibility: {len(PASSED)} passed, {len(FAILED)} failed")
    return 1 if FAILED or not PASSED else 0


def run_checks():
    app = wait_for(the_program)
    if not check("the program is on the accessibility bus as Lathmark", app is not None):
        return
    calculator = wait_for(lambda: frame(app, "Lathmark Calculator"))
    if not check('a frame named "Lathmark Calculator"', calculator is not None,
                 [(w.name, w.getRoleName()) for w in children(app)]):
        return
    check('a frame named "Tape"', wait_for(lambda: frame(app, "Tape")) is not None,
          [(w.name, w.getRoleName()) for w in children(app)])

    names = ["0", "1", "2", "3", "4", "5", "6", "7", "8", "9", "Decimal point", "Space", "Feet",
             "Inches", "Add", "Subtract", "Multiply", "Divide", "Clear", "Clear entry",
             "Equals", "Square", "Square root"]
    keys = {name: find(calculator, name, pyatspi.ROLE_PUSH_BUTTON) for name in names}
    missing = [name for name, key in keys.items() if key is None]
    check("every key found by its name", not missing, missing)
    if missing:
        return
    check('"Feet" is described by its tool tip "Foot"', keys["Feet"].description == "Foot",
          keys["Feet"].description)

    readout = find(calculator, "Readout")
    if not check("the readout found by its name", readout is not None):
        return
    check("the readout reads 0. through its text", text_of(readout) == "0.", text_of(readout))

    # 12 feet, Equals, Add, 6 inches, Equals: pressed through the keys'
    # own actions, as a screen reader's "press" does.
    pyatspi.Registry.registerEventListener(hear, "object:text-changed:insert")
    for name in ["1", "2", "Feet", "Equals", "Add", "6", "Inches", "Equals"]:
        do_action(keys[name], actions_of(keys[name])[0])
        pump(0.3)
    result = wait_for(lambda: text_of(readout) == ' 12\'- 6"' and text_of(readout))
    check("the keys' actions worked out 12'- 6\" in the readout", bool(result), text_of(readout))
    pump(0.5)
    told = [data for kind, name, data in HEARD if name == "Readout"]
    print("      the readout told:", told)
    check("the readout told each new text", ' 12\'- 6"' in told and "12'- " in told, told)

    tape = find(wait_for(lambda: frame(app, "Tape")), "Tape", pyatspi.ROLE_LIST)
    if check("the tape found as a list", tape is not None):
        lines = wait_for(lambda: [item.name for item in children(tape)] if tape.childCount >= 4
                         else None)
        print("      tape lines:", lines)
        check("the tape's last line is the sum", bool(lines) and lines[-1] == '12\'- 6"', lines)
        check("the tape's lines are list items", all(
            item.getRole() == pyatspi.ROLE_LIST_ITEM for item in children(tape)))

    # A memory cell, made from the Memory menu through its item's action.
    new_memory = find(calculator, "New Memory", pyatspi.ROLE_MENU_ITEM)
    if not check('the menu item "New Memory" found', new_memory is not None):
        return
    do_action(new_memory, actions_of(new_memory)[0])
    memory = wait_for(lambda: frame(app, "Memory"))
    if not check('a frame named "Memory" for the cells', memory is not None):
        return
    cells = wait_for(lambda: find(memory, "Memory cells", pyatspi.ROLE_LIST))
    if not check("the cells found as a list", cells is not None):
        return
    cell = wait_for(lambda: find(cells, "Memory 1", pyatspi.ROLE_LIST_ITEM))
    if not check('the cell "Memory 1" found', cell is not None):
        return
    print("      its actions:", actions_of(cell))
    check("the cell offers its four actions", actions_of(cell) == [
        "Add the readout", "Subtract the readout", "Clear", "Show tape"], actions_of(cell))
    check("the cell reads 0. through its text", text_of(cell) == "0.", text_of(cell))
    do_action(cell, "Add the readout")
    value = wait_for(lambda: text_of(cell) == ' 12\'- 6" ' and text_of(cell))
    check('"Add the readout" put 12\'- 6" in the cell', bool(value), text_of(cell))
    lines = wait_for(lambda: [item.name for item in children(tape)] if tape.childCount == 3
                     else None)
    print("      the cell's tape:", lines)
    check("the tape on show is the cell's, with the three lines of the drop",
          lines == ['+  12\'- 6"', "----------------", '12\'- 6"'], lines)
    check("the cell told its new value",
          any(name == "Memory 1" and data == ' 12\'- 6" ' for kind, name, data in HEARD), HEARD)
    do_action(cell, "Subtract the readout")
    check('"Subtract the readout" took it away again',
          bool(wait_for(lambda: text_of(cell) == ' 0" ')), text_of(cell))
    do_action(cell, "Clear")
    check('"Clear" set the cell to 0.', bool(wait_for(lambda: text_of(cell) == "0.")),
          text_of(cell))
    # The calculator's own tape again, then the cell's by "Show tape".
    do_action(keys["Clear"], actions_of(keys["Clear"])[0])
    wait_for(lambda: frame(app, "Tape").name and find(frame(app, "Tape"), "Tape name") and
             text_of(find(frame(app, "Tape"), "Tape name")) == "Calculator")
    do_action(cell, "Show tape")
    title = find(frame(app, "Tape"), "Tape name")
    shown = wait_for(lambda: text_of(title) == "Memory 1" and text_of(title))
    check('"Show tape" turned the tape to the cell\'s', bool(shown), text_of(title))
    lines = [item.name for item in children(tape)]
    print("      the cell's tape:", lines)
    check("the cell's tape holds the drops and the clear", len(lines) == 9 and
          lines[-2] == "Clear", lines)


if __name__ == "__main__":
    sys.exit(main())
