#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Proves what the README promises: on a bare Debian 12, a copy of the last commit builds, draws its
# screens and passes its tests with ./run.sh and ./test.sh alone, and a second time is quick.
set -euo pipefail

readonly release=bookworm
# Its space is part of the proof.
readonly tree="/root/console widgets"

usage() {
    cat >&2 <<'TEXT'
usage: prove-bare-debian.sh [--base DIR] [ROOT]
  ROOT        directory for the new system, kept afterwards; without it a temporary one, removed
  --base DIR  the bare system to start from; made there when there is none, never built in.
              Fetched packages are kept in its package cache, so that the next proof is quick.
TEXT
    exit 2
}

say() { echo "prove: $*"; }
fail() {
    echo "prove: $*" >&2
    exit 1
}

base=
if [[ ${1:-} == --base ]]; then
    (($# >= 2)) || usage
    base=$2
    shift 2
fi
(($# <= 1)) && [[ ${1:-} != -* ]] || usage
((EUID == 0)) || fail "needs root, for debootstrap and chroot"
for tool in debootstrap git chroot; do
    command -v $tool >/dev/null || fail "needs $tool"
done
repository=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd -P)

# "mirror suite" for each of the distribution's sources that this machine uses.
sources=$(apt-get indextargets --format '$(ORIGIN) $(REPO_URI) $(RELEASE)' \
    'Created-By: Packages' 'Component: main' |
    awk -v r="$release" '$1 == "Debian" && $3 ~ "^" r "(-updates|-security)?$" { print $2, $3 }' |
    sort -u)
mirror=$(awk -v r="$release" '$2 == r { print $1; exit }' <<<"$sources")
[[ -n $mirror ]] || fail "no source for $release in this machine's package lists (apt-get update?)"

extra=()
if [[ $sources == *https://* ]]; then
    extra=(--include=ca-certificates)
fi

make_bare_system() {
    say "making a bare Debian 12 in $1"
    debootstrap --variant=minbase "${extra[@]}" "$release" "$1" "$mirror" >"$1.log" ||
        { tail -n 20 "$1.log" >&2; fail "debootstrap failed"; }
    rm -f "$1.log"
}

if (($# == 1)); then
    root=$1
    if [[ -d $root && -n $(ls -A -- "$root") ]]; then
        fail "$root is not empty"
    fi
    mkdir -p -- "$root"
else
    root=$(mktemp -d "${TMPDIR:-/tmp}/bare-debian.XXXXXX")
    trap 'rm -rf --one-file-system -- "$root"' EXIT
fi
root=$(cd -- "$root" && pwd -P)
chmod 755 "$root"

if [[ -n $base ]]; then
    if [[ ! -d $base ]]; then
        make_bare_system "$base.part"
        mv -- "$base.part" "$base"
    fi
    cp -a --reflink=auto -- "$base/." "$root/"
else
    make_bare_system "$root"
fi

# What this machine needs to reach the mirrors.
awk '{ print "deb", $1, $2, "main" }' <<<"$sources" >"$root/etc/apt/sources.list"
apt-config dump | grep -iE '^Acquire::(https?::.*|Check-(Valid-Until|Date)) ' \
    >"$root/etc/apt/apt.conf.d/90machine" || true
cp -- /etc/resolv.conf "$root/etc/resolv.conf"
if ((${#extra[@]})); then
    cp -- /etc/ssl/certs/ca-certificates.crt "$root/etc/ssl/certs/"
fi

mkdir -p -- "$root$tree"
git -C "$repository" archive HEAD | tar -x -C "$root$tree"
say "commit $(git -C "$repository" log -1 --format='%h %s')"

# Runs a command in the tree, in the new system. The mounts are of a mount namespace of their own and
# go with it, whatever happens. Where none can be had the bare system's own /dev has to do.
namespace=(unshare --mount --propagation private)
mounts='mount -t proc proc "$0/proc"; mount --rbind /dev "$0/dev"; mount --rbind /sys "$0/sys"'
if ! "${namespace[@]}" sh -ec "$mounts" "$root" 2>/dev/null; then
    say "no mounts here; going on without /proc and /sys"
    namespace=()
    mounts=:
fi
in_tree() {
    "${namespace[@]}" sh -ec "$mounts"'; root=$0; exec chroot "$root" "$@"' "$root" \
        env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM=dumb \
        ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} \
        ${no_proxy:+no_proxy="$no_proxy"} \
        bash -c 'cd "$0" && exec "$@"' "$tree" "$@" </dev/null
}

times=()
timed() {
    local name=$1 start=$EPOCHREALTIME
    shift
    say "$name"
    in_tree "$@" || fail "$name: exit status $?"
    times+=("$(awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%8.1f s", b - a }')  $name")
}

check_screens() {
    local screens="$root$tree/build/screens" count
    count=$(find "$screens" -name '*.png' -size +0 2>/dev/null | wc -l)
    ((count > 0)) || fail "no screens were drawn"
    [[ -z $(find "$screens" -name '*.png' -size 0) ]] || fail "there are empty pictures"
    say "$count screens were drawn"
    rm -rf -- "$screens"
}

timed "run.sh, first time" ./run.sh
check_screens
timed "test.sh, first time" ./test.sh
if [[ -n $base ]]; then
    find "$root/var/cache/apt/archives" -maxdepth 1 -name '*.deb' \
        -exec cp -n -t "$base/var/cache/apt/archives/" -- {} +
fi
timed "run.sh, nothing changed" ./run.sh
check_screens
timed "test.sh, nothing changed" ./test.sh
timed "scripts/setup.sh, nothing to install" scripts/setup.sh

say "it holds:"
printf '%s\n' "${times[@]}"
