#!/usr/bin/env bash
# Builds the benchmarks optimised, runs them, and prints each time as a ratio to the limit measured in the same run.
#
#   scripts/bench.sh [GLOB]    as in 'bench_find*'
#
# A benchmark named Topic/ours.../N is held against Topic/limit.../N; peers are shown likewise. Results as JSON lie in
# build/release/bench and build/bench-qt5/bench.
set -euo pipefail
source "$(dirname "$0")/packages.sh"
cd "$(dirname "$0")/.."
orim_packages "${orim_bench_packages[@]}"
glob=${1:-bench_*}

cmake --preset release -DORIM_BUILD_BENCH=ON > /dev/null
ninja -C build/release > build/bench.log 2>&1 || { tail -n 40 build/bench.log; exit 1; }
mkdir -p build/release/bench
for program in build/release/bin/$glob; do
  name=$(basename "$program")
  echo "== $name"
  QT_QPA_PLATFORM=offscreen "$program" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true \
    --benchmark_out="build/release/bench/$name.json" --benchmark_out_format=json 2> /dev/null | grep -E '_median|^Benchmark' || true
done
