#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Builds the entry points for libFuzzer and runs them, all or those that are named, each for some
# seconds, starting from the seeds in fuzz/corpus. What it finds on the way is kept in build/fuzz/corpus
# for the next time; an input that fails is kept beside it and told.
set -euo pipefail
export LANG=C.UTF-8 LC_ALL=C.UTF-8

usage() {
    echo "usage: fuzz.sh [TARGET...] [--seconds N]" >&2
    exit 2
}

seconds=10
targets=()
while (($#)); do
    case $1 in
        --seconds)
            [[ ${2:-} =~ ^[1-9][0-9]*$ ]] || usage
            seconds=$2
            shift
            ;;
        -*) usage ;;
        *) targets+=("$1") ;;
    esac
    shift
done

cd -- "$(dirname -- "${BASH_SOURCE[0]}")"
scripts/setup.sh clang libclang-rt-14-dev
scripts/build.sh fuzz

build=build/fuzz/fuzz
if ((${#targets[@]} == 0)); then
    for seeds in fuzz/corpus/*/; do
        targets+=("$(basename "$seeds")")
    done
fi

status=0
for target in "${targets[@]}"; do
    if [[ ! -x $build/fuzz-$target ]]; then
        echo "fuzz: there is no target $target" >&2
        exit 2
    fi
    found="build/fuzz/corpus/$target"
    mkdir -p "$found"
    echo "fuzz: $target, $seconds seconds"
    # What a static object keeps to the end is no leak; leaks of single inputs are looked for by the tests.
    if ! ASAN_OPTIONS=detect_leaks=0 UBSAN_OPTIONS=print_stacktrace=1 "$build/fuzz-$target" \
        -max_total_time="$seconds" -timeout=10 -rss_limit_mb=4096 -print_final_stats=1 -verbosity=0 \
        -artifact_prefix="build/fuzz/$target-" "$found" "fuzz/corpus/$target" \
        2>"build/fuzz/$target.log"; then
        status=1
        tail -n 40 "build/fuzz/$target.log"
        echo "fuzz: $target has failed; the input is one of build/fuzz/$target-*" >&2
    fi
    grep -h "number_of_executed_units" "build/fuzz/$target.log" || true
done
exit "$status"
