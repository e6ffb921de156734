# Sourced by the scripts that need a private X display. Makes $work, starts
# Xvfb on the first free display number from :99 and exports DISPLAY; on exit
# ends Xvfb and every process named in $extra_pids, and removes $work.
work="$(mktemp -d)"
xvfb_pid=""
extra_pids=()
cleanup() {
    for pid in "${extra_pids[@]}" "$xvfb_pid"; do
        if [ -n "$pid" ]; then
            kill "$pid" 2>/dev/null || true
            wait "$pid" 2>/dev/null || true
        fi
    done
    rm -rf "$work"
}
trap cleanup EXIT
trap 'exit 130' INT TERM

display=99
while [ -e "/tmp/.X$display-lock" ] || [ -e "/tmp/.X11-unix/X$display" ]; do
    display=$((display + 1))
done
Xvfb ":$display" -screen 0 1280x800x24 -br -nolisten tcp >"$work/xvfb.log" 2>&1 &
xvfb_pid=$!
for _ in $(seq 100); do
    [ -e "/tmp/.X11-unix/X$display" ] && break
    kill -0 "$xvfb_pid" 2>/dev/null || { cat "$work/xvfb.log" >&2; exit 1; }
    sleep 0.05
done
export DISPLAY=":$display"
