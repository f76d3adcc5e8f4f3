#!/usr/bin/env bash
# lint-test.sh CASE: runs the function of that name: tests of the linters and of the figures, on small trees made for
# them.
# shellcheck disable=SC2034,SC2154 # the scripts under test read these variables, and set some
# shellcheck disable=SC2016 # what stands in single quotes is for another shell
set -u

root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/../.." && pwd)
. "$root/tests/shell/expect.sh"
real=$root

# put NAME LINE...: a file of the small tree.
put() {
    mkdir -p "$work/tree/$(dirname -- "$1")"
    printf '%s\n' "${@:2}" >"$work/tree/$1"
}

# The scripts of ./tarn as a library, on the small tree.
load_scripts() {
    local name
    root=$work/tree
    log_folder=$work/log
    mkdir -p "$root" "$log_folder"
    die() { printf 'tarn: %s\n' "$1" >&2 && exit "${2:-1}"; }
    # shellcheck source=/dev/null # each is looked at by itself
    for name in steps build test lint; do . "$real/scripts/$name.sh"; done
}

# A component without a fault: each layer includes what lies below, and hosts' interfaces are there for all.
put_component() {
    put foundation/text.h
    put foundation/text.cpp '#include "foundation/text.h"'
    put page/node.h '#include "foundation/text.h"' '#include "script/hostinterface.h"'
    put page/node.cpp '#include "page/node.h"'
    put page/node-paint.cpp '#include "page/node.h"'
    put controls/button.h '#include "page/node.h"'
    put runtime/window.h '#include "controls/button.h"'
    put script/classes.cpp '#include "runtime/window.h"'
    put script/hostinterface.h '#include "foundation/text.h"'
    put host/native/host.h '#include "script/hostinterface.h"'
}

look_at_house() {
    run node "$real/scripts/figures/house.js" "$work/tree"
}

AHouseWithoutFaultsPasses() {
    put_component
    look_at_house
    expect_code 0
    expect_silence
}

AnIncludeThatPointsUpIsNamed() {
    put_component
    put page/node-paint.cpp '#include "page/node.h"' '#include "controls/list.h"'
    put controls/list.h
    put runtime/window.cpp '#include "runtime/window.h"' ' #  include "host/native/host.h"'
    look_at_house
    expect_code 1
    expect_out "page/node-paint.cpp:2: includes controls/list.h, which lies above it
runtime/window.cpp:2: includes host/native/host.h, which lies above it"
}

UnitsOfTwoFoldersThatIncludeEachOtherAreNamed() {
    put_component
    put page/node-paint.cpp '#include "controls/button.h"'
    look_at_house
    expect_code 1
    expect_out "page/node-paint.cpp:1: includes controls/button.h, which lies above it
2 units of controls, page include each other: controls/button page/node"
}

# A ring of units in one folder: as many as may be, and one more.
ALargeCycleInOneFolderIsNamed() {
    put_component
    local i
    for i in {1..10}; do put "page/ring$i.h" "#include \"page/ring$((i + 1)).h\""; done
    put page/ring11.h '#include "page/ring1.h"'
    look_at_house
    expect_code 0
    put page/ring11.h '#include "page/ring12.h"'
    put page/ring12.h '#include "page/ring1.h"'
    look_at_house
    expect_code 1
    expect_out "12 units of one folder include each other, 11 may: $(printf 'page/ring%d\n' {1..12} | sort | paste -sd' ')"
}

AFolderWithoutSourcesIsNoComponent() {
    put_component
    rm -r "$work/tree/runtime"
    look_at_house
    expect_code 1
    grep -qx 'no sources in runtime/' "$work/out" || fail 'the empty folder is not named'
}

# figure NAME WANTED: a row of the table.
expect_figure() {
    grep -qE -- "^$1 +$2( |,|\$)" "$work/out" || fail "expected $1 to be $2"
}

