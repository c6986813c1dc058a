#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Names the functions of more than 40 lines between their braces; the exit status is 1 when there are
# any. The tables of tests do not count. Relies on the layout of the sources: a function's braces stand
# on lines of their own, below one another.
set -euo pipefail
export LC_ALL=C.UTF-8

cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")/.."
find . \( -path ./build -o -path './.*' \) -prune -o \( -name '*.cpp' -o -name '*.h' \) -print0 |
    sort -z | xargs -0 awk -v most=40 '
FNR == 1 {
    depth = 0
    raw = ""
}
# Text in raw strings is no code.
raw != "" {
    if (index($0, raw))
        raw = ""
    next
}
match($0, /R"[A-Za-z]*\(/) {
    raw = ")" substr($0, RSTART + 2, RLENGTH - 3) "\""
    if (index(substr($0, RSTART + RLENGTH), raw))
        raw = ""
}
/^ *{$/ {
    ++depth
    column[depth] = index($0, "{")
    first[depth] = FNR
    head[depth] = before
}
# Classes and tables end with a semicolon.
depth && /^ *}/ && index($0, "}") == column[depth] {
    lines = FNR - first[depth] - 1
    functions += /^ *}$/
    if (/^ *}$/ && lines > most && head[depth] !~ /_data\(\)/) {
        printf "%s:%d: %d lines:%s\n", FILENAME, first[depth] - 1, lines, " " head[depth]
        ++long
    }
    --depth
}
{ before = $0 }
END {
    if (!functions)
        print "function-size: no functions were found"
    exit long > 0 || !functions
}' || exit 1
