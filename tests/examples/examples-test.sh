#!/usr/bin/env bash
# examples-test.sh CASE: runs an example on the display it is given, clicks where a user would, and compares what the
# program printed. Places are pixels from the window's top left corner, with the fonts of tests/fonts.
set -u

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
. "$root/scripts/window.sh"

fail() {
    printf '%s\n' "$1" >&2
    exit 1
}

# open_app FILE [ARGUMENT...]: starts a program and waits until its window is painted; $window is the window, $work/out
# what it prints.
open_app() {
    start_app "$@" >"$work/out"
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

# region_of X Y W H: names the pixels of a part of the window.
region_of() {
    import -silent -window "$window" -crop "$3x$4+$1+$2" -format '%#' info:-
}

# expect_window TITLE: the newest window gets this title; it is $window from now on.
expect_window() {
    window=$(wait_for_title "$1") ||
        fail "the newest window is \"$(xdotool getwindowname "$(newest_window)")\", not \"$1\""
    wait_until_still "$window"
}

FilesFollowTargetsAndBookmarks() {
    local folders list help
    mkdir -p "$work/tree/Letters/2024" "$work/tree/a & b"
    printf 'twelve bytes' >"$work/tree/Letters/x <1>.txt"
    open_app "$root/examples/files/app.js" "$work/tree"
    expect_window 'tree - Files'
    click 60 124 # the folder "Letters" in the tree, below "a & b"
    expect_window 'Letters - Files'
    click 275 95 # its first entry, the folder "2024"
    expect_window '2024 - Files'
    click 608 26 # Up
    expect_window 'Letters - Files'
    visit 'a file' 275 121
    folders=$(region_of 0 60 230 430)
    list=$(region_of 231 60 580 430)
    visit 'About, whose target is the list' 675 26
    [ "$(region_of 0 60 230 430)" = "$folders" ] || fail 'About changed the folders'
    [ "$(region_of 231 60 580 430)" != "$list" ] || fail 'About did not replace the list'
    visit 'a link with _self' 670 166
    [ "$(region_of 0 60 230 430)" = "$folders" ] || fail '_self left its frame'
    click 724 26 # Help, whose target is the whole window
    expect_window 'Help - Files'
    help=$(region_of 0 0 800 52)
    visit 'a bookmark further down' 185 118
    [ "$(region_of 0 0 800 52)" != "$help" ] || fail 'the bookmark did not scroll the page'
    visit 'the bookmark at the top' 55 490
    [ "$(region_of 0 0 800 52)" = "$help" ] || fail 'the page is not at its top again'
    click 730 26
    expect_window 'Letters - Files'
    click 795 26
    expect_end 'You were in tree/Letters.'
}

WizardReturnsAnAnswerFromEachWindow() {
    open_app "$root/examples/wizard/app.js"
    expect_window 'Travels'
    click 90 335
    expect_window 'Step 1 of 3'
    click 45 156 # Trondheim
    expect_window 'Step 2 of 3'
    click 65 365 # Back
    expect_window 'Step 1 of 3'
    click 40 214 # Kyoto
    expect_window 'Step 2 of 3'
    click 45 273 # winter
    expect_window 'Step 3 of 3'
    click 40 98 # Yes
    expect_window 'Travels'
    click 90 335
    expect_window 'Step 1 of 3'
    xdotool key --window "$window" Escape
    expect_window 'Travels'
    click 455 335
    expect_end 'Planned: Kyoto in winter.'
}

# enter_expense WHAT AMOUNT: types into the two fields and presses the Enter key.
enter_expense() {
    xdotool type "$1"
    xdotool key Tab
    xdotool type "$2"
    xdotool key Return
    wait_until_still "$window"
}

ExpensesAreAddedAndRemoved() {
    local before
    open_app "$root/examples/expenses/app.js"
    visit 'the first field' 180 48
    enter_expense 'Train to Bern' '48,50'
    enter_expense 'Lunch' '17'
    before=$(region_of 281 31 470 320)
    enter_expense 'Tea' 'two'
    [ "$(region_of 281 31 470 320)" = "$before" ] || fail 'an expense without an amount was added'
    visit 'the second row' 380 70
    visit 'Remove' 680 418
    [ "$(region_of 281 31 470 320)" != "$before" ] || fail 'the second row is still there'
    visit 'the menu' 25 10
    click 50 55 # Quit
    expect_end '48.50 in all'
}

InstrumentsAnswerThePointer() {
    local chart
    open_app "$root/examples/instruments/app.js"
    visit 'the gauge' 180 80
    chart=$(region_of 280 40 560 190)
    visit 'the chart' 500 120
    [ "$(region_of 280 40 560 190)" != "$chart" ] || fail 'the chart does not show the value under the pointer'
    visit 'another pen' 32 384
    xdotool mousemove --window "$window" 200 400 mousedown 1
    for x in 300 400 500; do xdotool mousemove --window "$window" "$x" 450; done
    xdotool mousemove --window "$window" 600 900 mouseup 1 # outside of the board, where it ends
    wait_until_still "$window"
    click 407 247 # Run
    wait_for_change "$window" || fail 'the chart does not move'
    click 456 247 # Pause
    wait_until_still "$window"
    click 131 563
    expect_end 'The gauge is at 66, and one stroke is on the board.'
}

# The clicks of ./tarn demo are places in these programs; what they lead to is written beside them.
DemoClicksLeadWhereTheySay() {
    local program
    for program in handbook files wizard; do
        "$root/scripts/demo.sh" "$root/examples/$program/app.js" "$work/$program" >"$work/pictures" 2>"$work/err" ||
            fail "$program: $(<"$work/err")"
        [ "$(wc -l <"$work/pictures")" -gt 4 ] || fail "$program: only $(wc -l <"$work/pictures") pictures"
    done
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
