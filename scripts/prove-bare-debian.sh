#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Proves what the README promises: on a bare Debian 12, a copy of the last commit builds, draws its
# screens and passes its tests with ./run.sh and ./test.sh alone, and a second time is quick.
set -euo pipefail

script=prove
# Its space is part of the proof.
workplace="/root/console widgets"
repository=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)
source "$repository/scripts/bare-debian.bash"

usage() {
    cat >&2 <<'TEXT'
usage: prove-bare-debian.sh [--base DIR] [ROOT]
  ROOT        directory for the new system, kept afterwards; without it a temporary one, removed
  --base DIR  the bare system to start from; made there when there is none, never built in.
              Fetched packages are kept in its package cache, so that the next proof is quick.
TEXT
    exit 2
}

parse_arguments "$@"
set_up_root
git -C "$repository" archive HEAD | tar -x -C "$root$workplace"
say "commit $(git -C "$repository" log -1 --format='%h %s')"

screens="$workplace/build/screens"
timed "run.sh, first time" ./run.sh
check_screens "$screens"
rm -rf -- "$root$screens"
timed "test.sh, first time" ./test.sh
keep_fetched_packages
timed "run.sh, nothing changed" ./run.sh
check_screens "$screens"
timed "test.sh, nothing changed" ./test.sh
timed "scripts/setup.sh, nothing to install" scripts/setup.sh

say "it holds:"
printf '%s\n' "${times[@]}"
