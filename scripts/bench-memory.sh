#!/usr/bin/env bash
# Memory cells benchmark: under a private Xvfb display, the program in its real windows
# makes 500 cells; each run reports the time of New Memory for the 500th cell and of
# Arrange with 500 cells (in place, and with every cell moved to one corner) (from the click until the windows have caught up), and the
# resident memory each cell costs. Then, with 500 cells, every command the user has
# (the slowest of them is the figure), and File, Open of a file of 30,000 cells, and of
# one that stops short and leaves them stacked, in the real windows and headless.
# Built Release in build-bench/; 5 runs, medians.
# A measurement, not a test: exits 0 whatever the numbers, unless a run fails.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
source "$root/scripts/bench-build.sh"
runs=5

build_bench memory-cells-bench memory-commands-bench \
    memory-file-open-bench

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

# Every command with 500 cells: each command's median over the runs.
: >"$work/commands.txt"
for run in $(seq "$runs"); do
    "$build/bench/memory-commands-bench" 2>/dev/null | sed "s/^/$run /" >>"$work/commands.txt" || {
        echo "bench-memory: a run of the commands failed" >&2
        exit 1
    }
done
echo "Every command with 500 cells, median of $runs runs; the five slowest:"
awk '{ run = $1; ms = $NF; $1 = ""; $NF = ""; sub(/^ /, ""); sub(/ $/, ""); print ms "\t" $0 }' \
    "$work/commands.txt" | sort -t$'\t' -k2,2 -k1,1n |
    awk -F'\t' -v n="$runs" '{ v[$2] = v[$2] " " $1; c[$2]++ }
        END { for (k in v) { split(substr(v[k], 2), a, " "); print a[int((c[k] + 1) / 2)] "\t" k } }' |
    sort -t$'\t' -k1,1nr >"$work/medians.txt"
head -5 "$work/medians.txt" | awk -F'\t' '{ printf "  %-34s %8.2f ms\n", $2, $1 }'
awk -F'\t' -v n="$(wc -l <"$work/medians.txt")" 'NR == 1 {
    printf "  %d commands, the slowest %.2f ms   (target 50 ms: %s)\n", n, $1, ($1 < 50 ? "met" : "NOT met") }' \
    "$work/medians.txt"

# A memory file of 30,000 cells, in the real windows and headless.
: >"$work/windows.txt"
: >"$work/headless.txt"
for _ in $(seq "$runs"); do
    "$build/bench/memory-file-open-bench" 2>/dev/null >>"$work/windows.txt" &&
        "$build/bench/memory-file-open-bench" --headless 2>/dev/null >>"$work/headless.txt" || {
        echo "bench-memory: a run of the file open failed" >&2
        exit 1
    }
done
echo "File, Open of 30,000 cells, median of $runs runs:"
for kind in windows headless; do
    good="$(cut -d' ' -f1 "$work/$kind.txt" | median)"
    stacked="$(cut -d' ' -f2 "$work/$kind.txt" | median)"
    peak="$(cut -d' ' -f3 "$work/$kind.txt" | median)"
    target=$([ "$kind" = windows ] && echo 2000 || echo 1000)
    awk -v k="$kind" -v g="$good" -v s="$stacked" -v p="$peak" -v t="$target" 'BEGIN {
        printf "  %-8s a good file %8.1f ms, stacked %8.1f ms, peak %6.1f MiB   (target %d ms: %s)\n",
            k, g, s, p / 1024, t, (g < t && s < t ? "met" : "NOT met") }'
done
exit 0
