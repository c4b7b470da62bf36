#!/usr/bin/env bash
# Builds the benchmarks fully optimised and runs them. Exits with 1 when a bound of drawing is missed. The figures are
# explained in docs/performance.md.
#
#   ./bench.sh                     all of them, on private displays
#   ./bench.sh drawing [option…]   only drawing; options are Google Benchmark's, for instance --benchmark_filter=glow
#   ./bench.sh logic [option…]     one tick of the tracker and one pass of the overlay
#   ./bench.sh lag|idle|start|ui   the whole program on a desktop
set -euo pipefail
cd "$(dirname "$0")"

scripts/install-packages build test
cmake --preset bench >/dev/null
cmake --build --preset bench --parallel "$(nproc)" \
    --target haloric-drawing-bench haloric-logic-bench haloric-desktop-bench haloric

case "${1:-all}" in
    drawing | logic) exec "build-bench/bin/haloric-$1-bench" "${@:2}" ;;
    lag | idle | start | ui) exec build-bench/bin/haloric-desktop-bench "$1" ;;
    all)
        for what in lag idle start ui; do
            build-bench/bin/haloric-desktop-bench "$what"
        done
        build-bench/bin/haloric-logic-bench
        build-bench/bin/haloric-drawing-bench
        ;;
    *)
        sed -n 's/^#   //p' "$0" >&2
        exit 2
        ;;
esac
