#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures one preset and builds it, all of it or the targets that are named:
# scripts/build.sh release console-editor
set -euo pipefail

if (($# == 0)); then
    echo "usage: scripts/build.sh PRESET [TARGET...]" >&2
    exit 2
fi

cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
preset=$1
shift
build="build/$preset"
stamp="$build/.configured"

# ninja configures again when a CMakeLists.txt changes. The rest is ours: a first time, a configuration
# that failed half-way, changed presets, and a tree that was moved or copied.
configured_here() {
    [[ -f $stamp && -f $build/build.ninja && ! CMakePresets.json -nt $stamp ]] &&
        grep -qxF "CMAKE_HOME_DIRECTORY:INTERNAL=$PWD" "$build/CMakeCache.txt"
}

if ! configured_here; then
    echo "build: configuring $preset"
    rm -f "$stamp"
    cmake --fresh --preset "$preset"
    touch "$stamp"
fi
echo "build: building ${*:-all} of $preset"
cmake --build --preset "$preset" ${*:+--target "$@"}
