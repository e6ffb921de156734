#!/usr/bin/env bash
# Start-up benchmark: under a private Xvfb display, measures the time from the start of
# the process to its first mapped window and its peak memory (VmHWM), for lathmark and
# for a bare Qt 6 Widgets window built the same way (Release, in build-bench/). One
# warm-up run of each, then 7 runs of each, alternating; prints the medians and the
# ratios against the targets. A measurement, not a test: exits 0 whatever the numbers.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
source "$root/scripts/bench-build.sh"
runs=7

build_bench lathmark bare-qt-window startup-probe

probe="$build/bench/startup-probe"
programs=("$build/app/lathmark" "$build/bench/bare-qt-window")
names=(lathmark bare-qt-window)

source "$root/scripts/xvfb-session.sh"
mkdir -m 700 "$work/runtime"
export QT_QPA_PLATFORM=xcb XDG_RUNTIME_DIR="$work/runtime"
unset WAYLAND_DISPLAY

# One run of program $1: prints "<ms> <kib>". Each run gets a fresh configuration
# folder, so every start is a first start.
run_one() {
    local config
    config="$(mktemp -d "$work/config.XXXXXX")"
    XDG_CONFIG_HOME="$config" "$probe" "$1" || {
        echo "bench-startup: the run of $1 failed" >&2
        return 1
    }
    rm -rf "$config"
}


for i in 0 1; do run_one "${programs[$i]}" >/dev/null; done  # warm-up
for i in 0 1; do : >"$work/${names[$i]}.txt"; done
for r in $(seq "$runs"); do
    # Alternate which program goes first, run by run.
    if [ $((r % 2)) -eq 1 ]; then order=(0 1); else order=(1 0); fi
    for i in "${order[@]}"; do
        run_one "${programs[$i]}" >>"$work/${names[$i]}.txt"
    done
done

declare -A ms kib
for n in "${names[@]}"; do
    ms[$n]="$(cut -d' ' -f1 "$work/$n.txt" | median)"
    kib[$n]="$(cut -d' ' -f2 "$work/$n.txt" | median)"
done

echo "Start-up to first mapped window, median of $runs runs after a warm-up (Xvfb 1280x800x24):"
printf '  %-16s %10s %14s\n' program "time (ms)" "peak mem (MiB)"
for n in "${names[@]}"; do
    awk -v n="$n" -v t="${ms[$n]}" -v k="${kib[$n]}" \
        'BEGIN { printf "  %-16s %10.1f %14.1f\n", n, t, k / 1024 }'
done
awk -v t1="${ms[lathmark]}" -v t0="${ms[bare-qt-window]}" \
    -v k1="${kib[lathmark]}" -v k0="${kib[bare-qt-window]}" 'BEGIN {
    rt = t1 / t0; rk = k1 / k0
    printf "  %-16s %10.2f %14.2f\n", "lathmark/bare", rt, rk
    printf "  %-16s %10.2f %14.2f\n", "target", 1.3, 1.2
    printf "  %-16s %10s %14s\n", "", (rt <= 1.3 ? "met" : "NOT met"), (rk <= 1.2 ? "met" : "NOT met")
}'
exit 0
