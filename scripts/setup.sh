#!/usr/bin/env bash
# Installs what Pandrel needs to build and test on Debian (as root, or with sudo), then configures
# the build folder. Does nothing that is already done.
set -euo pipefail

packages=(cmake g++ ninja-build pkg-config qt6-base-dev libgl-dev libgtest-dev libzip-dev libical-dev
          fonts-liberation)
missing=()
for package in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" ||
        missing+=("$package")
done
if [ ${#missing[@]} -gt 0 ]; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    echo "Installing: ${missing[*]}"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq "${missing[@]}" >/dev/null
fi

root=$(cd "$(dirname "$0")/.." && pwd)
build="${PANDREL_BUILD:-$root/build}"
cmake -S "$root" -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=Release >/dev/null
cmake --build "$build" -j "$(nproc)"
