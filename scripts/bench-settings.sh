#!/usr/bin/env bash
# Settings benchmark: the program, headless, starts on a large settings file and ends
# with Exit (bench/settings_start_exit.cpp), which times the start (the file read, the
# Load of the calculator) and Exit (the settings written, the program ended). Two
# files: 1 MB of keys of some other program in one section beside the program's own,
# and 30,000 sections of one key each. Each run starts from a fresh copy of the file.
# Built Release in build-bench/; 5 runs of each, medians against the target of 0.5 s.
# A measurement, not a test: exits 0 whatever the numbers, unless a run fails.
# BENCH_RUNS changes the number of runs.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
source "$root/scripts/bench-build.sh"
runs="${BENCH_RUNS:-5}"

build_bench settings-bench

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT

# The program's own settings, then 1,000,000 bytes in all of short keys.
awk 'BEGIN {
    head = "[Colors]\nCalcBackground=8421376\n\n[Settings]\nZoom=False\nCalcTop=2000\n\n[Extra]\n"
    printf "%s", head
    size = length(head)
    for (n = 0; ; n++) {
        line = sprintf("%x=1\n", n)
        if (size + length(line) > 1000000) break
        printf "%s", line
        size += length(line)
    }
    while (size < 1000000) { printf "\n"; size++ }
}' >"$work/keys.conf"
awk 'BEGIN { for (n = 0; n < 30000; n++) printf "[s%d]\nk=v\n", n }' >"$work/sections.conf"

for kind in keys sections; do
    : >"$work/$kind.runs"
    for _ in $(seq "$runs"); do
        mkdir -p "$work/run"
        cp "$work/$kind.conf" "$work/run/Lathmark.conf"
        "$build/bench/settings-bench" "$work/run/Lathmark.conf" >>"$work/$kind.runs" || {
            echo "bench-settings: a run on $kind.conf failed" >&2
            exit 1
        }
        rm -rf "$work/run"
    done
done

echo "The program headless on a large settings file, median of $runs runs:"
for kind in keys sections; do
    start="$(cut -d' ' -f1 "$work/$kind.runs" | median)"
    exit_ms="$(cut -d' ' -f2 "$work/$kind.runs" | median)"
    entries="$(cut -d' ' -f3 "$work/$kind.runs" | median)"
    bytes="$(stat -c %s "$work/$kind.conf")"
    awk -v k="$kind" -v b="$bytes" -v e="$entries" -v s="$start" -v x="$exit_ms" 'BEGIN {
        label = (k == "keys") ? sprintf("%d bytes, %d entries", b, e) : sprintf("%d bytes, 30,000 sections", b)
        printf "  %s\n", label
        printf "    %-8s %10.2f ms   (target 500 ms: %s)\n", "start", s, (s < 500 ? "met" : "NOT met")
        printf "    %-8s %10.2f ms   (target 500 ms: %s)\n", "Exit", x, (x < 500 ? "met" : "NOT met")
    }'
done
exit 0
