#!/usr/bin/env bash
# Retakes docs/screenshot.png: builds lathmark, starts it on a private Xvfb
# display as on a first start (an empty settings folder), waits until its
# window is mapped, grabs the whole screen, cuts it down to the program's
# windows on a black border, and ends both.
# Usage: scripts/screenshot.sh [BUILD_DIR]   (default: build/)
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="${1:-$root/build}"
out="$root/docs/screenshot.png"
"$root/scripts/deps.sh"

if [ ! -f "$build/build.ninja" ]; then
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
        -DLATHMARK_BUILD_TESTS=OFF >/dev/null
fi
cmake --build "$build" --target lathmark >/dev/null

source "$root/scripts/xvfb-session.sh"

mkdir -p "$work/config"
XDG_CONFIG_HOME="$work/config" QT_QPA_PLATFORM=xcb "$build/app/lathmark" \
    >"$work/lathmark.log" 2>&1 &
extra_pids+=($!)

mapped=""
for _ in $(seq 100); do
    if xwininfo -root -tree 2>/dev/null | grep -q '"Lathmark Calculator"'; then
        mapped=1
        break
    fi
    sleep 0.1
done
if [ -z "$mapped" ]; then
    echo "screenshot: the calculator's window did not appear within 10 s" >&2
    cat "$work/lathmark.log" >&2
    exit 1
fi
# Let the windows paint.
sleep 1

mkdir -p "$(dirname "$out")"
xwd -root -silent |
    convert xwd:- -trim +repage -bordercolor black -border 24 png:"$out"
echo "screenshot: $out"
