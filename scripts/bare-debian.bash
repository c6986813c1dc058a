# SPDX-License-Identifier: MIT
# For the scripts that prove something on a bare Debian 12; sourced by them. They say what they are
# called by `script`, and where in the new system they work by `workplace`.

readonly release=bookworm

say() { echo "$script: $*"; }
fail() {
    echo "$script: $*" >&2
    exit 1
}

# Takes [--base DIR] [ROOT] from the arguments; calls usage for anything else.
parse_arguments() {
    base=
    if [[ ${1:-} == --base ]]; then
        (($# >= 2)) || usage
        base=$2
        shift 2
    fi
    (($# <= 1)) && [[ ${1:-} != -* ]] || usage
    root=${1:-}
    ((EUID == 0)) || fail "needs root, for debootstrap and chroot"
    for tool in debootstrap git chroot; do
        command -v $tool >/dev/null || fail "needs $tool"
    done
}

make_bare_system() {
    say "making a bare Debian 12 in $1"
    debootstrap --variant=minbase "${extra[@]}" "$release" "$1" "$mirror" >"$1.log" ||
        { tail -n 20 "$1.log" >&2; fail "debootstrap failed"; }
    rm -f "$1.log"
}

# A new system in `root`, a copy of `base` if there is one, that reaches the mirrors as this machine does.
set_up_root() {
    # "mirror suite" for each of the distribution's sources that this machine uses.
    local sources
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

    if [[ -n $root ]]; then
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

    awk '{ print "deb", $1, $2, "main" }' <<<"$sources" >"$root/etc/apt/sources.list"
    apt-config dump | grep -iE '^Acquire::(https?::.*|Check-(Valid-Until|Date)) ' \
        >"$root/etc/apt/apt.conf.d/90machine" || true
    cp -- /etc/resolv.conf "$root/etc/resolv.conf"
    if ((${#extra[@]})); then
        cp -- /etc/ssl/certs/ca-certificates.crt "$root/etc/ssl/certs/"
    fi
    mkdir -p -- "$root$workplace"
    choose_mounts
}

# The mounts are of a mount namespace of their own and go with it, whatever happens. Where none can be
# had the bare system's own /dev has to do.
choose_mounts() {
    namespace=(unshare --mount --propagation private)
    mounts='mount -t proc proc "$0/proc"; mount --rbind /dev "$0/dev"; mount --rbind /sys "$0/sys"'
    if ! "${namespace[@]}" sh -ec "$mounts" "$root" 2>/dev/null; then
        say "no mounts here; going on without /proc and /sys"
        namespace=()
        mounts=:
    fi
}

# Runs a command in the workplace, in the new system.
inside() {
    "${namespace[@]}" sh -ec "$mounts"'; root=$0; exec chroot "$root" "$@"' "$root" \
        env -i HOME=/root PATH=/usr/sbin:/usr/bin:/sbin:/bin TERM=dumb \
        ${http_proxy:+http_proxy="$http_proxy"} ${https_proxy:+https_proxy="$https_proxy"} \
        ${no_proxy:+no_proxy="$no_proxy"} \
        bash -c 'cd "$0" && exec "$@"' "$workplace" "$@" </dev/null
}

# timed NAME COMMAND...: runs a command inside, and keeps how long it took.
times=()
timed() {
    local name=$1 start=$EPOCHREALTIME
    shift
    say "$name"
    inside "$@" || fail "$name: exit status $?"
    times+=("$(awk -v a="$start" -v b="$EPOCHREALTIME" 'BEGIN { printf "%8.1f s", b - a }')  $name")
}

# Screens drawn into a folder of the new system.
check_screens() {
    local screens="$root$1" count
    count=$(find "$screens" -name '*.png' -size +0 2>/dev/null | wc -l)
    ((count > 0)) || fail "no screens were drawn"
    [[ -z $(find "$screens" -name '*.png' -size 0) ]] || fail "there are empty pictures"
    say "$count screens were drawn"
}

# So that the next proof is quick.
keep_fetched_packages() {
    if [[ -n $base ]]; then
        find "$root/var/cache/apt/archives" -maxdepth 1 -name '*.deb' \
            -exec cp -n -t "$base/var/cache/apt/archives/" -- {} +
    fi
}
