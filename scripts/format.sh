#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Lays out every source as .clang-format says; with --check it changes nothing and names those that
# differ, and the exit status is 1 when there are any, 77 where there is no clang-format of version 14:
# others lay out otherwise.
set -euo pipefail
export LC_ALL=C.UTF-8

usage() {
    echo "usage: scripts/format.sh [--check]" >&2
    exit 2
}

work=(-i)
case "$#:${1:-}" in
    0:) ;;
    1:--check) work=(--dry-run -Werror) ;;
    *) usage ;;
esac

cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
for clang_format in clang-format-14 clang-format none; do
    [[ $("$clang_format" --version 2>/dev/null) == *"version 14."* ]] && break
done
if [[ $clang_format == none ]]; then
    echo "format: there is no clang-format of version 14: scripts/setup.sh clang-format-14" >&2
    exit 77
fi

report=$(find . \( -path ./build -o -path './.*' \) -prune \
    -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
    xargs -0 -P "$(nproc)" -n 20 "$clang_format" "${work[@]}" 2>&1) && exit 0
{
    grep -oE '^[^ ]+: error: .*' <<<"$report" | sort -t: -k1,1 -u || echo "$report"
    echo "format: scripts/format.sh lays these out"
} >&2
exit 1
