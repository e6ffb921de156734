#!/usr/bin/env bash
# Builds everything and runs every test. With --sanitize, builds with
# AddressSanitizer and UndefinedBehaviorSanitizer in build-asan instead.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/deps.sh"
build="$root/build"
extra=()
if [ "${1:-}" = "--sanitize" ]; then
    build="$root/build-asan"
    extra=(-DLATHMARK_SANITIZE=ON)
fi
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo "${extra[@]}" >/dev/null
cmake --build "$build"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir "$build" --output-on-failure -j2
