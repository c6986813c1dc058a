#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the console editor and starts it; arguments are the editor's. Without a display and without
# arguments it draws the shipped screens into build/screens instead.
set -euo pipefail
export LANG=C.UTF-8 LC_ALL=C.UTF-8

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd -P)
"$root/scripts/setup.sh"
"$root/scripts/build.sh" release console-editor
editor="$root/build/release/editor/console-editor"

if (($# == 0)) && [[ -z ${DISPLAY:-} && -z ${WAYLAND_DISPLAY:-} ]]; then
    screens="$root/build/screens"
    echo "run: no display here; drawing the screens"
    mkdir -p "$screens"
    QT_QPA_PLATFORM=offscreen "$editor" --screens "$screens"
    echo "run: the pictures are in $screens"
    exit 0
fi
exec "$editor" "$@"
