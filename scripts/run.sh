#!/usr/bin/env bash
# Builds Pandrel and opens the handheld named as the first argument, or the working copy of the
# bundled sample handheld. Without a display it prints the sample's catalogue instead.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build="${PANDREL_BUILD:-$root/build}"
"$root/scripts/setup.sh"

if [ -n "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ -x "$build/pandrel" ]; then
    exec "$build/pandrel" "$@"
fi
echo "No display here: the sample handheld's AppForge databases, by creator (pandrel-cli):"
for creator in $("$build/pandrel-cli" creators --kind appforge); do
    echo "$creator"
    "$build/pandrel-cli" databases "$creator" | sed 's/^/    /'
done
