#!/usr/bin/env bash
# Builds everything and passes all tests, packages included.
#
#   scripts/test.sh            Qt 6 optimised, Qt 5.15, Qt 6 under the sanitizers with branch coverage, seeded defects, style
#   scripts/test.sh --quick    Qt 6 only, without the sanitizers and the long programs
#
# Ends with the summary of CTest; exit code 0 only when everything passed.
set -euo pipefail
source "$(dirname "$0")/packages.sh"
cd "$(dirname "$0")/.."
orim_packages "${orim_test_packages[@]}"

export CCACHE_MAXSIZE=${CCACHE_MAXSIZE:-4G}
export CCACHE_INODECACHE=true # the precompiled header is large: hashed once, not for each source
started=$SECONDS
say() { printf '\n== %s (%d s)\n' "$*" $((SECONDS - started)); }

# build PRESET [cmake option ...]: quiet when it works
build() {
  local preset=$1; shift
  say "Building $preset"
  mkdir -p "build/$preset"
  if ! { cmake --preset "$preset" "$@" && ninja -C "build/$preset"; } > "build/$preset.log" 2>&1; then
    grep -nE 'error|FAILED|CMake Error' "build/$preset.log" | head -n 40
    tail -n 20 "build/$preset.log"
    exit 1
  fi
}

# run PRESET [ctest option ...]
run() {
  local preset=$1; shift
  say "Testing $preset"
  ctest --test-dir "build/$preset" --output-on-failure --no-tests=error "$@"
}

if [ "${1:-}" = --quick ]; then
  build release -DORIM_BUILD_BENCH=OFF
  run release -LE soak -j 2
  exit
fi

say "Style"
scripts/style.sh --format

build qt5
run qt5 -j 2

build asan -DORIM_COVERAGE=ON
rm -rf build/asan/profile
LLVM_PROFILE_FILE="$PWD/build/asan/profile/%m.profraw" run asan -j 2
scripts/coverage.sh build/asan

say "Seeded defects"
scripts/mutants.sh --short

build release -DORIM_BUILD_BENCH=OFF
figures=build/figures.txt
run release -j 2 -L soak -V > "$figures" 2>&1 || { tail -n 60 "$figures"; exit 1; }
say "Figures of the long programs"
grep -hE 'figures:' "$figures" | sed 's/^[0-9]*: *//' || true
run release -LE soak -j 2
