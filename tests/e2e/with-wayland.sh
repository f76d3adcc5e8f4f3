#!/usr/bin/env bash
# with-wayland.sh SCALE COMMAND [ARGUMENT...]: runs a command on a Wayland compositor of its own with that many screen pixels
# to each pixel of a page. The compositor's screen, 1000 x 800 pixels, is a window of the X server under
# with-display.sh, so that a test presses keys and looks at pixels there as everywhere. The exit code is the command's.
set -u

scale=$1
shift
compositor=
folder=$XDG_RUNTIME_DIR

fail() {
    printf 'with-wayland: %s\n' "$1" >&2
    [ ! -e "$folder/compositor.log" ] || tail -n 5 "$folder/compositor.log" >&2
    exit 125
}

tear_down() {
    [ -z "$compositor" ] || kill "$compositor" 2>/dev/null
}

# Nothing but the windows of the programs: what fades in would be looked at half way, what sleeps not at all.
write_settings() {
    cat >"$folder/weston.ini" <<'END'
[core]
idle-time=0
[shell]
panel-position=none
background-color=0xff204020
animation=none
startup-animation=none
close-animation=none
locking=false
[input-method]
path=
END
}

command -v weston >/dev/null || fail 'weston is missing'
trap tear_down EXIT
write_settings
# The compositor adds up how far the pointer moves, from where it came in: so it must come in.
xdotool mousemove 0 0
weston --backend=x11-backend.so --use-pixman --width=$((1000 / scale)) --height=$((800 / scale)) --scale="$scale" \
    --socket=wayland-test --config="$folder/weston.ini" >"$folder/compositor.log" 2>&1 </dev/null &
compositor=$!
for ((i = 0; i < 200; ++i)); do
    [ ! -S "$folder/wayland-test" ] || break
    kill -0 "$compositor" 2>/dev/null || fail 'the compositor did not start'
    sleep 0.1
done
export WAYLAND_DISPLAY=wayland-test
unset QT_QPA_PLATFORM
"$@"
