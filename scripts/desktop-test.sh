#!/usr/bin/env bash
# Runs the calculator on real desktops and checks what the user sees there:
# under Xvfb with openbox, then under mutter (GNOME's compositor, headless,
# with Xwayland), driven with xdotool through the X server and measured from
# it (tests/desktop/). Takes the build folder (default build/, as
# scripts/test.sh leaves it), and optionally the one desktop to use:
#
#     scripts/desktop-test.sh [BUILD] [openbox|mutter]
#
# As root it installs what it needs (scripts/deps.sh --desktop); otherwise it
# prints the apt-get line.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
build="$(cd "${1:-$root/build}" && pwd)"
only="${2:-}"
binary="$build/app/lathmark"
[ -x "$binary" ] || { echo "no calculator at $binary: run scripts/test.sh first" >&2; exit 1; }

"$root/scripts/deps.sh" --desktop
source "$root/scripts/openbox-session.sh"

passed=0
failed=0
run_tests() {
    local wm="$1"
    echo "== desktop tests under $wm"
    local log="$work/$wm.log"
    (cd "$root/tests/desktop" && LATHMARK_BINARY="$binary" LATHMARK_WM="$wm" \
        /usr/bin/python3 -m unittest -v ${LATHMARK_DESKTOP_TESTS:-desktop_test}) >"$log" 2>&1 </dev/null || true
    cat "$log"
    local ran fails errors skipped
    ran=$(sed -n 's/^Ran \([0-9]*\) tests\{0,1\}.*/\1/p' "$log" | tail -1)
    fails=$(sed -n 's/.*failures=\([0-9]*\).*/\1/p' "$log" | tail -1)
    errors=$(sed -n 's/.*errors=\([0-9]*\).*/\1/p' "$log" | tail -1)
    skipped=$(sed -n 's/.*skipped=\([0-9]*\).*/\1/p' "$log" | tail -1)
    ran=${ran:-0} fails=${fails:-0} errors=${errors:-0} skipped=${skipped:-0}
    if [ "$ran" -eq 0 ]; then
        failed=$((failed + 1))
        return
    fi
    failed=$((failed + fails + errors))
    passed=$((passed + ran - fails - errors - skipped))
}

if [ -z "$only" ] || [ "$only" = openbox ]; then
    start_openbox
    run_tests openbox
    kill "${pids[@]}" 2>/dev/null || true
    pids=()
fi

if [ -z "$only" ] || [ "$only" = mutter ]; then
    export XDG_RUNTIME_DIR="$work/runtime"
    mkdir -m 0700 "$XDG_RUNTIME_DIR"
    wayland="wl-lathmark-$$"
    # A session bus of its own, which the tests share with mutter: they give
    # their input through mutter's remote desktop service on it.
    bus="$(dbus-daemon --session --fork --nopidfile --print-address=1 --print-pid=1 \
        --address="unix:path=$XDG_RUNTIME_DIR/bus")"
    pids+=("$(sed -n 2p <<<"$bus")")
    export DBUS_SESSION_BUS_ADDRESS="$(sed -n 1p <<<"$bus")"
    # The log is there before mutter writes to it: it is read below at once.
    : >"$work/mutter.log"
    mutter --wayland --headless --virtual-monitor 1600x1000 \
        --wayland-display "$wayland" >>"$work/mutter.log" 2>&1 &
    pids+=($!)
    # mutter names the display it gives X clients in its log; a socket left
    # behind by an earlier server may already bear that number.
    display=""
    for _ in $(seq 300); do
        display=$(sed -n 's/.*Using public X11 display :\([0-9]*\).*/\1/p' "$work/mutter.log" | head -1)
        auth=$(ls "$XDG_RUNTIME_DIR"/.mutter-Xwaylandauth.* 2>/dev/null | head -1 || true)
        [ -n "$display" ] && [ -n "$auth" ] && [ -e "/tmp/.X11-unix/X$display" ] &&
            [ -e "$XDG_RUNTIME_DIR/$wayland" ] && break
        sleep 0.05
    done
    if [ -z "$display" ] || [ -z "$auth" ]; then
        cat "$work/mutter.log" >&2
        echo "mutter brought up no Xwayland display" >&2
        exit 1
    fi
    export DISPLAY=":$display" XAUTHORITY="$auth" WAYLAND_DISPLAY="$wayland"
    wait_for_wm
    run_tests mutter
fi

echo "desktop: $passed passed, $failed failed"
[ "$failed" -eq 0 ]
