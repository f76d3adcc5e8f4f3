# shellcheck shell=bash
# What the shell tests share: a folder of a test's own, running a command, and saying what was expected of it.

work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT

fail() {
    printf '%s\n' "$1"
    [ ! -s "$work/out" ] || sed 's/^/out: /' "$work/out"
    [ ! -s "$work/err" ] || sed 's/^/err: /' "$work/err"
    exit 1
}

# run COMMAND...: output, error output and exit code go to $work/out, $work/err and $code.
run() {
    "$@" >"$work/out" 2>"$work/err"
    code=$?
}

expect_code() { [ "$code" -eq "$1" ] || fail "exit code $code, not $1"; }
expect_out() { [ "$(<"$work/out")" = "$1" ] || fail "expected this output: $1"; }
expect_err() { [ "$(<"$work/err")" = "$1" ] || fail "expected this error output: $1"; }
expect_err_end() { [ "$(tail -n 1 "$work/err")" = "$1" ] || fail "expected this last line: $1"; }
expect_silence() { [ ! -s "$work/out" ] || fail 'expected no output'; }

# pretend NAME BODY...: puts a program of that name first on the path.
pretend() {
    mkdir -p "$work/bin"
    { echo '#!/bin/sh' && printf '%s\n' "${@:2}"; } >"$work/bin/$1"
    chmod +x "$work/bin/$1"
    PATH=$work/bin:$PATH
    hash -r
}

# run_case NAME: the function of that name is the test.
run_case() {
    declare -F "${1-}" >/dev/null || fail "no such case: ${1-}"
    "$1"
}
