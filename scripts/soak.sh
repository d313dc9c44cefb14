#!/usr/bin/env bash
# The long forms of the reliability programs, on demand: hours, not minutes.
#
#   scripts/soak.sh [NAME...]    CTest names; without, every program labelled soak, sanitized and optimised, and every
#                                seeded defect
#
# tst_zoom_endurance holds a history of 100 million entries: some 2.5 GB, more under the sanitizers.
set -euo pipefail
source "$(dirname "$0")/packages.sh"
cd "$(dirname "$0")/.."
orim_packages "${orim_test_packages[@]}"
export ORIM_LONG=1 # when the build is configured, too: its tests then have hours
export QTEST_FUNCTION_TIMEOUT=36000000 # ms, as long as those
pattern=$(IFS='|'; echo "${*:-.}")
for preset in asan release; do
  cmake --preset "$preset" -DORIM_BUILD_BENCH=OFF > /dev/null
  ninja -C "build/$preset" > "build/$preset.log" 2>&1 || { tail -n 40 "build/$preset.log"; exit 1; }
  ctest --test-dir "build/$preset" -L soak -R "$pattern" -V | tee "build/soak-$preset.log"
done
[ $# -gt 0 ] || env -u ORIM_LONG -u QTEST_FUNCTION_TIMEOUT scripts/mutants.sh
