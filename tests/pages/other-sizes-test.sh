#!/usr/bin/env bash
# other-sizes-test.sh TARN_DUMP TARN_SECOND: the component and the second computation agree about every page in windows
# of other sizes than the stored one. Names each page and size they differ about, with the first lines that do.
set -u

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT
export QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 FONTCONFIG_FILE=$here/../fonts/fonts.conf
failed=0

# compute FILE PROGRAM PAGE SIZE
compute() {
    "$2" "$3" "${4%x*}" "${4#*x}" >"$work/$1" 2>"$work/err" && return
    echo "$3: no tree: $(<"$work/err")"
    failed=1
}

for size in 250x120 640x480; do
    for page in "$here"/*.html; do
        compute seen "$1" "$page" "$size"
        compute second "$2" "$page" "$size"
        cmp -s -- "$work/seen" "$work/second" && continue
        echo "$page at $size:"
        diff -u --label second --label seen -- "$work/second" "$work/seen" | head -n 20
        failed=1
    done
done
exit "$failed"
