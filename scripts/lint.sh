# shellcheck shell=bash disable=SC2154 # root, skipped and step_log are of the scripts that read this one
# ./tarn lint: what machines can say about the sources without running them. Each linter is a step that counts as one
# test.

# How far back ./tarn test looks for changed sources, and how many it gives to clang-tidy, which takes seconds for each.
changes_looked_at=20
most_changed_sources=40

# run_lint [--quick | FILE.cpp...]
run_lint() {
    local name files
    for name in "$@"; do
        [ "$name" = --quick ] && [ $# -eq 1 ] || [[ $name = *.cpp && -f $root/$name ]] ||
            die "no such source in the repository: $name" 2
    done
    if [ "${1-}" = --quick ]; then
        begin_steps 9
        prepare lint
        lint_quickly
    elif [ $# -gt 0 ]; then
        begin_steps 5
        prepare lint
        mapfile -t files < <(printf '%s\n' "$@" | only_compiled)
        count_step "clang-tidy on ${#files[@]} sources" lint_cpp "${files[@]}"
    else
        begin_steps 10
        prepare lint
        lint_quickly
        mapfile -t files < <(sources '*.cpp' | only_compiled)
        count_step 'clang-tidy' lint_cpp "${files[@]}"
    fi
    report
}

# What takes seconds for everything.
lint_quickly() {
    count_step 'format' lint_format
    count_step 'own rules' lint_rules
    count_step 'shellcheck' lint_shell
    count_step 'eslint' lint_javascript
    count_step 'types' lint_types
}

lint_format() {
    each_source in_parallel clang-format-14 --dry-run -Werror -- '*.cpp' '*.h'
}

lint_rules() {
    each_source node scripts/lint/rules.js -- '*'
}

lint_shell() {
    each_source in_parallel shellcheck --format=gcc -- '*.sh' tarn '*/run'
}

lint_javascript() {
    each_source scripts/lint/node_modules/.bin/eslint --config scripts/lint/eslint.config.js -- '*.js'
}

lint_types() {
    cd -- "$root" && host/node/node_modules/.bin/tsc -p scripts/lint/tsconfig.json
}

# lint_cpp FILE...
lint_cpp() {
    cd -- "$root" && node scripts/lint/tidy.js build/dev "$@"
}

# clang-tidy on what was changed lately, the newest first. Says what it has not seen; without history it is a skipped
# test.
lint_changes() {
    local changed
    mapfile -t changed < <(changed_sources | only_compiled)
    if [ "${#changed[@]}" -eq 0 ]; then
        step_ready 'clang-tidy: nothing is known to have changed; ./tarn lint looks at everything'
        skipped=$((skipped + 1))
        return
    fi
    ! is_shallow || note "the history is cut off: what was changed before is not looked at"
    [ "${#changed[@]}" -le "$most_changed_sources" ] ||
        note "${#changed[@]} sources were changed; the newest $most_changed_sources are looked at"
    count_step 'clang-tidy on what was changed lately' lint_cpp "${changed[@]:0:$most_changed_sources}"
}

# only_compiled: of the sources named on standard input those that this machine compiles. The others are named: they
# need libraries that are not here.
only_compiled() {
    awk -v root="$root/" '
        NR != FNR && $0 in compiled { print; next }
        NR != FNR { print "not compiled here, so not looked at: " $0 >"/dev/stderr"; next }
        sub(/^ *"file": *"/, "") && sub(/".*/, "") && index($0, root) == 1 { compiled[substr($0, length(root) + 1)] }
    ' "$root/build/dev/compile_commands.json" -
}

is_shallow() {
    [ "$(git -C "$root" rev-parse --is-shallow-repository 2>/dev/null)" = true ]
}

# changed_sources: the C++ sources that are changed and not committed, then those that the last commits changed. For a
# header it is the source of the same name, or one that includes it.
changed_sources() {
    local name
    changed_files | awk '/\.(cpp|h)$/ && !seen[$0]++' | while IFS= read -r name; do
        [ "${name%.h}" = "$name" ] || name=$(source_of_header "$name")
        [ ! -f "$root/$name" ] || printf '%s\n' "$name"
    done | awk '!seen[$0]++'
}

changed_files() {
    [ -e "$root/.git" ] || return
    git -C "$root" ls-files --modified --others --exclude-standard 2>/dev/null
    git -C "$root" diff --cached --name-only 2>/dev/null
    git -C "$root" log "-$changes_looked_at" --format= --name-only 2>/dev/null
}

source_of_header() {
    if [ -f "$root/${1%.h}.cpp" ]; then
        printf '%s\n' "${1%.h}.cpp"
    else
        git -C "$root" grep -lF -m 1 "#include \"$1\"" -- '*.cpp' | head -n 1
    fi
}

# each_source COMMAND... -- PATTERN...: one call of the command with all files that match, in the root of the
# repository. That there are none is a fault.
each_source() {
    local call=() files
    while [ "$1" != -- ]; do
        call+=("$1")
        shift
    done
    shift
    mapfile -t files < <(sources "$@")
    [ "${#files[@]}" -gt 0 ] || { printf 'no files: %s\n' "$*" && return 1; }
    cd -- "$root" && "${call[@]}" "${files[@]}"
}

# in_parallel PROGRAM [OPTION...] FILE...: some calls of the program, as many at a time as there are processors.
in_parallel() {
    local call=()
    while [ ! -f "$1" ]; do
        call+=("$1")
        shift
    done
    printf '%s\0' "$@" | xargs -0 -P "$(nproc)" -n "$(($# / 8 + 1))" "${call[@]}"
}

# sources PATTERN...: the files of the repository whose names match, relative to its root.
sources() {
    local name pattern
    all_files | while IFS= read -r name; do
        for pattern in "$@"; do
            # shellcheck disable=SC2254 # it is a pattern
            case $name in
                $pattern)
                    [ ! -f "$root/$name" ] || printf '%s\n' "$name"
                    break
                    ;;
            esac
        done
    done
}

# What is under version control or new; in an unpacked archive all but what was built or fetched.
all_files() {
    cd -- "$root" || return
    { [ -e .git ] && git ls-files --cached --others --exclude-standard 2>/dev/null; } ||
        find . \( -path ./build -o -name node_modules -o -path ./host/node/lib -o -path ./.git \) -prune -o \
            -type f -printf '%P\n'
}
