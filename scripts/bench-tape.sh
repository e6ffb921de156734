#!/usr/bin/env bash
# Tape memory benchmark: the program, headless, makes 500 memory cells and takes the
# calculator's tape to its last row, 32,767 lines (bench/tape_memory.cpp); each run
# reports the peak resident memory of the process (VmHWM) and where it stood once the
# program had started. Built Release in build-bench/; 5 runs, medians.
# A measurement, not a test: exits 0 whatever the numbers, unless a run fails.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
source "$root/scripts/bench-build.sh"
runs=5

build_bench tape-memory-bench

work="$(mktemp -d)"
trap 'rm -rf "$work"' EXIT
for _ in $(seq "$runs"); do
    "$build/bench/tape-memory-bench" >>"$work/runs.txt" || {
        echo "bench-tape: a run failed" >&2
        exit 1
    }
done

start_kib="$(cut -d' ' -f1 "$work/runs.txt" | median)"
peak_kib="$(cut -d' ' -f2 "$work/runs.txt" | median)"

echo "500 memory cells and a calculator tape of 32,767 lines, headless, median of $runs runs:"
awk -v s="$start_kib" -v p="$peak_kib" 'BEGIN {
    mb = p * 1024 / 1e6
    printf "  %-30s %8.1f MB\n", "resident once started", s * 1024 / 1e6
    printf "  %-30s %8.1f MB   (target 80 MB: %s)\n", "peak resident (VmHWM)", mb, (mb < 80 ? "met" : "NOT met")
}'
exit 0
