#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Installs the Debian packages that building and running needs, and those that are named as arguments:
# scripts/setup.sh [PACKAGE...]. Does nothing, quickly and without the network, when all of them are
# there.
set -euo pipefail

packages=(
    build-essential
    cmake
    ninja-build
    ccache
    qt6-base-dev
    qt6-base-dev-tools
    libqt6opengl6-dev   # UiTools and Designer do not configure without it
    qt6-tools-dev       # UiTools and Designer
    qt6-tools-dev-tools
    libgl-dev
    libqt6sql6-sqlite   # scenes are kept in a database
    qt6-qpa-plugins     # windows under X11, and the offscreen platform of the tests
    qt6-wayland         # windows where there is only Wayland
    fonts-dejavu-core   # without a font no text is drawn
    "$@"
)

if ! command -v dpkg-query >/dev/null; then
    echo "setup: this is not a Debian system; going on with what is installed." >&2
    echo "setup: needed are the equivalents of: ${packages[*]}" >&2
    exit 0
fi

# dpkg-query fails when it does not know one of them; that is an answer, too.
installed=$(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null || true)
missing=()
for package in "${packages[@]}"; do
    [[ $'\n'$installed$'\n' == *$'\n'"installed $package"$'\n'* ]] || missing+=("$package")
done
if ((${#missing[@]} == 0)); then
    exit 0
fi

as_root=()
if ((EUID != 0)); then
    if ! command -v sudo >/dev/null; then
        echo "setup: these packages are missing: ${missing[*]}" >&2
        echo "setup: install them as root: apt-get update && apt-get install --no-install-recommends ${missing[*]}" >&2
        exit 1
    fi
    as_root=(sudo)
fi

# apt's own words are many; they are shown when it fails. Another package manager may hold the lock
# for a while.
log=$(mktemp)
trap 'rm -f "$log"' EXIT
apt_get() {
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get -q -y -o DPkg::Lock::Timeout=300 "$@" &>"$log"
}

echo "setup: installing ${missing[*]}"
# A source of the machine's owner that does not answer need not stop us: the installation decides.
apt_get update || echo "setup: some package lists could not be fetched" >&2
if ! apt_get install --no-install-recommends "${missing[@]}"; then
    tail -n 30 "$log" >&2
    echo "setup: the packages could not be installed" >&2
    exit 1
fi
