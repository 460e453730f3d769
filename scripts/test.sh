#!/usr/bin/env bash
# Builds Pandrel and runs every test.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${PANDREL_BUILD:-$root/build}"
"$root/scripts/setup.sh"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "$(nproc)" --timeout 300
