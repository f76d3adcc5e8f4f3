# shellcheck shell=bash disable=SC2154 # root and step_log are of the script that reads this one
# ./tarn test: every test of the tree, and the linters. CTest knows the tests; the last line of standard output is the
# sum of what ran.

passed=0
failed=0
skipped=0

# run_tests [--quick] [--sanitized] [--threads] [--nodes] [--update-dumps] [--update-pictures] [NAME]
run_tests() {
    local quick= sanitized= threads= nodes= pattern=
    read_test_options "$@"
    if [ -n "$threads" ]; then
        begin_steps 7
        prepare test display fuzz
        test_threads
    elif [ -n "$sanitized" ]; then
        begin_steps 9
        prepare test display fuzz
        test_sanitized
    elif [ -n "$nodes" ]; then
        begin_steps 15
        prepare test display
        test_all_versions
    elif [ $# -eq 0 ]; then
        begin_steps 28
        prepare test display fuzz lint
        lint_quickly
        lint_changes
        test_preset dev
        test_versions
        test_shipped
        test_sanitized
        test_threads
    elif [ "$*" = --quick ]; then
        begin_steps 11
        prepare test display lint
        lint_quickly
        test_preset dev
    else
        begin_steps 5
        prepare test display
        test_preset dev
        [ -z "${TARN_UPDATE_DUMPS-}" ] || report_dumps "$root/build/dev/ctest.xml"
    fi
    report
}

# The unit tests and those of whole windows once more under AddressSanitizer and UndefinedBehaviorSanitizer, the fuzzers
# for a short while each, and a minute of random use. The fuzzers begin with the same random numbers every time.
test_sanitized() {
    prepare_preset asan tarn_tests tarn_fuzz
    test_preset asan
    count_step 'fuzzing' env TARN_FUZZ_SEED=1 "$root/fuzz/run" 15
    count_step 'using the examples for a minute' soak_for 1
}

# The tests in which threads meet, under ThreadSanitizer.
test_threads() {
    prepare_preset tsan tarn_tests
    test_preset tsan
}

# test_preset PRESET: runs the tests of one build and adds to the sums.
test_preset() {
    local results=$root/build/$1/ctest.xml code
    rm -f -- "$results"
    try_step "testing $1" run_ctest "$1" "$results"
    code=$?
    count_results "$results" "$code"
    [ "$code" -eq 0 ] || list_failures
}

# count_step TITLE COMMAND...: a step that counts as one test.
count_step() {
    if try_step "$@"; then
        passed=$((passed + 1))
    else
        failed=$((failed + 1))
        tail -n 30 -- "$step_log" | indent >&2
        note "the whole log is in $step_log"
    fi
}

read_test_options() {
    local word
    for word in "$@"; do
        case $word in
            --quick) quick=1 ;;
            --sanitized) sanitized=1 ;;
            --threads) threads=1 ;;
            --nodes) nodes=1 ;;
            --update-dumps) export TARN_UPDATE_DUMPS=1 ;;
            --update-pictures) export TARN_UPDATE_PICTURES=1 ;;
            -*) die "test does not know the option $word" 2 ;;
            *) pattern=$word ;;
        esac
    done
}

# A Node.js test file is one CTest test that holds many: its output is kept whole, so that they can be counted.
run_ctest() {
    local choice=()
    [ -z "$quick" ] && [ "$1" = dev ] || choice+=(--label-exclude slow)
    [ -z "$pattern" ] || choice+=(--tests-regex "$pattern" --no-tests=ignore)
    cd -- "$root" && ctest --preset "$1" --parallel "$(nproc)" --output-junit "$2" \
        --test-output-size-passed 4000000 --test-output-size-failed 4000000 "${choice[@]}"
}

# count_results FILE EXIT-CODE: adds to the sums. A runner that fails without naming a test counts as one failed test.
count_results() {
    local sums=(0 0 0)
    [ ! -f "$1" ] || read -r -a sums < <(sum_results "$1")
    [ "$2" -eq 0 ] || [ "${sums[1]}" -gt 0 ] || sums[1]=1
    passed=$((passed + sums[0]))
    failed=$((failed + sums[1]))
    skipped=$((skipped + sums[2]))
}

# sum_results FILE: tests passed, failed and skipped in CTest's report. A test that could not be started is "notrun", as
# is one that skipped itself, but has failed. For a file of Node.js tests its own summary counts ("# pass 12", in newer
# versions "ℹ pass 12"); when the file failed and its summary does not say why, that is one more failed test.
sum_results() {
    awk '
        function word(key) {
            if (!match($0, " " key "=\"[^\"]*\"")) return ""
            return substr($0, RSTART + length(key) + 3, RLENGTH - length(key) - 4)
        }
        /<testcase / {
            isNode = word("name") ~ /^(node|Example)\./
            isOk = word("status") == "run"
            ownSkip = pass = fail = skip = 0
        }
        { gsub(/<\/?system-out>/, "") }
        /<skipped message="SKIP_/ { ownSkip = 1 }
        isNode && /^[ \t]*(#|ℹ) (pass|fail|cancelled|skipped|todo) [0-9]+$/ {
            if ($2 == "pass") pass += $3
            else if ($2 == "fail" || $2 == "cancelled") fail += $3
            else skip += $3
        }
        /<\/testcase>/ {
            if (!isOk && !ownSkip && !fail) fail = 1
            else if (ownSkip) skip = 1
            else if (isOk && !(pass + fail + skip)) pass = 1
            passed += pass; failed += fail; skipped += skip
        }
        END { print passed + 0, failed + 0, skipped + 0 }
    ' "$1"
}

list_failures() {
    sed -n '/The following tests FAILED/,$p' "$step_log" | grep '^\s*[0-9]' >&2
    note "what they printed is in $step_log"
}

# report_dumps FILE: which stored dumps the run has rewritten, by CTest's report. They count as passed: this says that
# nothing was compared.
report_dumps() {
    local names
    names=$(sed -n 's/.*rewritten: \(.*\.dump\).*/\1/p' "$1" 2>/dev/null | sed "s|^$root/||" | sort)
    if [ -z "$names" ]; then
        note 'no dump was rewritten'
    else
        note "dumps rewritten, for review in the diff: $(wc -l <<<"$names")"
        indent <<<"$names" >&2
    fi
}

report() {
    [ "$((passed + failed))" -gt 0 ] || note 'no test was run'
    printf '%d passed, %d failed' "$passed" "$failed"
    [ "$skipped" -eq 0 ] || printf ', %d skipped' "$skipped"
    printf '\n'
    [ "$failed" -eq 0 ] && [ "$passed" -gt 0 ]
}