FiguresAreCountedInAnotherCheckout() {
    put_component
    put page/node-paint.cpp '#include "page/node.h"' '#include "controls/button.h"' \
        '// static_cast<int>(comments) do not count, nor do assert(literals):' \
        'char const* const text = "assert(true) {";' \
        'int five()' '{' '    assert(text);' '    static_assert(true);' '    return static_cast<int>(5);' '}' \
        'void assertNothing() {}'
    put tests/page/CMakeLists.txt \
        'tarn_test(one a_test.cpp LIBS tarn_component)' 'tarn_test(two b_test.cpp LIBS tarn)' \
        'tarn_test(three' '    c_test.cpp' '    LIBS tarn_foundation ENV A=tarn_component) # LIBS tarn_component'
    put tests/e2e/CMakeLists.txt 'function(e2e_test name)' '    set(layer tarn_page)' '    if(arg_INSIDE)' \
        '        set(layer tarn_script)' '    endif()' \
        '    tarn_test(e2e_${name} x.cpp LIBS host ${layer} ${arg_LIBS})' 'endfunction()' 'e2e_test(four INSIDE)' \
        'foreach(name five six)' '    e2e_test(${name} LIBS tarn_runtime)' 'endforeach()'
    run "$real/tarn" figures "$work/tree"
    expect_code 0
    expect_figure 'includes that point up' 1
    expect_figure 'units of the component' 6
    expect_figure 'units in the largest include cycle' 2
    expect_figure 'units in the largest within a folder' 0
    expect_figure 'cycles across folders' 1
    expect_figure 'casts' 1
    expect_figure 'assertions for 1,000 lines' '[0-9.]+ +2 in all'
    expect_figure 'lines of the longest function' '6 +five in page/node-paint.cpp'
    expect_figure 'test programs that link all layers' '2 of 5 .*1 tarn_script.*1 tarn_runtime'
}

FiguresOfNoComponentAreRefused() {
    run "$real/tarn" figures "$work"
    expect_code 2
    expect_err "figures: no component in $work"
    run "$real/tarn" figures "$work/none"
    expect_code 2
    expect_err "tarn: no such folder: $work/none"
}

check_rules() {
    cd "$work/tree" || exit
    run node "$real/scripts/lint/rules.js" "$@"
}

SourcesThatKeepTheRulesPass() {
    put page/node.h '// page/node.h: a node.' '#pragma once' '#include "page/tree.h"' \
        'char const* name(Node const& node);'
    put tests/page/node_test.cpp '// tests/page/node_test.cpp: nodes.' 'TEST(Node, HasAName)' '{' \
        '    EXPECT_TRUE(name != nullptr);' '    if (name && *name)' \
        '        note("a == nullptr && \t b"); // const char' '}'
    check_rules page/node.h tests/page/node_test.cpp
    expect_code 0
    expect_out '0 places in 2 files'
}

EachBrokenRuleIsNamed() {
    put page/node.h '// page/knot.h: a node.' '#include "tree.h"' 'const char* name();' 'int const* p = NULL; '
    put tests/page/node.cpp '// tests/page/node.cpp: nodes.' 'TEST(Node, Has_aName)' '{' '    if (name == nullptr)' \
        '        return;' '    bool const both = first != nullptr && second;' $'\treturn;' '}' ''
    put page/Upper.cpp '// page/Upper.cpp: a name.' "// $(printf 'x%.0s' {1..120})"
    check_rules page/node.h tests/page/node.cpp page/Upper.cpp
    expect_code 1
    expect_out "page/node.h:1: the first line says what the file is: // folder/file: ...
page/node.h:1: a header has #pragma once
page/node.h:3: const stands behind what it makes constant: char const*
page/node.h:2: an include names the folder: \"page/guihtml.h\"
page/node.h:4: nullptr, not NULL
page/node.h:4: blanks at the end of the line
tests/page/node.cpp:1: a file with tests is NAME_test.cpp
tests/page/node.cpp:1: the file ends with one line end
tests/page/node.cpp:4: a pointer in a condition stands bare: p, !p
tests/page/node.cpp:6: a pointer in a condition stands bare: p, !p
tests/page/node.cpp:2: the name of a test has no underscore
tests/page/node.cpp:7: a tab
page/Upper.cpp:1: a file is called class-part.cpp
page/Upper.cpp:2: longer than 120 characters
14 places in 3 files"
}

