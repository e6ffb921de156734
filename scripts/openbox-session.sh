# Sourced by the scripts that run the calculator on a real desktop. Makes
# $work, ends every process named in $pids and removes $work on exit, and
# gives:
#   free_display   the first free X display number from :90
#   wait_for_wm    waits until a window manager has said it is there
#   start_openbox  Xvfb at 1600x1000 with openbox on it, DISPLAY exported
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

free_display() {
    local n=90
    while [ -e "/tmp/.X$n-lock" ] || [ -e "/tmp/.X11-unix/X$n" ]; do n=$((n + 1)); done
    echo "$n"
}

# EWMH's check window is there once the window manager runs.
wait_for_wm() {
    for _ in $(seq 200); do
        xprop -root _NET_SUPPORTING_WM_CHECK 2>/dev/null | grep -q "window id" && return 0
        sleep 0.05
    done
    echo "no window manager came up on $DISPLAY" >&2
    return 1
}

start_openbox() {
    local n
    n=$(free_display)
    Xvfb ":$n" -screen 0 1600x1000x24 -dpi 96 -nolisten tcp >"$work/xvfb.log" 2>&1 &
    pids+=($!)
    for _ in $(seq 100); do [ -e "/tmp/.X11-unix/X$n" ] && break; sleep 0.05; done
    export DISPLAY=":$n"
    openbox >"$work/openbox.log" 2>&1 &
    pids+=($!)
    wait_for_wm
}
