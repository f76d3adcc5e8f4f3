#!/usr/bin/env bash
# with-display.sh COMMAND [ARGUMENT...]: runs a command on an X server of its own, with a window manager and the
# fonts of the tests.
#
# The server takes a free display number, so any number of these run side by side. Nothing of the caller's desktop
# reaches the command: no theme, no scaling, no session bus, no settings of the user. The exit code is the command's;
# server, window manager and files are gone afterwards, also when this script is interrupted.
#
#   TARN_SCREEN   size and depth of the screen, 1280x1024x24 when unset
#
# Failures of the fixture itself exit with 125, so that they are not taken for a result of the command.
set -u

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
screen=${TARN_SCREEN:-1280x1024x24}
work=
server=
manager=
command=

fail() {
    printf 'with-display: %s\n' "$1" >&2
    [ -z "${2-}" ] || tail -n 5 -- "$2" >&2
    exit 125
}

stop() {
    [ -n "$1" ] || return 0
    kill "$1" 2>/dev/null
    wait "$1" 2>/dev/null
}

tear_down() {
    trap - EXIT
    stop "$command"
    stop "$manager"
    stop "$server"
    [ -z "$work" ] || rm -rf -- "$work"
}

require() {
    local program
    for program in "$@"; do
        command -v "$program" >/dev/null || fail "$program is missing (Debian: xvfb openbox xdotool)"
    done
}

# wait_until SECONDS PROCESS CHECK...: true once the check succeeds, false when time is up or the process has ended.
wait_until() {
    local end=$((SECONDS + $1)) process=$2
    shift 2
    until "$@"; do
        kill -0 "$process" 2>/dev/null && [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.02
    done
}

start_server() {
    # Keys repeat after a minute (in ms): on a busy machine a key that is only tapped may stay down for long.
    Xvfb -displayfd 3 -screen 0 "$screen" -dpi 96 -noreset -nolisten tcp -ardelay 60000 \
        3>"$work/display" >"$work/server.log" 2>&1 </dev/null &
    server=$!
    wait_until 20 "$server" test -s "$work/display" || fail 'Xvfb did not start' "$work/server.log"
    DISPLAY=:$(<"$work/display")
    export DISPLAY
}

# The first key that a test presses gives the keyboard another map, and the manager grabs its own keys anew on that map.
# Until it has done so, a key such as Alt+F4 goes to the window instead: so a key is pressed before there is a manager.
settle_keyboard() {
    xdotool key shift 2>"$work/keyboard.log" || fail 'the server takes no key' "$work/keyboard.log"
}

# The manager is ready when it runs its start command. It says on the root window that it is there long before, but what
# opens a window between the two may never be shown: requests that came too early wait until something else happens.
manager_is_up() {
    [ -e "$work/manager-ready" ]
}

start_manager() {
    openbox --sm-disable --startup "touch '$work/manager-ready'" >"$work/manager.log" 2>&1 </dev/null &
    manager=$!
    wait_until 20 "$manager" manager_is_up || fail 'openbox did not start' "$work/manager.log"
}

isolate() {
    mkdir -m 700 -- "$work/runtime" "$work/config"
    export XDG_RUNTIME_DIR=$work/runtime XDG_CONFIG_HOME=$work/config XDG_CACHE_HOME=$work/cache
    export FONTCONFIG_FILE=$here/../fonts/fonts.conf
    export QT_QPA_PLATFORM=xcb QT_FONT_DPI=96 LC_ALL=C.UTF-8
    export DBUS_SESSION_BUS_ADDRESS=disabled: NO_AT_BRIDGE=1
    unset WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER DESKTOP_SESSION XDG_CURRENT_DESKTOP
    unset QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR
}

{ : 4<&0; } 2>/dev/null || exec </dev/null
[ $# -gt 0 ] || fail 'usage: with-display.sh COMMAND [ARGUMENT...]'
require Xvfb openbox xdotool
trap tear_down EXIT
trap 'exit 130' INT
trap 'exit 143' TERM HUP

work=$(mktemp -d "${TMPDIR:-/tmp}/tarn-display.XXXXXX") || fail 'no room for temporary files'
isolate
start_server
settle_keyboard
start_manager

# In the background, so that a signal to this script is handled at once. A shell makes its background commands ignore
# interrupts and takes their standard input away; both are given back.
env --default-signal=INT --default-signal=QUIT "$@" <&0 &
command=$!
wait "$command"
code=$?
command=
exit "$code"
