#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Configures and builds one preset: scripts/build.sh release
set -euo pipefail

if (($# != 1)); then
    echo "usage: scripts/build.sh PRESET" >&2
    exit 2
fi

cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
preset=$1
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
echo "build: building $preset"
cmake --build --preset "$preset"
