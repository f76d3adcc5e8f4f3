#!/usr/bin/env bash
# idle-test.sh COMMAND...: a program that shows three windows called "Idle" and does nothing must use no processor time.
# Fails when it uses more than 20 ms in 10 s, or wakes up more often than once in a second. Needs a display
# (tests/e2e/with-display.sh).
set -u

measured_seconds=10
most_ms=20
most_wakeups=10
program=

fail() {
    printf 'idle-test: %s\n' "$1" >&2
    exit 1
}

tear_down() {
    [ -z "$program" ] || { kill "$program" && wait "$program"; } 2>/dev/null
}

windows() {
    xdotool search --onlyvisible --name '^Idle$' 2>/dev/null | wc -l
}

# Milliseconds that the process has used: user and system time, in ticks of the clock, behind the name in brackets.
used_ms() {
    local fields
    fields=$(<"/proc/$program/stat") || fail 'the program has ended'
    read -ra fields <<<"${fields##*) }"
    echo $(((fields[11] + fields[12]) * 1000 / $(getconf CLK_TCK)))
}

# How often a thread of it had waited and went on.
wakeups() {
    cat "/proc/$program"/task/*/status | awk '/^voluntary_ctxt_switches/ { sum += $2 } END { print sum }'
}

wait_for_windows() {
    local end=$((SECONDS + 60))
    until [ "$(windows)" = 3 ]; do
        kill -0 "$program" 2>/dev/null || fail 'the program has ended'
        [ "$SECONDS" -lt "$end" ] || fail "there are $(windows) windows, not 3"
        sleep 0.2
    done
}

# The windows are painted, fonts read, caches filled: nothing is used for two seconds.
wait_for_rest() {
    local before=-1 end=$((SECONDS + 30))
    until [ "$(used_ms)" = "$before" ] || [ "$SECONDS" -ge "$end" ]; do
        before=$(used_ms)
        sleep 2
    done
}

[ $# -gt 0 ] || fail 'usage: idle-test.sh COMMAND...'
trap tear_down EXIT
"$@" &
program=$!
wait_for_windows
wait_for_rest

ms_before=$(used_ms) wakeups_before=$(wakeups)
sleep "$measured_seconds"
ms=$(($(used_ms) - ms_before)) wakeups=$(($(wakeups) - wakeups_before))

printf '%s windows, %s s: %s ms of processor time, %s wakeups\n' "$(windows)" "$measured_seconds" "$ms" "$wakeups"
[ "$(windows)" = 3 ] || fail 'a window has gone'
[ "$ms" -le "$most_ms" ] || fail "$ms ms of processor time, at most $most_ms are allowed"
[ "$wakeups" -le "$most_wakeups" ] || fail "$wakeups wakeups, at most $most_wakeups are allowed"
