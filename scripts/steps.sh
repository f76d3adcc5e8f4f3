# shellcheck shell=bash disable=SC2154 # root is of the script that reads this one
# Numbered steps, one line each on standard error. What a step's command prints goes to a log that is shown on failure.

step_number=0
step_count=0
step_title=
step_log=
step_shown=
steps_quiet=
# The caller makes this its own, so that commands that run at the same time do not share logs.
log_folder=$root/build/log

note() {
    printf '%s\n' "$1" >&2
}

indent() {
    sed 's/^/    /'
}

# begin_steps COUNT [quiet]: quiet steps show themselves only once they take noticeable time.
begin_steps() {
    step_number=0
    step_count=$1
    steps_quiet=${2-}
    mkdir -p -- "$log_folder" || die "can not write to $root/build"
}

# A step that has nothing to do.
step_ready() {
    open_step "$1"
    [ -n "$steps_quiet" ] || close_step ready
}

# step TITLE COMMAND...: runs one step; when its command fails, shows the end of the log and ends the whole script.
step() {
    try_step "$@" && return
    tail -n 40 -- "$step_log" | indent >&2
    die "the whole log is in $step_log"
}

# try_step TITLE COMMAND...: runs one step and returns the exit code of its command.
try_step() {
    local start=$SECONDS process code
    open_step "$1"
    shift
    "$@" >"$step_log" 2>&1 &
    process=$!
    trap 'interrupt_step "$process"' INT TERM HUP
    show_progress "$process"
    wait "$process"
    code=$?
    trap - INT TERM HUP
    if [ "$code" -ne 0 ]; then
        close_step "failed after $((SECONDS - start)) s"
    elif [ -n "$step_shown" ]; then
        close_step "done ($((SECONDS - start)) s)"
    fi
    return "$code"
}

interrupt_step() {
    kill "$1" 2>/dev/null
    close_step interrupted
    exit 130
}

open_step() {
    step_number=$((step_number + 1))
    step_title=$1
    step_log=$log_folder/$step_number.log
    step_shown=
    [ -n "$steps_quiet" ] || show_step
}

show_step() {
    [ -n "$step_shown" ] && [ ! -t 2 ] || printf '[%d/%d] %s ... ' "$step_number" "$step_count" "$step_title" >&2
    step_shown=yes
}

close_step() {
    [ -n "$step_shown" ] || show_step
    printf '%s\n' "$1" >&2
}

# Until the process ends. A terminal's line is rewritten twice a second; elsewhere figures are appended every 15 s.
show_progress() {
    local ticks=0 every=150 last= now
    [ ! -t 2 ] || every=5
    while kill -0 "$1" 2>/dev/null; do
        sleep 0.1
        ticks=$((ticks + 1))
        [ "$ticks" -lt 10 ] || [ -n "$step_shown" ] || show_step
        [ $((ticks % every)) -eq 0 ] || continue
        now=$(progress_in "$step_log")
        [ "$now" = "$last" ] || show_figure "$now"
        last=$now
    done
    [ -z "$last" ] || show_figure ''
}

show_figure() {
    if [ -t 2 ]; then
        printf '\r\033[K' >&2
        show_step
        printf '%s' "$1" >&2
    elif [ -n "$1" ]; then
        printf '%s ' "$1" >&2
    fi
}

# How far a log has come. ninja and clang-tidy write "[12/340] ...", ctest "12/900 Test #...", apt "dlstatus:3:12.5:..."
# while it fetches and "pmstatus:name:61.2:..." while it unpacks.
progress_in() {
    tail -n 30 -- "$1" | sed -nE \
        -e 's/^\[([0-9]+\/[0-9]+)\].*/\1/p' \
        -e 's/^ *([0-9]+\/[0-9]+) Test +#.*/\1/p' \
        -e 's/^dlstatus:[^:]*:([0-9]+)[.:].*/fetched \1%/p' \
        -e 's/^pmstatus:[^:]*:([0-9]+)[.:].*/unpacked \1%/p' | tail -n 1
}
