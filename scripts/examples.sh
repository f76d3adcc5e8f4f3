# shellcheck shell=bash disable=SC2154 # root, log_folder and the steps are of the script that reads this one
# ./tarn examples: the programs of examples/ that have a test, each with its picture and the sum of what ran.

# run_examples [NAME...]: all, or the named ones. Fails when a test or a picture does.
run_examples() {
    local names=() name failed=0 sums=(0 0 0) start=$SECONDS
    mapfile -t names < <(example_names "$@")
    [ "${#names[@]}" -gt 0 ] || die 'no example has a test'
    mkdir -p -- "$root/build/examples" || return
    printf '%-16s %6s %7s %7s %8s  %s\n' example lines passed failed time picture
    for name in "${names[@]}"; do
        run_example "$name" || failed=$((failed + 1))
    done
    printf '%-16s %6d %7d %7d %6d s  %s\n' "${#names[@]} examples" "${sums[@]}" $((SECONDS - start)) \
        'pictures are in build/examples'
    [ "$failed" -eq 0 ]
}

# example_names [NAME...]: those that have a test; a name that has none is an error.
example_names() {
    local file name
    for name in "$@"; do
        [ -f "$root/examples/$name/app.test.js" ] || die "examples/$name has no app.test.js" 2
        printf '%s\n' "$name"
    done
    [ $# -eq 0 ] || return
    for file in "$root"/examples/*/app.test.js; do
        [ ! -f "$file" ] || basename "$(dirname -- "$file")"
    done
}

# run_example NAME: one line of the table; adds to the caller's sums.
run_example() {
    local log=$log_folder/$1.log lines passed failed from to picture=
    lines=$(cat -- "$root/examples/$1"/*.{js,mjs,ts,html} 2>/dev/null | wc -l)
    lines=$((lines - $(cat -- "$root/examples/$1"/*.test.js "$root/examples/$1/picture.js" 2>/dev/null | wc -l)))
    from=$(date +%s%N)
    "$root/tests/examples/sandboxed.sh" node --test "$root/examples/$1/app.test.js" >"$log" 2>&1
    failed=$?
    to=$(date +%s%N)
    passed=$(count_of pass "$log")
    [ "$failed" -eq 0 ] || failed=$(count_of fail "$log")
    on_virtual_display "$root/scripts/docpictures.sh" --to "$root/build/examples" "$1" >>"$log" 2>&1 &&
        picture="$(stat -c %s -- "$root/build/examples/$1.png") bytes"
    sums=($((sums[0] + lines)) $((sums[1] + passed)) $((sums[2] + failed)))
    printf '%-16s %6d %7d %7d %6d ms  %s\n' "$1" "$lines" "$passed" "$failed" $(((to - from) / 1000000)) "${picture:-none}"
    [ "$failed" -eq 0 ] && [ -n "$picture" ] && return
    tail -n 20 -- "$log" | indent >&2
    return 1
}

# count_of WORD LOG: what the summary of node --test says, in the form of older and of newer versions; at least one
# failure of a test that has no summary.
count_of() {
    local count
    count=$(awk -v word="$1" '/^(#|ℹ) / && $2 == word { print $3 }' "$2" | tail -n 1)
    printf '%s\n' "${count:-$([ "$1" = pass ] && echo 0 || echo 1)}"
}
