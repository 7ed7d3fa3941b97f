#!/usr/bin/env bash
# Runs the form program on the shipped showcase. With no display it renders the window to a PNG
# file and prints the values; with one it opens the window.
set -euo pipefail
build=${1:-build}
form="$build/apps/form/kwfielddeck-form"
# The showcase as shipped, beside the example database it reads its combo lists from.
showcase="$(cd "$(dirname "$0")/.." && pwd)/examples/showcase.kwdef"
example="$build/examples/host/kwfielddeck-example"

if [ -x "$form" ]; then
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        QT_QPA_PLATFORM=offscreen "$form" --screenshot "$build/showcase.png" "$showcase"
        echo "Screenshot: $build/showcase.png"
    else
        "$form" "$showcase"
    fi
elif [ -x "$example" ]; then
    if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
        QT_QPA_PLATFORM=offscreen "$example" --screenshot "$build/example.png"
    else
        "$example"
    fi
else
    echo "Nothing to run yet: neither $form nor $example was built." >&2
    exit 1
fi
