# shellcheck shell=bash
# ./tarn test: every test of the tree, counted over both runners. The last line of standard output is the sum.

passed=0
failed=0
skipped=0

# run_tests [--quick] [--update-dumps] [NAME]
run_tests() {
    local quick= pattern=
    read_test_options "$@"
    begin_steps 6
    prepare test display
    export TARN_QUICK=$quick
    ctest_step
    node_step
    report
}

read_test_options() {
    local word
    for word in "$@"; do
        case $word in
            --quick) quick=1 ;;
            --update-dumps) export TARN_UPDATE_DUMPS=1 ;;
            -*) die "test does not know the option $word" 2 ;;
            *) pattern=$word ;;
        esac
    done
}

ctest_step() {
    local results=$root/build/dev/ctest.xml
    rm -f -- "$results"
    try_step 'unit, dump, picture and window tests' run_ctest "$results"
    count_ctest "$results" "$?"
}

run_ctest() {
    local choice=()
    [ -z "$quick" ] || choice+=(--label-exclude slow)
    [ -z "$pattern" ] || choice+=(--tests-regex "$pattern" --no-tests=ignore)
    cd -- "$root" && ctest --preset dev --parallel "$(nproc)" --output-junit "$1" "${choice[@]}"
}

# count_ctest RESULTS EXIT-CODE. A test that could not be started is "notrun" like one that skipped itself, but has failed.
count_ctest() {
    local run=0 fail=0 idle=0 self=0
    if [ -f "$1" ]; then
        run=$(grep -c '<testcase .*status="run"' "$1")
        fail=$(grep -c '<testcase .*status="fail"' "$1")
        idle=$(grep -c '<testcase .*status="\(notrun\|disabled\)"' "$1")
        self=$(grep -c '<skipped message="SKIP_' "$1")
    fi
    add_counts "$2" "$run" "$((fail + idle - self))" "$self"
    [ "$2" -eq 0 ] || list_ctest_failures "$1"
}

list_ctest_failures() {
    sed -n '/The following tests FAILED/,$p' "$step_log" | grep '^\s*[0-9]' >&2
    note "what they printed is in $step_log"
}

node_step() {
    local files=()
    mapfile -t files < <(find "$root/host/node/test" -name '*.test.*js' -type f 2>/dev/null | sort)
    if [ "${#files[@]}" -eq 0 ]; then
        step_ready 'Node tests: none'
        return
    fi
    try_step 'Node tests' run_node "${files[@]}"
    count_node "$?"
}

run_node() {
    local choice=()
    [ -z "$pattern" ] || choice+=("--test-name-pattern=$pattern")
    cd -- "$root/host/node" && on_virtual_display node --test --test-reporter=tap "${choice[@]}" "$@"
}

# tap_count NAME: a figure of the summary at the end of a TAP log, 0 when there is none.
tap_count() {
    sed -n "s/^# $1 \([0-9]*\)$/\1/p" "$step_log" | tail -n 1 | grep . || echo 0
}

count_node() {
    add_counts "$1" "$(tap_count pass)" "$(($(tap_count fail) + $(tap_count cancelled)))" \
        "$(($(tap_count skipped) + $(tap_count todo)))"
    [ "$1" -eq 0 ] && return
    grep -E '^ *not ok' "$step_log" >&2
    note "what they printed is in $step_log"
}

# add_counts EXIT-CODE PASSED FAILED SKIPPED. A runner that fails without naming a test counts as one failed test.
add_counts() {
    local fail=$3
    [ "$1" -eq 0 ] || [ "$fail" -gt 0 ] || fail=1
    passed=$((passed + $2))
    failed=$((failed + fail))
    skipped=$((skipped + $4))
    note "      $2 passed, $fail failed$([ "$4" -eq 0 ] || echo ", $4 skipped")"
}

report() {
    [ "$((passed + failed))" -gt 0 ] || note 'no test was run'
    printf '%d passed, %d failed' "$passed" "$failed"
    [ "$skipped" -eq 0 ] || printf ', %d skipped' "$skipped"
    printf '\n'
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}
