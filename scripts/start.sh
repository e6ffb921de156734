#!/usr/bin/env bash
# Builds Lathmark Calculator and starts it.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
"$root/scripts/deps.sh"
cmake -S "$root" -B "$root/build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo >/dev/null
cmake --build "$root/build" --target lathmark
exec "$root/build/app/lathmark"
