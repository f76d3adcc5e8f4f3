#!/usr/bin/env bash
# valgrind-test.sh COMMAND...: runs a program under valgrind's memory checker. Fails when it, or what it stands on, reads,
# writes or frees memory that is not its own, or when it does not end with 0. Needs a display (tests/e2e/with-display.sh).
#
# Two kinds of report are left out. Values that nobody has set: drivers of fonts and displays use many of them. Frees by
# another function than the one that belongs to the allocation: valgrind sees the component's own `new` and does not see
# that `delete` is its counterpart.
set -u

log=$(mktemp "${TMPDIR:-/tmp}/tarn-valgrind.XXXXXX") || exit 1
trap 'rm -f -- "$log"' EXIT

known=$(dirname -- "${BASH_SOURCE[0]}")/../support/valgrind.supp
valgrind --suppressions="$known" --show-mismatched-frees=no --undef-value-errors=no --num-callers=30 --log-file="$log" "$@"
code=$?
faults=$(sed -n 's/.*ERROR SUMMARY: \([0-9]*\) errors.*/\1/p' "$log" | tail -n 1)

printf 'exit code %s, %s faults\n' "$code" "${faults:-?}"
[ "$code" = 0 ] && [ "$faults" = 0 ] && exit
cat -- "$log"
exit 1
