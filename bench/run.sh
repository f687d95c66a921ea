#!/usr/bin/env bash
# Builds the benchmark program of the release preset and runs it. Every figure is the
# median of nine runs, interleaved with the others; the closing table gives each median
# with its ratio to the floor measured in the same run and the target it has to meet.
# Arguments go to the program, e.g. --benchmark_filter=split or --benchmark_repetitions=15.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release >/dev/null
cmake --build --preset release --target vastrel_bench
echo "==> load average: $(cut -d' ' -f1-3 /proc/loadavg) (figures are noisy when it is above the core count)"
exec ./build/release/bench/vastrel_bench "$@"
