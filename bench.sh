#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the speed table and measures it, without a display. The exit status is 0 when every limit
# holds and 1 when one does not.
set -euo pipefail
export LANG=C.UTF-8 LC_ALL=C.UTF-8 QT_QPA_PLATFORM=offscreen

readonly build=build/bench

# A relative file is meant from where we were called.
arguments=("$@")
for ((i = 0; i + 1 < $#; ++i)); do
    if [[ ${arguments[i]} == --json && ${arguments[i + 1]} != /* ]]; then
        arguments[i + 1]=$PWD/${arguments[i + 1]}
    fi
done

cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
scripts/setup.sh libbenchmark-dev xvfb

log=$(mktemp)
server=
trap 'rm -f "$log"; [[ -z $server ]] || kill "$server"' EXIT
echo "bench: building in $build"
if ! { cmake --fresh --preset release -B "$build" -DCONSOLEWIDGETS_BENCH=ON &&
    cmake --build "$build" --target console-bench; } &>"$log"; then
    tail -n 40 "$log" >&2
    echo "bench: it does not build" >&2
    exit 2
fi

# Some figures are taken under a real window system. Where there is no display we bring one along,
# large enough for every window.
if [[ -z ${DISPLAY:-} ]]; then
    exec {ready}< <(exec Xvfb -displayfd 1 -screen 0 1920x1200x24 -nolisten tcp 2>/dev/null)
    server=$!
    if ! read -r -t 20 -u "$ready" number; then
        echo "bench: the X server Xvfb does not start" >&2
        exit 2
    fi
    export DISPLAY=:$number
fi

echo "bench: measuring"
"$build/bench/console-bench" "${arguments[@]}"
