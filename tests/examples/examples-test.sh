#!/usr/bin/env bash
# examples-test.sh CASE: runs an example on the display it is given, clicks where a user would, and compares what the program
# printed. Places are pixels from the window's top left corner, with the fonts of tests/fonts.
set -u

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
. "$root/scripts/window.sh"

fail() {
    printf '%s\n' "$1" >&2
    exit 1
}

# open_app FILE: starts a program and waits until its window is painted; $window is the window, $work/out what it prints.
open_app() {
    start_app "$1" >"$work/out"
    trap 'end_app; rm -rf -- "$work"' EXIT
    window=$(wait_for_window) || exit
    wait_until_still "$window"
}

click() {
    xdotool mousemove --window "$window" "$1" "$2" click 1
}

expect_title() {
    local end=$((SECONDS + 10))
    until [ "$(xdotool getwindowname "$window")" = "$1" ]; do
        [ "$SECONDS" -lt "$end" ] || fail "the title is \"$(xdotool getwindowname "$window")\", not \"$1\""
        sleep 0.05
    done
}

# expect_end OUTPUT: the program ends by itself, without an error, having printed this.
expect_end() {
    local end=$((SECONDS + 10)) code
    while kill -0 "$app" 2>/dev/null; do
        [ "$SECONDS" -lt "$end" ] || fail 'the program has not ended'
        sleep 0.05
    done
    wait "$app"
    code=$?
    [ "$code" -eq 0 ] || fail "the program ended with $code"
    [ "$(<"$work/out")" = "$1" ] || fail "the program printed: $(<"$work/out")"
}

HelloGreetsAndLeaves() {
    open_app "$root/examples/hello/app.js"
    expect_title 'Hello'
    click 130 128
    expect_title 'Hello, world'
    click 210 128
    expect_title 'Hello, you'
    click 280 128
    expect_end 'goodbye'
}

# visit NAME X Y: clicks, and waits until the page has changed.
visit() {
    click "$2" "$3"
    wait_for_change "$window" || fail "the click on $1 at $2,$3 changed nothing"
    wait_until_still "$window"
}

HandbookCountsWhatWasRead() {
    local name x y
    open_app "$root/examples/handbook/app.js"
    while read -r name x y <&3; do visit "$name" "$x" "$y"; done 3<"$root/examples/handbook/clicks.txt"
    visit welcome 60 94
    click 800 518
    expect_end 'Goodbye after 7 pages.'
}

HandbookLinksInThePageWork() {
    open_app "$root/examples/handbook/app.js"
    visit tables 270 387
    visit 'the next page, in the footer' 810 619
    visit welcome 60 94
    visit 'tables again' 270 387
    visit welcome 60 94
    click 800 518
    expect_end 'Goodbye after 3 pages.'
}

# readme_block LANGUAGE: the first block of that language in the README.
readme_block() {
    awk -v fence="\`\`\`$1" '$0 == fence { inside = 1; next } /^```$/ && inside { exit } inside' "$root/README.md"
}

ReadmeProgramRuns() {
    readme_block html >"$work/tea.html"
    readme_block js | sed "s|'../../host/node'|'$root/host/node'|" >"$work/app.js"
    open_app "$work/app.js"
    expect_title 'Tea'
    click 45 123
    expect_end '2 cups of tea'
}

declare -F "${1-}" >/dev/null || fail "no such case: ${1-}"
"$1"
