#!/usr/bin/env bash
# Runs one fuzz target, or all of them, for a bounded number of inputs:
#   scripts/fuzz.sh TARGET RUNS      e.g. scripts/fuzz.sh parse_text 1000000
#   scripts/fuzz.sh all RUNS         every target, one after the other
# Targets: read_number parse_text format_text combine_texts settings_file
# settings_values memory_file memory_file_disk. Builds with clang, AddressSanitizer and UndefinedBehaviorSanitizer
# in build-fuzz/ (or $FUZZ_BUILD). Each target starts from its corpus in
# fuzz/corpus/TARGET and the dictionary of measurement marks; what it finds
# new goes to the build folder, never into the source tree. A failure leaves
# its input as crash-* in the build folder and ends the script with status 1.
# FUZZ_SECONDS bounds the time of each target as well (default: no bound).
# FUZZ_JOBS=N shares the runs among N processes side by side, one corpus
# between them (their logs are fuzz-*.log in the target's work folder).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
all_targets=(read_number parse_text format_text combine_texts settings_file settings_values
             memory_file memory_file_disk)

if [ $# -ne 2 ] || ! [[ "$2" =~ ^[0-9]+$ ]]; then
    echo "usage: $0 TARGET|all RUNS   (targets: ${all_targets[*]})" >&2
    exit 2
fi
if [ "$1" = all ]; then
    targets=("${all_targets[@]}")
else
    targets=("${1#fuzz_}")
    [ -d "$root/fuzz/corpus/${targets[0]}" ] || { echo "no target $1" >&2; exit 2; }
fi
runs="$2"

"$root/scripts/deps.sh" --fuzz
build="${FUZZ_BUILD:-$root/build-fuzz}"
CXX=clang++ cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DLATHMARK_FUZZ=ON -DLATHMARK_BUILD_GUI=OFF -DLATHMARK_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" --target $(printf 'fuzz_%s ' "${targets[@]}")

export ASAN_OPTIONS="${ASAN_OPTIONS:-detect_leaks=1}"
export UBSAN_OPTIONS="${UBSAN_OPTIONS:-print_stacktrace=1:halt_on_error=1}"
for t in "${targets[@]}"; do
    work="$build/fuzz/work/$t"
    mkdir -p "$work/corpus"
    echo "== fuzz_$t: $runs runs"
    extra=()
    [ -n "${FUZZ_SECONDS:-}" ] && extra+=(-max_total_time="$FUZZ_SECONDS")
    # The memory file targets keep their program from one input to the next,
    # which libFuzzer's leak search after each input takes for a leak and
    # scans for at great cost; leaks are still searched for when it ends.
    case "$t" in
        memory_file | memory_file_disk) extra+=(-detect_leaks=0) ;;
    esac
    # The disk's reader reads in pieces of 64 KiB: its inputs go well past
    # libFuzzer's default of 4 KB, up to a megabyte.
    [ "$t" = memory_file_disk ] && extra+=(-max_len=1048576)
    each="$runs"
    if [ "${FUZZ_JOBS:-1}" -gt 1 ]; then
        each=$(((runs + FUZZ_JOBS - 1) / FUZZ_JOBS))
        extra+=(-jobs="$FUZZ_JOBS" -workers="$FUZZ_JOBS")
    fi
    (cd "$work" && "$build/fuzz/fuzz_$t" -runs="$each" -dict="$root/fuzz/marks.dict" \
        -print_final_stats=1 "${extra[@]}" corpus "$root/fuzz/corpus/$t")
    if [ "${FUZZ_JOBS:-1}" -gt 1 ]; then
        for log in "$work"/fuzz-*.log; do
            echo "-- $(basename "$log")"
            grep -E '^(Done|stat::)|ERROR|==[0-9]+==' "$log" || true
        done
        if grep -lE '^==[0-9]+==ERROR|^SUMMARY|deadly signal|property failed' "$work"/fuzz-*.log; then
            exit 1
        fi
    fi
done
