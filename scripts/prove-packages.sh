#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Makes the Debian packages and proves them on a bare Debian 12: the editor installs with what it
# depends on, nothing more, and draws its screens; against the development package a program outside
# the tree and the examples build and run; and all of it can be removed again.
set -euo pipefail

script=prove-packages
workplace=/root/packages
repository=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)
source "$repository/scripts/bare-debian.bash"

usage() {
    cat >&2 <<'TEXT'
usage: prove-packages.sh [--base DIR] [ROOT]
  ROOT        directory for the new system, kept afterwards; without it a temporary one, removed
  --base DIR  the bare system to start from; made there when there is none, never built in.
              Fetched packages are kept in its package cache, so that the next proof is quick.
TEXT
    exit 2
}

parse_arguments "$@"
packages="$repository/build/packages"
"$repository/scripts/build.sh" package
cmake -DBUILD="$repository/build/package" -DSOURCE="$repository" \
    -P "$repository/cmake/checks/ExportedSymbols.cmake" || fail "a library exports what is its own"
rm -rf -- "$packages"
(cd "$repository/build/package" && cpack -G DEB -B "$packages" >/dev/null)
rm -rf -- "$packages/_CPack_Packages"
for package in "$packages"/*.deb; do
    say "$(dpkg-deb -W --showformat='${Package} ${Version}, depends: ${Depends}' "$package")"
done

set_up_root
cp -- "$packages"/*.deb "$root$workplace/"
cp -a -- "$repository/tests/consumer" "$repository/examples" "$root$workplace/"
apt_install() {
    timed "installing $*" env DEBIAN_FRONTEND=noninteractive \
        apt-get -qq -y --no-install-recommends -o Dpkg::Use-Pty=0 install "$@" >/dev/null
}

# The file of a package.
deb() { (cd "$packages" && echo ./"$1"_*.deb); }

inside apt-get -qq update
apt_install "$(deb libconsolewidgets0)" "$(deb console-editor)"
timed "console-editor --screens" console-editor --screens "$workplace/screens"
check_screens "$workplace/screens"

apt_install "$(deb libconsolewidgets-dev)" cmake ninja-build g++
timed "configuring" cmake -S consumer -B build -G Ninja -DEXAMPLES="$workplace/examples"
timed "building" cmake --build build
timed "running" ctest --test-dir build --output-on-failure
apt_install "$(deb consolewidgets-designer)"
plugin=$(find "$root/usr/lib" -path '*/qt6/plugins/designer/*' -name '*ConsoleWidgets*.so')
[[ -n $plugin ]] || fail "the plugin of Designer is not where Qt looks for it"
missing=$(inside ldd "${plugin#"$root"}" | grep "not found" || true)
[[ -z $missing ]] || fail "the plugin of Designer lacks: $missing"
keep_fetched_packages

timed "removing" env DEBIAN_FRONTEND=noninteractive apt-get -qq -y purge 'libconsolewidgets*' \
    console-editor 'consolewidgets-*' >/dev/null
left=$(find "$root/usr" \( -ipath '*consolewidgets*' -o -path '*console-editor*' \) ! -type d)
[[ -z $left ]] || fail "left behind: $left"

say "it holds:"
printf '%s\n' "${times[@]}"
