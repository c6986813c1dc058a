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
scripts/setup.sh libbenchmark-dev

log=$(mktemp)
trap 'rm -f "$log"' EXIT
echo "bench: building in $build"
if ! { cmake --fresh --preset release -B "$build" -DCONSOLEWIDGETS_BENCH=ON &&
    cmake --build "$build" --target console-bench; } &>"$log"; then
    tail -n 40 "$log" >&2
    echo "bench: it does not build" >&2
    exit 2
fi

echo "bench: measuring"
"$build/bench/console-bench" "${arguments[@]}"
