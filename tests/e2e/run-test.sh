#!/usr/bin/env bash
# run-test.sh TEST [ARGUMENT...]: runs a test program on a display of its own; to list its tests it needs none.
for word; do
    [ "$word" != --gtest_list_tests ] || exec "$@"
done
exec "$(dirname -- "${BASH_SOURCE[0]}")/with-display.sh" "$@"
