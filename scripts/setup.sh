#!/usr/bin/env bash
# Installs the Debian packages the project needs (only those that are missing),
# then configures and builds one build tree.
#   scripts/setup.sh [BUILD_DIR] [extra cmake arguments...]
set -euo pipefail
here="$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)"
build="${1:-$here/build}"
shift || true

packages=(
    cmake g++ make pkg-config binutils
    qtbase5-dev qttools5-dev qttools5-dev-tools
    libqwt-qt5-dev libqt5svg5-dev libqt5opengl5-dev
    libqt-advanced-docking-system-dev
    zlib1g-dev libbenchmark-dev
    clang libclang-rt-14-dev
    xvfb qttranslations5-l10n
)
missing=()
for p in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$p")
    fi
done
if [ "${#missing[@]}" -gt 0 ]; then
    echo "setup: installing ${missing[*]}"
    sudo_cmd=""
    [ "$(id -u)" -ne 0 ] && sudo_cmd="sudo"
    $sudo_cmd apt-get update
    DEBIAN_FRONTEND=noninteractive $sudo_cmd apt-get install -y --no-install-recommends "${missing[@]}"
fi

jobs="$(nproc 2>/dev/null || echo 2)"
cmake -S "$here" -B "$build" "$@"
cmake --build "$build" --parallel "$jobs"
