#!/usr/bin/env bash
# program-test.sh CASE TARN_DUMP: runs the function of that name on the program that ./tarn dump runs.
set -u

case=${1-}
dump=${2-}
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
export QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 FONTCONFIG_FILE=$here/../fonts/fonts.conf
mkdir -m 700 "$work/run" && export XDG_RUNTIME_DIR=$work/run

fail() {
    printf '%s\n' "$1"
    sed 's/^/out: /' "$work/out"
    sed 's/^/err: /' "$work/err"
    exit 1
}

# run CONTENT WIDTH HEIGHT: dumps a page with that content, CODE its exit code.
run() {
    printf '%b' "$1" >"$work/page.html"
    "$dump" "$work/page.html" "$2" "$3" >"$work/out" 2>"$work/err"
    code=$?
}

expect_code() { [ "$code" -eq "$1" ] || fail "exit code $code, not $1"; }
expect_err() { [ "$(<"$work/err")" = "$1" ] || fail "expected this error output: $1"; }
expect_line() { grep -qxF -- "$1" "$work/out" || fail "expected this line: $1"; }

TheTreeIsPrintedToTheLastByte() {
    run '<html><body></body></html>' 300 200
    expect_code 0
    expect_err ''
    printf '%s\n' 'BASE: ' 'rect: (0,0)-(300,200) = 300x200' 'border 0; space 0; divide 0' \
        'static: X=0/unbound, Y=0/unbound, cxMin=0, cyMin=0' 'expansion: children=no, width=no, height=no' \
        'dynamic: X=0 pixels, Y=0/unbound, cxMin=0, cyMin=0, cxPref=0' 'active: cx=300, cy=200' 'scroll: =0, =0' \
        'align: X=left, Y=center' 'font: no override supplied' '{' '}' >"$work/expected"
    cmp -s "$work/expected" "$work/out" || fail "$(diff "$work/expected" "$work/out")"
}

NamesAndTextsAreWrittenInUtf8() {
    local head='<html><head><meta charset="utf-8"></head><body>'
    run "$head"'<table name="\xc3\xa4\xe2\x82\xac"><tr><td>\xd0\x96 \xf0\x9f\x98\x80</table>' 300 200
    expect_code 0
    expect_line '  HTML: ä€'
    expect_line '      text: Ж 😀'
}

AFaultIsNamedAndWhatStandsBeforeItIsPrinted() {
    run '<html><body><p>one</p>\n<p>two</p>]]><p>three</p></body></html>' 300 200
    expect_code 1
    expect_err 'guiHtmlParser::pullPage() - line 2: unexpected symbol found'
    expect_line '  text: two'
}

AFileThatIsNoPageHasAnEmptyTree() {
    run '\x00\x01\xff\xfe\x80' 300 200
    expect_code 1
    expect_err "GuiWindow::load() - unable to find <body> or <html> tag in $work/page.html; probably not HTML"
    expect_line 'BASE: '
}

AMissingPageIsNamedAndNothingIsPrinted() {
    "$dump" "$work/none.html" 300 200 >"$work/out" 2>"$work/err"
    code=$?
    expect_code 1
    expect_err "GuiWindow::load() - failed to load file $work/none.html"
    [ ! -s "$work/out" ] || fail 'something was printed'
}

WrongArgumentsShowTheUsage() {
    "$dump" page.html >"$work/out" 2>"$work/err"
    code=$?
    expect_code 2
    expect_err "usage: $dump PAGE.html WIDTH HEIGHT"
}

declare -F "$case" >/dev/null || { echo "no such case: $case" && exit 1; }
"$case"
