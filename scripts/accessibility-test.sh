#!/usr/bin/env bash
# Checks the calculator as a screen reader meets it, through AT-SPI, the
# desktop's accessibility bus: the real program under Xvfb (with openbox),
# on a session bus of its own with the accessibility bus beside it, read and
# driven by tests/accessibility/atspi_check.py with pyatspi, as Orca would.
# Takes the build folder (default build/, as scripts/test.sh leaves it):
#
#     scripts/accessibility-test.sh [BUILD]
#
# As root it installs what it needs; otherwise it prints the apt-get line.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(cd "${1:-$root/build}" && pwd)"
binary="$build/app/lathmark"
[ -x "$binary" ] || { echo "no calculator at $binary: run scripts/test.sh first" >&2; exit 1; }

packages=(xvfb openbox dbus at-spi2-core python3-pyatspi)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if [ ${#missing[@]} -gt 0 ]; then
    if [ "$(id -u)" -eq 0 ]; then
        export DEBIAN_FRONTEND=noninteractive
        apt-get update -qq
        apt-get install -y -qq --no-install-recommends "${missing[@]}" >/dev/null
    else
        echo "The accessibility test needs these packages. Run:" >&2
        echo "  sudo apt-get install -y ${missing[*]}" >&2
        exit 1
    fi
fi

export PYTHONDONTWRITEBYTECODE=1
work="$(mktemp -d)"
pids=()
cleanup() {
    for pid in "${pids[@]}"; do
        kill "$pid" 2>/dev/null || true
        wait "$pid" 2>/dev/null || true
    done
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

n=90
while [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ]; do n=$((n + 1)); done
Xvfb ":$n" -screen 0 1600x1000x24 -dpi 96 -nolisten tcp >"$work/xvfb.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do [ -e "/tmp/.X11-unix/X$n" ] && break; sleep 0.05; done
export DISPLAY=":$n"
openbox >"$work/openbox.log" 2>&1 &
pids+=($!)

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
