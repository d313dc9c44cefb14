#!/usr/bin/env bash
# Builds orim-console and runs it, packages included.
#
#   scripts/console.sh                    a simulated receiver
#   scripts/console.sh FILE.sigmf-meta    plays a recording
#   scripts/console.sh --help             all options
#
# Where there is no display it runs offscreen for some seconds, leaves a picture in build/console.png and prints figures.
set -euo pipefail
source "$(dirname "$0")/packages.sh"
top=$(cd "$(dirname "$0")/.." && pwd)
orim_packages "${orim_console_packages[@]}"

log=$top/build/console.log
mkdir -p "$top/build"
echo "Building orim-console; the log is $log"
if ! { cmake -S "$top" -B "$top/build/console" -G Ninja -DCMAKE_BUILD_TYPE=Release -DORIM_BUILD_TESTS=OFF \
         -DORIM_BUILD_BENCH=OFF -DORIM_BUILD_EXAMPLES=OFF && ninja -C "$top/build/console" orim-console; } > "$log" 2>&1; then
  tail -n 40 "$log" >&2
  exit 1
fi

console=$top/build/console/bin/orim-console
if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
  exec "$console" "$@"
fi
export QT_QPA_PLATFORM=offscreen
case " $* " in
  *" --screenshot"*|*" --help "*|*" -h "*|*" --version "*|*" -v "*|*" --seconds"*) exec "$console" "$@" ;;
esac
"$console" --screenshot "$top/build/console.png" --after 5 --size 1280x800 "$@"
echo "No display: the picture is $top/build/console.png"
