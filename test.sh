#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds everything and runs all tests, without a display: those that need a screen bring their own. Under
# the thread sanitizer those that use a second thread. The exit status is that of the tests.
set -euo pipefail
export LANG=C.UTF-8 LC_ALL=C.UTF-8

usage() {
    echo "usage: test.sh [--sanitize address|undefined|thread]" >&2
    exit 2
}

# Address and undefined behaviour are looked for in one build.
preset=release
tests=()
case "$#:${1:-}:${2:-}" in
    0::) ;;
    2:--sanitize:address | 2:--sanitize:undefined) preset=asan ;;
    2:--sanitize:thread) preset=tsan tests=(--label-regex '^threads$') ;;
    *) usage ;;
esac

cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
scripts/setup.sh clang-format-14 xvfb openbox weston
scripts/build.sh "$preset"

# The thread sanitizer of this compiler cannot place its memory where addresses are spread widely.
launcher=()
if [[ $preset == tsan ]] && setarch --addr-no-randomize true 2>/dev/null; then
    launcher=(setarch --addr-no-randomize)
fi

echo "test: running the tests of $preset"
exec "${launcher[@]}" ctest --preset "$preset" "${tests[@]}"
