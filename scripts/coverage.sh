#!/usr/bin/env bash
# Branch coverage of the value tree, the store and the text parsers, from a build with -DORIM_COVERAGE=ON whose tests have
# run with LLVM_PROFILE_FILE inside the folder profile of the build. Fails below the floor.
#
#   scripts/coverage.sh build/asan
set -euo pipefail
cd "$(dirname "$0")/.."
build=${1:?build folder}
floor=95
# tests/coverage.txt names the sources that must hold the floor
mapfile -t sources < <(grep -v '^#' tests/coverage.txt)
profile=$(command -v llvm-profdata || ls /usr/bin/llvm-profdata-* | tail -1)
cover=$(command -v llvm-cov || ls /usr/bin/llvm-cov-* | tail -1)

"$profile" merge -sparse "$build"/profile/*.profraw -o "$build/coverage.profdata"
# the libraries hold all sources but those of the console, which the test programs carry
objects=("$build"/lib/libOrimContracts-qt6.so -object "$build"/lib/libOrimWidgets-qt6.so -object "$build"/bin/tst_sigmfmeta)
for file in "$build"/bin/tst_value* "$build"/bin/tst_tree*; do # templates live in the tests too
  objects+=(-object "$file")
done
"$cover" report "${objects[@]}" -instr-profile "$build/coverage.profdata" --show-branch-summary \
  > "$build/coverage.txt" 2> "$build/coverage.err" || { cat "$build/coverage.err"; exit 1; }
# columns: file, regions, missed, %, functions, missed, %, lines, missed, %, branches, missed, %
printf '%s\n' "${sources[@]}" | awk -v floor="$floor" '
  NR == FNR { wanted[$1]; next }
  { sub(/^([.][.]\/)+/, "", $1) }
  $1 in wanted && NF >= 13 {
    printf "%8s branches  %s (%d of %d missed)\n", $13, $1, $12, $11
    all += $11; missed += $12; delete wanted[$1]
  }
  END {
    for (file in wanted) printf "%8s branches  %s\n", "no", file
    percent = all ? 100 * (all - missed) / all : 0
    printf "figures: branch coverage of tree, store and parsers: %.2f %% of %d branches\n", percent, all
    exit percent < floor
  }' - "$build/coverage.txt"
