#!/usr/bin/env bash
# shell-test.sh CASE: runs the function of that name. Anything unexpected prints what was seen and fails.
# shellcheck disable=SC2034 # the scripts under test read these variables
# shellcheck disable=SC2016 # what stands in single quotes is for another shell
set -u

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
fixture=$root/tests/e2e/with-display.sh
. "$root/tests/shell/expect.sh"

# The scripts of ./tarn as a library, with their logs in this test's own folder.
load_scripts() {
    local real=$root name
    root=$work
    die() { printf 'tarn: %s\n' "$1" >&2 && exit "${2:-1}"; }
    # shellcheck source=/dev/null # each is looked at by itself
    for name in steps packages build package test nodes lint; do . "$real/scripts/$name.sh"; done
}

UnknownCommandIsNamed() {
    run "$root/tarn" dance
    expect_code 2
    expect_silence
    expect_err_end 'tarn: unknown command: dance'
}

HelpNamesEveryCommand() {
    run "$root/tarn" help
    expect_code 0
    local name
    for name in demo run shot pdf dump pack test lint figures bench fuzz soak help; do
        grep -q "^  $name" "$work/out" || fail "help does not name $name"
    done
}

WorksFromAnyFolderAndThroughALink() {
    mkdir -p "$work/a folder"
    ln -s "$root/tarn" "$work/a folder/t"
    cd "$work/a folder" || exit
    run ./t help
    expect_code 0
    run ./t dump 'no page.html'
    expect_err 'tarn: no such file: no page.html'
}

DumpRefusesWhatIsNoSize() {
    local size
    for size in '' x 480 480x 0x240 480x0 -1x240 480x240x2 480X240 100000x1 ' 1x1' 1e3x240; do
        run "$root/tarn" dump "$root/examples/hello/hello.html" "$size"
        expect_code 2
        expect_silence
        expect_err "tarn: not a window size like 480x240: $size"
    done
}

DumpRefusesAMissingPage() {
    run "$root/tarn" dump "$work/none.html" 480x240
    expect_code 2
    expect_silence
    expect_err "tarn: no such file: $work/none.html"
}

ShotRefusesAMissingFolder() {
    run "$root/tarn" shot "$root/examples/hello/app.js" "$work/none/out.png"
    expect_code 2
    expect_err "tarn: no such folder: $work/none"
}

PdfRefusesAMissingFolderAndAMissingPage() {
    run "$root/tarn" pdf "$root/examples/hello/hello.html" "$work/none/out.pdf"
    expect_code 2
    expect_err "tarn: no such folder: $work/none"
    run "$root/tarn" pdf "$work/none.html" "$work/out.pdf"
    expect_code 2
    expect_err "tarn: no such file: $work/none.html"
}

OnlyMissingPackagesAreListed() {
    load_scripts
    pretend dpkg-query 'echo "alpha installed"; echo "beta config-files"; echo "gamma installed"'
    run missing_packages alpha beta gamma delta
    expect_out $'beta\ndelta'
    run missing_packages alpha gamma
    expect_silence
}

PackagesAreAskedForWithoutTheRightToInstall() {
    load_scripts
    pretend id 'echo 1000'
    pretend sudo 'exit 1'
    run bash -c "$(declare -f check_may_install die); check_may_install alpha beta"
    expect_code 1
    expect_err 'tarn: please have these packages installed: alpha beta'
}

FailedStepShowsTheEndOfItsLog() {
    load_scripts
    begin_steps 2
    run_failing() { (step 'baking' bash -c 'seq 100; exit 3'); }
    run run_failing
    expect_code 1
    grep -q '^\[1/2\] baking \.\.\. failed after' "$work/err" || fail 'the step is not named'
    grep -q '^    100$' "$work/err" || fail 'the end of the log is missing'
    grep -q '^    60$' "$work/err" && fail 'too much of the log is shown'
    expect_err_end "tarn: the whole log is in $work/build/log/1.log"
}

StepNumbersAndTitlesAreShown() {
    load_scripts
    unset SECONDS && SECONDS=0 # a clock that stands still
    begin_steps 2
    both() { step 'one' true && step_ready 'two'; }
    run both
    expect_err $'[1/2] one ... done (0 s)\n[2/2] two ... ready'
}

QuietStepsSayNothing() {
    load_scripts
    begin_steps 2 quiet
    both() { step 'one' true && step_ready 'two'; }
    run both
    expect_code 0
    expect_err ''
}

