#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the reference site in build/docs, without a display; start at build/docs/index.html. Fails when
# anything public is not documented, a link leads nowhere, or a picture cannot be drawn.
set -euo pipefail
export LANG=C.UTF-8 LC_ALL=C.UTF-8

cd -P -- "$(dirname -- "${BASH_SOURCE[0]}")"
scripts/setup.sh doxygen

echo "docs: building the library and the site"
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { cmake --fresh --preset release -DCONSOLEWIDGETS_DOCS=ON \
    -DCONSOLEWIDGETS_DOCS_FOLDER="$PWD/build/docs" &&
    cmake --build --preset release --target docs; } &>"$log"; then
    tail -n 40 "$log" >&2
    echo "docs: the site could not be made" >&2
    exit 1
fi
echo "docs: the site begins at build/docs/index.html"
