# shellcheck shell=bash
# Starting a program on a virtual display, waiting until its window is painted, taking its picture. Nothing here waits
# for a guessed time: every wait ends with what it waits for, or after a limit.

app=
last_picture=

complain() {
    printf 'tarn: %s\n' "$1" >&2
    exit 1
}

start_app() {
    node "$@" &
    app=$!
    trap end_app EXIT
}

end_app() {
    trap - EXIT
    kill "$app" 2>/dev/null
    for _ in {1..30}; do
        kill -0 "$app" 2>/dev/null || break
        sleep 0.1
    done
    kill -KILL "$app" 2>/dev/null
    wait "$app" 2>/dev/null
}

# The windows that the window manager manages, oldest first: a window's helpers and the tool tips are not among them.
window_ids() {
    xprop -root _NET_CLIENT_LIST 2>/dev/null | grep -o '0x[0-9a-f]*'
}

newest_window() {
    window_ids | tail -n 1
}

# wait_for_title TITLE: prints the id of the newest window once it has this title; a window that closes may give way to
# others until then. Fails after 10 seconds.
wait_for_title() {
    local id end=$((SECONDS + 10))
    while [ "$SECONDS" -lt "$end" ]; do
        id=$(newest_window)
        [ -z "$id" ] || [ "$(xdotool getwindowname "$id" 2>/dev/null)" != "$1" ] || { echo "$id" && return; }
        sleep 0.05
    done
    return 1
}

# wait_for_window: prints the id of the program's first window.
wait_for_window() {
    local id end=$((SECONDS + 30))
    while [ "$SECONDS" -lt "$end" ]; do
        id=$(window_ids | head -n 1)
        [ -z "$id" ] || { echo "$id" && return; }
        kill -0 "$app" 2>/dev/null || complain 'the program ended without opening a window'
        sleep 0.05
    done
    complain 'no window within 30 seconds'
}

# picture_of WINDOW: one line that says how many colours the window shows and names its pixels.
picture_of() {
    import -silent -window "$1" -format '%k %#' info:- 2>/dev/null
}

# wait_until_still WINDOW: until two captures in a row are the same and show more than one colour. A page may be of one
# colour and a window may never rest: after 3 and 10 seconds what is seen is taken as it is.
wait_until_still() {
    local start=$SECONDS last= now
    while :; do
        now=$(picture_of "$1")
        if [ -n "$now" ] && [ "$now" = "$last" ]; then
            [ "${now%% *}" = 1 ] && [ $((SECONDS - start)) -lt 3 ] || break
        fi
        [ $((SECONDS - start)) -lt 10 ] || break
        last=$now
        sleep 0.15
    done
    last_picture=$now
}

# wait_for_change WINDOW: until the window differs from the last picture taken of it; false after 5 seconds.
wait_for_change() {
    local end=$((SECONDS + 5))
    while [ "$(picture_of "$1")" = "$last_picture" ]; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.1
    done
}

# save_picture WINDOW FILE: with the window manager's frame when TARN_FRAME is set.
save_picture() {
    import -silent ${TARN_FRAME:+-frame} -window "$1" -strip "png:$2" || complain "can not write $2"
}