RulesWithoutFilesAreAFault() {
    mkdir -p "$work/tree"
    check_rules
    expect_code 1
}

SourcesAreFoundWithoutVersionControl() {
    load_scripts
    put page/node.cpp
    put page/node.h
    put build/dev/moc.cpp
    put host/node/node_modules/a/b.cpp
    put tarn
    run sources '*.cpp' tarn
    sort -o "$work/out" "$work/out"
    expect_out $'page/node.cpp\ntarn'
    run each_source false -- '*.none'
    expect_code 1
    expect_out 'no files: *.none'
}

# A history: uncommitted changes, new files, what is staged, and two commits, the newest first.
put_history() {
    mkdir -p "$root/.git"
    pretend git 'case "$*" in' \
        '*--is-shallow-repository) echo "${SHALLOW-false}" ;;' \
        '*--modified*) printf "page/new.cpp\nREADME.md\n" ;;' \
        '*--cached*) echo page/staged.cpp ;;' \
        '*log*-20*) printf "page/b.h\npage/a.cpp\n\npage/gone.cpp\npage/new.cpp\npage/only.h\n" ;;' \
        '*grep*page/only.h*) echo page/user.cpp ;;' \
        'esac'
    local name
    for name in new.cpp staged.cpp a.cpp b.h b.cpp only.h user.cpp; do put "page/$name"; done
    for name in new staged a b user; do printf '  "file": "%s"\n' "$root/page/$name.cpp"; done >"$work/commands"
    mkdir -p "$root/build/dev" && mv "$work/commands" "$root/build/dev/compile_commands.json"
    put README.md
}

ChangedSourcesAreTheNewestFirst() {
    load_scripts
    put_history
    run changed_sources
    expect_out $'page/new.cpp\npage/staged.cpp\npage/b.cpp\npage/a.cpp\npage/user.cpp'
}

# lint_changes with a clang-tidy that only says what it was given.
pretend_lint_changes() {
    begin_steps 1
    lint_cpp() { echo "$*" >"$work/asked"; }
    lint_changes >"$work/out" 2>"$work/err"
}

OnlyTheNewestChangesAreLookedAt() {
    load_scripts
    put_history
    most_changed_sources=2
    pretend_lint_changes
    [ "$(<"$work/asked")" = 'page/new.cpp page/staged.cpp' ] || fail "asked: $(<"$work/asked")"
    grep -q '^5 sources were changed; the newest 2 are looked at' "$work/err" || fail 'it is not said'
    [ "$passed $failed $skipped" = '1 0 0' ] || fail "counted: $passed $failed $skipped"
}

ACutOffHistoryIsSaid() {
    load_scripts
    put_history
    SHALLOW=true pretend_lint_changes
    grep -q '^the history is cut off' "$work/err" || fail 'it is not said'
    [ "$passed $failed $skipped" = '1 0 0' ] || fail "counted: $passed $failed $skipped"
}

WithoutHistoryTheChangesAreSkipped() {
    load_scripts
    put page/a.cpp
    pretend_lint_changes
    grep -q 'nothing is known to have changed' "$work/err" || fail 'it is not said'
    [ "$passed $failed $skipped" = '0 0 1' ] || fail "counted: $passed $failed $skipped"
}

