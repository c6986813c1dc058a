#!/usr/bin/env bash
# SPDX-License-Identifier: MIT
# Runs a command on a screen of its own that nobody sees, and passes on its exit status:
#   scripts/with-screen.sh xcb|wayland [--size WxH] COMMAND [ARG...]
# xcb: a private X server and a window manager. wayland: a compositor in such a server, as large as
# its screen. Several may run side by side. CONSOLE_SCREEN names a file in which the server keeps
# what its screen shows: a picture in the format of xwd, always the present one.
set -euo pipefail

usage() {
    echo "usage: scripts/with-screen.sh xcb|wayland [--size WxH] COMMAND [ARG...]" >&2
    exit 2
}

fail() {
    echo "with-screen: $*" >&2
    [[ -s ${place:-}/log ]] && tail -n 20 "$place/log" >&2
    exit 125
}

size=1600x1200
platform=${1:-}
[[ $platform == xcb || $platform == wayland ]] || usage
shift
if [[ ${1:-} == --size ]]; then
    [[ ${2:-} =~ ^[1-9][0-9]*x[1-9][0-9]*$ ]] || usage
    size=$2
    shift 2
fi
(($# > 0)) || usage

servers=(Xvfb)
[[ $platform == xcb ]] && servers+=(openbox) || servers+=(weston)
for each in "${servers[@]}"; do
    command -v "$each" >/dev/null || fail "$each is not installed; scripts/setup.sh xvfb openbox weston"
done

# Who was killed outright could not remove what it had.
for left in "${TMPDIR:-/tmp}"/console-screen.*; do
    owner=${left##*/console-screen.} owner=${owner%%.*}
    [[ -O $left && ! -d /proc/$owner ]] && rm -rf -- "$left"
done

place=$(mktemp -d "${TMPDIR:-/tmp}/console-screen.$$.XXXXXX")
command=
servers=()
# Asks a process to end, and does not wait for a stubborn one for long.
stop() {
    local tries
    kill "$1" 2>/dev/null || return 0
    for ((tries = 0; tries < 250; ++tries)); do
        kill -0 "$1" 2>/dev/null || return 0
        sleep 0.02
    done
    kill -KILL "$1" 2>/dev/null || true
}

# A compositor before the server that it stands in.
tear_down() {
    trap '' INT TERM HUP
    for each in $command "${servers[@]}"; do
        stop "$each"
    done
    rm -rf -- "$place"
}
trap tear_down EXIT
trap 'exit 129' HUP
trap 'exit 130' INT
trap 'exit 143' TERM

# serve COMMAND...: in the background, and no longer than this script even when that is killed.
serve() {
    setpriv --pdeathsig KILL "$@" &>>"$place/log" &
    servers=("$!" "${servers[@]}")
}

# await WHAT TEST...: until the test succeeds; not when the newest server has died.
await() {
    local what=$1 tries
    shift
    for ((tries = 0; tries < 1500; ++tries)); do
        "$@" && return
        kill -0 "${servers[0]}" 2>/dev/null || break
        sleep 0.02
    done
    fail "$what did not start"
}

unset WAYLAND_DISPLAY WAYLAND_SOCKET XAUTHORITY
export XDG_RUNTIME_DIR=$place QT_QPA_PLATFORM=$platform CONSOLE_SCREEN=$place/Xvfb_screen0

# The server finds a free number by itself, and says it when it answers.
serve Xvfb -displayfd 3 -screen 0 "${size}x24" -fbdir "$place" -nolisten tcp -noreset -nocursor \
    3>"$place/number"
await "the X server" test -s "$place/number"
DISPLAY=:$(<"$place/number")
export DISPLAY

if [[ $platform == xcb ]]; then
    serve openbox --sm-disable --startup "touch '$place/managed'"
    await "the window manager" test -e "$place/managed"
else
    # Windows appear and go at once, and nothing lies over them.
    printf '%s\n' '[core]' 'idle-time=0' '[shell]' 'panel-position=none' 'locking=false' \
        'animation=none' 'close-animation=none' 'startup-animation=none' 'focus-animation=none' \
        'background-color=0xff305070' >"$place/weston.ini"
    serve weston --backend=x11-backend.so --use-pixman --config="$place/weston.ini" \
        --width="${size%x*}" --height="${size#*x}" --socket=console-screen
    await "the compositor" test -S "$place/console-screen"
    unset DISPLAY
    export WAYLAND_DISPLAY=console-screen
fi

# In the background, so that a signal to this script is heard at once.
setpriv --pdeathsig KILL "$@" <&0 &
command=$!
status=0
wait "$command" || status=$?
command=
exit "$status"
