#!/usr/bin/env bash
# Memory cells benchmark: under a private Xvfb display, the program in its real windows
# makes 500 cells; each run reports the time of New Memory for the 500th cell and of
# Arrange with 500 cells (in place, and with every cell moved to one corner) (from the click until the windows have caught up), and the
# resident memory each cell costs. Built Release in build-bench/; 5 runs, medians.
# A measurement, not a test: exits 0 whatever the numbers, unless a run fails.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/deps.sh"
build="$root/build-bench"
runs=5

cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
    -DLATHMARK_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" --target memory-cells-bench >/dev/null

source "$root/scripts/xvfb-session.sh"
mkdir -m 700 "$work/runtime"
export QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$work/runtime"
unset WAYLAND_DISPLAY

: >"$work/runs.txt"
for _ in $(seq "$runs"); do
    "$build/bench/memory-cells-bench" 2>/dev/null >>"$work/runs.txt" || {
        echo "bench-memory: a run failed" >&2
        exit 1
    }
done

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
new_ms="$(cut -d' ' -f1 "$work/runs.txt" | median)"
arrange_ms="$(cut -d' ' -f2 "$work/runs.txt" | median)"
scattered_ms="$(cut -d' ' -f3 "$work/runs.txt" | median)"
kib="$(cut -d' ' -f4 "$work/runs.txt" | median)"

echo "500 memory cells in the real windows, median of $runs runs (Xvfb 1280x800x24):"
awk -v n="$new_ms" -v a="$arrange_ms" -v s="$scattered_ms" -v k="$kib" 'BEGIN {
    printf "  %-34s %8.2f ms   (target 50 ms: %s)\n", "New Memory for the 500th cell", n, (n < 50 ? "met" : "NOT met")
    printf "  %-34s %8.2f ms   (target 50 ms: %s)\n", "Arrange with 500 cells in place", a, (a < 50 ? "met" : "NOT met")
    printf "  %-34s %8.2f ms   (target 50 ms: %s)\n", "Arrange with 500 cells scattered", s, (s < 50 ? "met" : "NOT met")
    printf "  %-34s %8.1f KiB resident\n", "each cell", k
}'
exit 0