# A tree of two sources, and a clang-tidy that finds a fault in a file that holds that word, and that can not compile
# one with the word "misfit" behind another.
put_tidy_tree() {
    pretend clang-tidy-14 'case "$*" in *--version* | *--dump-config*) exit ;; esac' \
        'for word; do' \
        '    case $word in --checks=-\**) trial=yes ;; --) break ;; esac' \
        '    source=$word' \
        'done' \
        'files=$(sed -n "s/^#include \"\(\/.*\)\"/\1/p" "$source")' \
        '[ -n "$trial" ] || echo "$source" $files | sed "s|[^ ]*/tree/||g; s|build/lint/groups/||" >>"$WORK/read"' \
        '[ -n "$files" ] || files=$source' \
        'first=yes' \
        'for name in $files $(sed -n "s|^#include \"\([^/].*\)\"|$PWD/\1|p" $files); do' \
        '    [ -n "$trial" ] || ! grep -q fault "$name" || { echo "$name:1:1: error: a fault [check]" && code=1; }' \
        '    [ -n "$first" ] || ! grep -q misfit "$name" ||' \
        '        { echo "$name:1:1: error: no [clang-diagnostic-error]" && code=1; }' \
        '    first=' \
        'done' \
        'exit ${code-0}'
    export WORK=$work
    put page/a.h
    put page/a.cpp '#include "page/a.h"'
    put page/b.cpp
    put build/dev/compile_commands.json "[$(for name in page/a.cpp page/b.cpp page/a.cpp build/dev/moc.cpp; do
        printf '{\n  "directory": "%s",\n  "command": "c++ -include x/cmake_pch.hxx -c %s",\n  "file": "%s"\n},\n' \
            "$work" "$name" "$work/tree/$name"
    done | sed '$s/,$//')]"
    cd "$work/tree" || exit
}

# tidy FILE...: what was read is in $work/read, one line for each run.
tidy() {
    : >"$work/read"
    run node "$real/scripts/lint/tidy.js" build/dev "$@"
}
expect_read() { [ "$(<"$work/read")" = "$1" ] || fail "read: $(<"$work/read")"; }

ASourceIsReadAgainOnlyWhenSomethingHasChanged() {
    put_tidy_tree
    tidy page/a.cpp page/b.cpp
    expect_code 0
    expect_read 'page/group1.cpp page/a.cpp page/b.cpp'
    tidy page/a.cpp page/b.cpp
    expect_code 0
    expect_read ''
    put page/a.h '// changed'
    tidy page/a.cpp page/b.cpp
    expect_read page/a.cpp
    put page/.clang-tidy 'Checks: other'
    tidy page/a.cpp page/b.cpp
    expect_read 'page/group1.cpp page/a.cpp page/b.cpp'
}

AFindingFailsUntilItIsMended() {
    put_tidy_tree
    put page/b.cpp '// fault'
    tidy page/a.cpp page/b.cpp
    expect_code 1
    grep -qx 'page/b.cpp:1:1: error: a fault \[check\]' "$work/out" || fail 'the finding is not shown'
    expect_read $'page/group1.cpp page/a.cpp page/b.cpp\npage/b.cpp'
    tidy page/a.cpp page/b.cpp
    expect_code 1
    expect_read page/b.cpp
    put page/b.cpp
    tidy page/a.cpp page/b.cpp
    expect_code 0
}

AFindingInAHeaderIsShownOnce() {
    put_tidy_tree
    put page/a.h '// fault'
    put page/b.cpp '#include "page/a.h"'
    tidy page/a.cpp page/b.cpp
    expect_code 1
    [ "$(grep -cx 'page/a.h:1:1: error: a fault \[check\]' "$work/out")" = 1 ] || fail 'the finding is not shown once'
    grep -qx '2 sources, 2 of them read now, 2 with findings' "$work/out" || fail 'both are not clean'
    put page/a.h
    tidy page/a.cpp page/b.cpp
    expect_code 0
}

SourcesThatDoNotFitTogetherAreReadApart() {
    put_tidy_tree
    put page/b.cpp '// misfit'
    tidy page/a.cpp page/b.cpp
    expect_code 0
    [ "$(sort "$work/read")" = $'page/a.cpp\npage/b.cpp' ] || fail "read: $(<"$work/read")"
}

ASourceThatNothingCompilesIsNamed() {
    load_scripts
    put_tidy_tree
    run only_compiled < <(printf '%s\n' page/a.cpp bench/other.cpp page/b.cpp)
    expect_out $'page/a.cpp\npage/b.cpp'
    expect_err 'not compiled here, so not looked at: bench/other.cpp'
    tidy bench/other.cpp
    expect_code 1
    expect_read ''
}

run_case "${1-}"