ProgressIsReadFromNinjaCtestAndApt() {
    load_scripts
    expect_progress '[12/340] Building CXX object' 12/340
    expect_progress ' 7/900 Test #12: Layout.ThreeCells ...   Passed' 7/900
    expect_progress 'dlstatus:3:12.5:Retrieving file 3 of 8' 'fetched 12%'
    expect_progress 'pmstatus:xvfb:61.25:Unpacking xvfb' 'unpacked 61%'
    expect_progress 'nothing of the kind' ''
}

expect_progress() {
    printf 'before\n%s\n' "$1" >"$work/log"
    run progress_in "$work/log"
    expect_out "$2"
}

# Writes a CTest report: arguments are status, name and output of each test.
write_report() {
    echo '<testsuite name="tarn">'
    while [ $# -gt 0 ]; do
        printf '\t<testcase name="%s" classname="%s" time="0.1" status="%s">\n' "$2" "$2" "$1"
        printf '\t\t<system-out>%s</system-out>\n\t</testcase>\n' "$3"
        shift 3
    done
    echo '</testsuite>'
}

expect_sum() {
    load_scripts
    run sum_results "$work/ctest.xml"
    expect_out "$1"
}

EveryTestOfANodeFileIsCounted() {
    write_report run Page.A '' run node.calls $'TAP version 13\n# tests 9\n# pass 5\n# fail 0\n# skipped 2\n# todo 1' \
        run node.windows $'text\nℹ pass 7\nℹ fail 0\nℹ duration_ms 3' run Page.B '# pass 50' >"$work/ctest.xml"
    expect_sum '14 0 3'
}

FailuresInANodeFileAreCounted() {
    write_report fail node.calls $'# pass 5\n# fail 2\n# cancelled 1\nend' \
        fail Page.A '' run Page.B '' >"$work/ctest.xml"
    expect_sum '6 4 0'
}

NodeFileThatDiesCountsAsAFailedTest() {
    write_report fail node.calls $'ok 1\nok 2\nSegmentation fault' \
        fail node.exits $'# pass 3\n# fail 0\nend' >"$work/ctest.xml"
    expect_sum '3 2 0'
}

TestThatCouldNotStartHasFailed() {
    cat >"$work/ctest.xml" <<'END'
	<testcase name="D" status="notrun">
		<skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/>
	</testcase>
	<testcase name="E" status="notrun">
		<skipped message="Unable to find executable"/>
	</testcase>
END
    expect_sum '0 1 1'
}

ReportEndsWithTheSum() {
    load_scripts
    write_report run A '' run B '' >"$work/ctest.xml"
    count_results "$work/ctest.xml" 0
    run report
    expect_code 0
    expect_out '2 passed, 0 failed'
    skipped=3
    run report
    expect_out '2 passed, 0 failed, 3 skipped'
}

RunnerThatDiesCountsAsAFailedTest() {
    load_scripts
    count_results "$work/none.xml" 139
    run report
    expect_code 1
    expect_out '0 passed, 1 failed'
}

NoTestAtAllIsAFailure() {
    load_scripts
    run report
    expect_code 1
    expect_out '0 passed, 0 failed'
}

# The whole of ./tarn test on a tree that is built, with a CTest that says what it was asked.
run_pretended_tests() {
    declare -F run_tests >/dev/null || load_scripts
    prepare() { :; }
    prepare_preset() { echo "built $1" >>"$work/asked"; }
    test_shipped() { echo 'package too' >>"$work/asked"; }
    test_with_nodes() { echo "versions too: ${*:2}" >>"$work/asked"; }
    test_sanitized() { echo "sanitized too" >>"$work/asked"; }
    test_threads() { echo "threads too" >>"$work/asked"; }
    lint_quickly() { echo 'linted' >>"$work/asked"; }
    lint_changes() { echo 'changes linted' >>"$work/asked"; }
    mkdir -p "$work/build/dev" "$work/scripts"
    printf '%s\n' '# versions' 1.2.3 2.3.4 3.4.5 >"$work/scripts/nodes.txt"
    : >"$work/asked"
    pretend ctest "echo \"\$* update=\${TARN_UPDATE_DUMPS-none}\" >>'$work/asked'" \
        "cp '$work/report.xml' '$work/build/dev/ctest.xml'"
    log_folder=$work/log
    (run_tests "$@") >"$work/out" 2>"$work/err"
    code=$?
}

fail_asked() { fail "asked: $(<"$work/asked")"; }
expect_asked() { [ "$(<"$work/asked")" = "$1" ] || fail_asked; }

UpdateDumpsReachesTheTests() {
    write_report run Dump.a '' >"$work/report.xml"
    run_pretended_tests --update-dumps Dump
    grep -q -e '--tests-regex Dump .*update=1$' "$work/asked" || fail_asked
    expect_code 0
    run_pretended_tests Dump
    grep -q 'update=none$' "$work/asked" || fail_asked
}

SanitizersRunWithEverythingOrAlone() {
    write_report run Dump.a '' >"$work/report.xml"
    local options words
    for options in --quick Dump '--update-dumps Dump'; do
        read -ra words <<<"$options"
        run_pretended_tests "${words[@]}"
        ! grep -q 'too$' "$work/asked" || fail "with '$options' the sanitizers were run"
        unset TARN_UPDATE_DUMPS
    done
    run_pretended_tests
    sed -i 's/^--preset dev .*/tests/' "$work/asked"
    expect_asked $'linted\nchanges linted\ntests\nversions too: 1.2.3 3.4.5\npackage too\nsanitized too\nthreads too'
    run_pretended_tests --sanitized
    expect_asked 'sanitized too'
    run_pretended_tests --threads
    expect_asked 'threads too'
    run_pretended_tests --nodes
    expect_asked 'versions too: 1.2.3 2.3.4 3.4.5'
}

LintersRunWithEverythingAndQuickly() {
    write_report run Dump.a '' >"$work/report.xml"
    run_pretended_tests --quick
    sed -i 's/^--preset dev .*/tests/' "$work/asked"
    expect_asked $'linted\ntests'
    run_pretended_tests --quick Dump
    ! grep -q 'linted$' "$work/asked" || fail_asked
    run_pretended_tests Dump
    ! grep -q 'linted$' "$work/asked" || fail_asked
}

ResultsOfSeveralBuildsAddUp() {
    declare -F run_tests >/dev/null || load_scripts
    write_report run A '' run B '' fail C '' >"$work/report.xml"
    count_results "$work/report.xml" 8
    count_results "$work/report.xml" 8
    count_results "$work/missing.xml" 1
    begin_steps 2
    count_step 'a step that ends well' true 2>/dev/null
    count_step 'a step that fails' false 2>/dev/null
    run report
    expect_code 1
    expect_out '5 passed, 4 failed'
}

RewrittenDumpsAreNamed() {
    local pages=$work/tests/pages
    write_report run Dump.b "rewritten: $pages/b.dump" run Dump.c '' run Dump.a "rewritten: $pages/a.dump" \
        fail SecondComputation.a '--- stored' >"$work/report.xml"
    run_pretended_tests --update-dumps
    expect_code 1
    expect_out '3 passed, 1 failed'
    grep -A2 '^dumps rewritten, for review in the diff: 2$' "$work/err" | tail -n 2 >"$work/named"
    [ "$(<"$work/named")" = $'    tests/pages/a.dump\n    tests/pages/b.dump' ] || fail "named: $(<"$work/named")"
    write_report run Dump.c '' >"$work/report.xml"
    run_pretended_tests --update-dumps
    expect_err_end 'no dump was rewritten'
    run_pretended_tests
    ! grep -q 'rewritten' "$work/err" || fail 'dumps are named without being updated'
}

# A page with a program that dumps it, and the test of both.
prepare_dump_test() {
    unset TARN_UPDATE_DUMPS
    dump_test=$root/tests/pages/dump-test.sh
    echo '<html></html>' >"$work/page.html"
    pretend dumper "cat '$work/tree'"
    printf 'BASE: \nrect: (0,0)-(480,240) = 480x240\n' >"$work/tree"
}

DumpTestFailsWithoutAStoredDump() {
    prepare_dump_test
    run "$dump_test" dumper "$work/page.html"
    expect_code 1
    expect_out "no such file: $work/page.dump; ./tarn test --update-dumps writes it"
    [ ! -e "$work/page.dump" ] || fail 'a dump was stored'
}

DumpTestStoresAndCompares() {
    prepare_dump_test
    run env TARN_UPDATE_DUMPS=1 "$dump_test" dumper "$work/page.html"
    expect_code 0
    expect_out "rewritten: $work/page.dump"
    cmp -s "$work/tree" "$work/page.dump" || fail 'another dump was stored'
    run "$dump_test" dumper "$work/page.html"
    expect_code 0
    expect_silence
    run env TARN_UPDATE_DUMPS=1 "$dump_test" dumper "$work/page.html"
    expect_code 0
    expect_silence
}

DumpTestShowsWhatMoved() {
    prepare_dump_test
    cp "$work/tree" "$work/page.dump"
    echo 'rect: (1,0)-(480,240) = 479x240' >"$work/tree"
    run "$dump_test" dumper "$work/page.html"
    expect_code 1
    grep -q '^+rect: (1,0)' "$work/out" || fail 'what was seen is not shown'
    grep -q '^-rect: (0,0)' "$work/out" || fail 'what was stored is not shown'
    run env TARN_UPDATE_DUMPS=1 "$dump_test" --no-update dumper "$work/page.html"
    expect_code 1
    grep -q '^rect: (0,0)' "$work/page.dump" || fail 'the second computation was stored'
}

DumpTestStoresNothingOfAProgramThatFails() {
    prepare_dump_test
    pretend dumper "cat '$work/tree'" 'exit 3'
    run env TARN_UPDATE_DUMPS=1 "$dump_test" dumper "$work/page.html"
    expect_code 1
    [ ! -e "$work/page.dump" ] || fail 'a dump was stored'
    pretend dumper ':'
    run env TARN_UPDATE_DUMPS=1 "$dump_test" dumper "$work/page.html"
    expect_code 1
    expect_out 'the dump is empty'
    [ ! -e "$work/page.dump" ] || fail 'an empty dump was stored'
}

FixtureKeepsTheExitCode() {
    run "$fixture" sh -c 'exit 7'
    expect_code 7
    run "$fixture" sh -c 'kill -TERM $$'
    expect_code 143
    run "$fixture"
    expect_code 125
}

FixturePassesStandardInputOn() {
    run "$fixture" cat <<<'a line'
    expect_out 'a line'
    run "$fixture" cat <&-
    expect_code 0
    expect_silence
}

FixtureShowsOnlyTheTestFonts() {
    run "$fixture" sh -c 'fc-list : file | wc -l; fc-match Helvetica family; fc-match monospace family'
    expect_out $'6\nDejaVu Sans\nDejaVu Sans Mono'
}

FixturesRunSideBySide() {
    local i
    for i in 1 2 3; do "$fixture" sh -c 'echo "$DISPLAY"; sleep 1' >"$work/$i" & done
    wait
    [ "$(cat "$work"/[123] | sort -u | wc -l)" = 3 ] || fail "displays: $(cat "$work"/[123] | tr '\n' ' ')"
}

FixtureLeavesNothingBehind() {
    mkdir "$work/tmp"
    TMPDIR=$work/tmp "$fixture" sh -c 'echo "$DISPLAY" >"$1"; exec sleep 60' - "$work/display" &
    local process=$! display
    until [ -s "$work/display" ]; do sleep 0.05; done
    display=$(<"$work/display")
    kill "$process"
    wait "$process"
    [ "$?" = 143 ] || fail 'a terminated fixture does not say so'
    [ -z "$(ls "$work/tmp")" ] || fail "files remain: $(ls "$work/tmp")"
    [ ! -e "/tmp/.X${display#:}-lock" ] || fail "the server of $display still runs"
}

FixtureHidesTheUsersDesktop() {
    run env QT_SCALE_FACTOR=3 XDG_CONFIG_HOME=/nowhere DISPLAY=:999 "$fixture" \
        sh -c 'echo "${QT_SCALE_FACTOR-none}"; test -w "$XDG_CONFIG_HOME" &&
            xprop -root _NET_SUPPORTING_WM_CHECK | grep -c "window id"'
    expect_out $'none\n1'
}

ShotSaysThatAProgramOpenedNoWindow() {
    echo 'process.exit(3);' >"$work/app.js"
    run "$fixture" "$root/scripts/shot.sh" "$work/app.js" "$work/out.png"
    expect_code 1
    expect_err 'tarn: the program ended without opening a window'
    [ ! -e "$work/out.png" ] || fail 'a picture was written'
}

run_case "${1-}"
