#!/usr/bin/env bash
# The checks of form.
#
#   scripts/style.sh --format          every C++ file stands as clang-format leaves it
#   scripts/style.sh --tidy [BUILD]    clang-tidy over contracts, controls and apps, by the compile commands of BUILD
#                                      (default build/tidy, configured here without precompiled headers)
set -euo pipefail
cd "$(dirname "$0")/.."
case "${1:-}" in
  --format)
    git ls-files -z '*.h' '*.cpp' '*.c' | xargs -0 clang-format --dry-run --Werror
    echo "clang-format: clean" ;;
  --tidy)
    build=${2:-build/tidy}
    if [ ! -e "$build/build.ninja" ]; then
      CC=clang CXX=clang++ cmake -S . -B "$build" -G Ninja -DORIM_PCH=OFF -DORIM_BUILD_BENCH=OFF \
        -DCMAKE_EXPORT_COMPILE_COMMANDS=ON -DCMAKE_BUILD_TYPE=Debug > /dev/null
    fi
    # the generated headers
    ninja -C "$build" $(ninja -C "$build" -t targets all | sed -n 's/^\([^:]*_autogen\): phony$/\1/p') > /dev/null
    git ls-files -z 'contracts/*.cpp' 'controls/*.cpp' 'apps/*.cpp' | xargs -0 -n 4 -P "$(nproc)" clang-tidy -p "$build" --quiet
    echo "clang-tidy: clean" ;;
  *) sed -n '2,6p' "$0"; exit 2 ;;
esac
