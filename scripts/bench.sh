#!/usr/bin/env bash
# Builds the benchmarks optimised, runs them, and prints each time as a ratio to the limit measured in the same run.
#
#   scripts/bench.sh [GLOB]    as in 'bench_find*'
#
# Qwt exists for Qt 5 only, so the benches that hold us against it run once more with Qt 5.
set -euo pipefail
source "$(dirname "$0")/packages.sh"
cd "$(dirname "$0")/.."
orim_packages "${orim_bench_packages[@]}"
glob=${1:-bench_*}

# bench FOLDER QT: builds and runs what matches, shows the ratios; the whole output lies beside the programs
bench() {
  local folder=$1 qt=$2 program
  mkdir -p "$folder"
  { cmake -S . -B "$folder" -G Ninja -DCMAKE_BUILD_TYPE=Release -DORIM_QT_MAJOR="$qt" -DORIM_BUILD_TESTS=OFF \
      -DORIM_BUILD_BENCH=ON && ninja -C "$folder"; } > "$folder.log" 2>&1 || { tail -n 40 "$folder.log"; exit 1; }
  for program in "$folder"/bin/$glob; do
    [ -e "$program" ] || continue
    echo "== $(basename "$program"), Qt $qt"
    "$program" --benchmark_repetitions=5 --benchmark_report_aggregates_only=true > "$program.txt" 2>&1 ||
      { tail -n 20 "$program.txt"; exit 1; }
    grep '^ratio' "$program.txt"
  done
}

bench build/bench-qt6 6
bench build/bench-qt5 5
