#!/usr/bin/env bash
# Seeded defects: proves that the tests notice when a statement is broken.
#
#   scripts/mutants.sh            every defect in tests/mutants
#   scripts/mutants.sh --short    those named in tests/mutants/short.txt
#   scripts/mutants.sh GLOB...    those whose file name matches, as in 'observable_*'
#
# A defect is one file tests/mutants/<class>_<what>.patch: a line "# killed-by: tst_name", then a unified diff. Each is
# applied to a copy of the sources, the named test is built and must fail. The copy and its build lie in build/mutants;
# the build is that of the preset qt5, so that after scripts/test.sh the compiler cache holds all that is not changed.
# Ends with "killed/total"; exit code 1 when a defect survived, did not apply or did not build.
set -euo pipefail
cd "$(dirname "$0")/.."
top=$PWD
work=${ORIM_MUTANTS_DIR:-$top/build/mutants}
jobs=${ORIM_JOBS:-$(nproc)}

wanted=()
case "${1:-}" in
  "") wanted=(tests/mutants/*.patch) ;;
  --short) mapfile -t names < <(grep -v '^#' tests/mutants/short.txt); wanted=("${names[@]/#/tests/mutants/}"); wanted=("${wanted[@]/%/.patch}") ;;
  *) for glob in "$@"; do for file in tests/mutants/$glob.patch; do [ -e "$file" ] && wanted+=("$file"); done; done ;;
esac
[ ${#wanted[@]} -gt 0 ] || { echo "no such defect"; exit 2; }

# A fresh copy; files that did not change keep their time, so that a second run rebuilds little.
copy_sources() {
  mkdir -p "$work/src"
  rm -rf "$work/fresh" && mkdir "$work/fresh"
  git ls-files -zco --exclude-standard | while IFS= read -r -d '' file; do
    [ -e "$file" ] && cp --parents -p "$file" "$work/fresh"
  done
  (cd "$work/fresh" && find . -type f -print0) | while IFS= read -r -d '' file; do
    cmp -s "$work/fresh/$file" "$work/src/$file" ||
      { mkdir -p "$work/src/$(dirname "$file")"; cp "$work/fresh/$file" "$work/src/$file"; }
  done
  (cd "$work/src" && find . -path ./build -prune -o -type f -print0) | while IFS= read -r -d '' file; do
    [ -e "$work/fresh/$file" ] || rm "$work/src/$file"
  done
}

# What a defect leaves unused is no reason not to build; only the changed source is compiled so, the cache keeps the rest.
quiet=
for kind in variable parameter function but-set-variable but-set-parameter; do
  quiet+="#pragma GCC diagnostic ignored \"-Wunused-$kind\"\n"
done

# The copy lies inside this repository: the ceiling makes git take it for a plain folder.
plant() {
  (cd "$work/src" && GIT_CEILING_DIRECTORIES="$work" git apply "$1") || return
  local file
  for file in $(changed "$1"); do
    case $file in *.cpp) sed -i "1s/^/$quiet/" "$work/src/$file" ;; esac
  done
}

changed() { sed -n 's,^+++ b/,,p' "$1"; }

# Without their old time: what was built from the defect is built again.
restore() {
  local file
  for file in $(changed "$1"); do cp "$top/$file" "$work/src/$file"; done
}

copy_sources
build=$work/src/build/qt5
(cd "$work/src" && cmake --preset qt5 -DORIM_RECORDINGS_DIR="$top/../shared/data") > "$work/configure.log"

killed=0; bad=()
for patch in "${wanted[@]}"; do
  name=$(basename "$patch" .patch)
  test=$(sed -n 's/^# killed-by: *//p' "$patch" | head -1)
  verdict=survived
  if ! plant "$top/$patch" 2> "$work/$name.log"; then
    verdict="does not apply"
  else
    if ! ninja -C "$build" -j "$jobs" "$test" > "$work/$name.log" 2>&1; then
      verdict="does not build"
    elif ! ctest --test-dir "$build" -R "^$test\$" --timeout 60 --no-tests=ignore >> "$work/$name.log" 2>&1; then
      verdict=killed; killed=$((killed + 1))
    fi
    restore "$top/$patch"
  fi
  [ "$verdict" = killed ] || bad+=("$name")
  printf '%-14s  %-48s %s\n' "$verdict" "$name" "$test"
done
echo "seeded defects: $killed/${#wanted[@]} killed${bad:+; not killed: ${bad[*]}}"
[ "$killed" -eq ${#wanted[@]} ]
