#!/usr/bin/env bash
# Retakes the pictures of the user's guide (guide/images/*.png): starts
# lathmark on a private Xvfb display as on a first start, types a sum, makes
# two memory cells and drops the answer on one, opens the About box, and
# grabs the windows at each step. Needs xdotool besides the test tools.
# Usage: scripts/guide-screenshots.sh [BUILD_DIR]   (default: build/)
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$root/build}"
images="$root/guide/images"
command -v xdotool >/dev/null || { echo "guide-screenshots: needs xdotool" >&2; exit 1; }
cmake --build "$build" --target lathmark >/dev/null

source "$root/scripts/xvfb-session.sh"
mkdir -p "$work/config" "$images"
XDG_CONFIG_HOME="$work/config" XDG_DATA_HOME="$work/data" QT_QPA_PLATFORM=xcb \
    "$build/app/lathmark" >"$work/lathmark.log" 2>&1 &
extra_pids+=($!)
for _ in $(seq 100); do
    xdotool search --name '^Lathmark Calculator$' >/dev/null 2>&1 && break
    sleep 0.1
done
sleep 1
calc=$(xdotool search --name '^Lathmark Calculator$' | head -1)
eval "$(xdotool getwindowgeometry --shell "$calc")"
# No window manager: the keys go to the window under the pointer.
xdotool mousemove $((X + 40)) $((Y + HEIGHT - 20))
key() { xdotool key --delay 60 "$@"; sleep 0.3; }
shot() { # NAME: the screen, cut down to the windows on it
    xwd -root -silent | convert xwd:- -trim +repage -bordercolor black -border 16 png:"$1"
}
key 1 2 apostrophe 3 space 1 slash 2 Return plus 7 apostrophe 9 Return
shot "$images/calculator.png"

# Two cells, and the answer dropped on the right half of the first.
key alt+m m
key alt+m m
sleep 0.5
# The cells are drawn inside the Memory window; the first one's value
# stands at its top left.
parent=$(xdotool search --name '^Memory$' | head -1 || true)
if [ -n "$parent" ]; then
    eval "$(xdotool getwindowgeometry --shell "$parent")"
    cellX=$((X + 110)) cellY=$((Y + 28))
    eval "$(xdotool getwindowgeometry --shell "$calc")"
    xdotool mousemove $((X + WIDTH / 2)) $((Y + 60)) mousedown 1
    sleep 0.2
    xdotool mousemove $((X + WIDTH / 2 + 10)) $((Y + 70))
    sleep 0.2
    xdotool mousemove "$cellX" "$cellY"
    sleep 0.2
    xdotool mouseup 1
    sleep 0.5
fi
eval "$(xdotool getwindowgeometry --shell "$calc")"
xdotool mousemove $((X + 40)) $((Y + HEIGHT - 20))
shot "$images/memory.png"

key alt+h a
sleep 1.5
about=$(xdotool search --name '^About Lathmark Calculator$' | head -1)
# Without a window manager the closed menu may linger over the box.
xdotool windowraise "$about"
sleep 0.5
xwd -silent -id "$about" | convert xwd:- png:"$images/about.png"
key Return
echo "guide-screenshots: $images"
