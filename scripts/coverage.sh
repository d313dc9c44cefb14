#!/usr/bin/env bash
# Branch coverage of the value tree, the store and the text parsers, from a build with -DORIM_COVERAGE=ON whose tests have
# run with LLVM_PROFILE_FILE inside the folder profile of the build. Fails below the floor.
#
#   scripts/coverage.sh build/asan
set -euo pipefail
build=${1:?build folder}
floor=95
# tests/coverage.txt names the sources that must hold the floor
mapfile -t sources < <(grep -v '^#' "$(dirname "$0")/../tests/coverage.txt")
profile=$(command -v llvm-profdata || ls /usr/bin/llvm-profdata-* | tail -1)
cover=$(command -v llvm-cov || ls /usr/bin/llvm-cov-* | tail -1)

"$profile" merge -sparse "$build"/profile/*.profraw -o "$build/coverage.profdata"
objects=()
for file in "$build"/bin/tst_* "$build"/lib/*.so; do
  [ -L "$file" ] || objects+=(-object "$file")
done
"$cover" report -instr-profile "$build/coverage.profdata" "${objects[@]}" --show-branch-summary "${sources[@]}" \
  > "$build/coverage.txt" 2> "$build/coverage.err" || { cat "$build/coverage.err"; exit 1; }
# columns: file, regions, missed, %, functions, missed, %, lines, missed, %, branches, missed, %
awk -v floor="$floor" '
  $1 ~ /\.(h|cpp)$/ && NF >= 13 { printf "%7s branches  %s (%d of %d missed)\n", $13, $1, $12, $11 }
  $1 == "TOTAL" { printf "branch coverage of tree, store and parsers: %s\n", $13; bad = ($13 + 0 < floor) }
  END { exit bad }' "$build/coverage.txt"
