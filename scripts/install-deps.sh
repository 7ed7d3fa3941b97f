#!/usr/bin/env bash
# Installs the Debian packages that building, testing and screenshots need, and nothing when
# they are all there already (the common case, which then costs one dpkg query).
set -euo pipefail

packages=(cmake g++ make clang-format qt6-base-dev libqt6sql6-sqlite libgl-dev qt6-tools-dev
          libqt6opengl6-dev xvfb xauth
          fonts-dejavu-core sqlite3)
[ "${KW_WITH_BENCH:-0}" = 1 ] && packages+=(libbenchmark-dev libwxgtk3.2-dev)
[ "${KW_WITH_FUZZ:-0}" = 1 ] && packages+=(clang libclang-rt-14-dev)
[ "${KW_WITH_DOCS:-0}" = 1 ] && packages+=(doxygen)

missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q 'install ok installed' || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo=""
[ "$(id -u)" -ne 0 ] && sudo="sudo"
export DEBIAN_FRONTEND=noninteractive
$sudo apt-get update -q
$sudo apt-get install -y -q --no-install-recommends "${missing[@]}"
