#!/usr/bin/env bash
# The long forms of the reliability programs, on demand: hours, not minutes.
#
#   scripts/soak.sh [NAME...]    CTest names; without, every program labelled soak, sanitized and optimised, and every
#                                seeded defect
set -euo pipefail
source "$(dirname "$0")/packages.sh"
cd "$(dirname "$0")/.."
orim_packages "${orim_test_packages[@]}"
export ORIM_LONG=1
pattern=$(IFS='|'; echo "${*:-.}")
for preset in asan release; do
  cmake --preset "$preset" -DORIM_BUILD_BENCH=OFF > /dev/null
  ninja -C "build/$preset" > "build/$preset.log" 2>&1 || { tail -n 40 "build/$preset.log"; exit 1; }
  ctest --test-dir "build/$preset" -L soak -R "$pattern" --timeout 36000 -V | tee "build/soak-$preset.log"
done
[ $# -gt 0 ] || scripts/mutants.sh
