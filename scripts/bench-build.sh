# Sourced by the benchmark scripts, with $root set to the project: installs
# what is missing, and gives
#   build_bench TARGET...  the targets built Release in build-bench/, into
#                          $build, without the tests
#   median                 the median of the numbers on standard input, one
#                          a line
"$root/scripts/deps.sh"
build="$root/build-bench"

build_bench() {
    cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release \
        -DLATHMARK_BUILD_TESTS=OFF >/dev/null
    cmake --build "$build" --target "$@" >/dev/null
}

median() { sort -n | awk '{ v[NR] = $1 } END { print v[int((NR + 1) / 2)] }'; }
