# Sourced by the other scripts: installs Debian packages that are missing, as root or through sudo.

# orim_packages NAME...
orim_packages() {
  local missing=() name sudo=""
  for name in "$@"; do
    dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
  done
  [ ${#missing[@]} -eq 0 ] && return 0
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo > /dev/null || { echo "These packages are missing, and there is no sudo: ${missing[*]}" >&2; return 1; }
    sudo=sudo
  fi
  echo "Installing ${missing[*]}"
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get update -qq
  $sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" > /dev/null
}

orim_console_packages=(g++ cmake ninja-build ccache pkg-config qt6-base-dev qt6-tools-dev qt6-tools-dev-tools
  qt6-l10n-tools libliquid-dev fonts-dejavu-core)
orim_test_packages=("${orim_console_packages[@]}" git qtbase5-dev qttools5-dev qttools5-dev-tools clang lld llvm
  libclang-rt-14-dev clang-tidy clang-format valgrind strace util-linux)
orim_bench_packages=("${orim_console_packages[@]}" libbenchmark-dev qtbase5-dev qttools5-dev qttools5-dev-tools
  libqwt-qt5-dev libqcustomplot-dev)
