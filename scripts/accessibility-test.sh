#!/usr/bin/env bash
# Checks the calculator as a screen reader meets it, through AT-SPI, the
# desktop's accessibility bus: the real program under Xvfb (with openbox),
# on a session bus of its own with the accessibility bus beside it, read and
# driven by tests/accessibility/atspi_check.py with pyatspi, as Orca would.
# Takes the build folder (default build/, as scripts/test.sh leaves it):
#
#     scripts/accessibility-test.sh [BUILD]
#
# As root it installs what it needs (scripts/deps.sh --accessibility);
# otherwise it prints the apt-get line.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(cd "${1:-$root/build}" && pwd)"
binary="$build/app/lathmark"
[ -x "$binary" ] || { echo "no calculator at $binary: run scripts/test.sh first" >&2; exit 1; }

"$root/scripts/deps.sh" --accessibility
source "$root/scripts/openbox-session.sh"
start_openbox

# The program's settings and files go to a home of the test's own.
export HOME="$work/home" XDG_CONFIG_HOME="$work/home/.config" XDG_DATA_HOME="$work/home/.local/share"
export XDG_RUNTIME_DIR="$work/runtime"
mkdir -p "$HOME" "$XDG_CONFIG_HOME" "$XDG_DATA_HOME"
mkdir -m 0700 "$XDG_RUNTIME_DIR"
export LATHMARK_BINARY="$binary"
# A session bus for this run alone: the accessibility bus launcher, the
# program and the check all meet on it.
status=0
dbus-run-session -- bash -c '
    /usr/libexec/at-spi-bus-launcher --launch-immediately >"$0/bus-launcher.log" 2>&1 &
    launcher=$!
    # Wait until the launcher answers with the accessibility bus address.
    for _ in $(seq 100); do
        dbus-send --session --print-reply --dest=org.a11y.Bus /org/a11y/bus \
            org.a11y.Bus.GetAddress >/dev/null 2>&1 && break
        sleep 0.1
    done
    /usr/bin/python3 "$1"
    code=$?
    kill "$launcher" 2>/dev/null
    exit $code
' "$work" "$root/tests/accessibility/atspi_check.py" || status=$?
if [ "$status" -ne 0 ]; then
    echo "--- bus launcher" >&2
    cat "$work/bus-launcher.log" >&2 || true
fi
exit "$status"
