#!/usr/bin/env bash
# dump-test.sh [--no-update] PROGRAM PAGE.html: has the program lay the page out in a window of 480 by 240 pixels and
# compares the dump of its tree with the .dump file beside it; a difference is printed as the rectangles that moved.
# With TARN_UPDATE_DUMPS set, the file is rewritten instead, to be read in review; not with --no-update.
set -u

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
update=${TARN_UPDATE_DUMPS-}
[ "$1" != --no-update ] || { update= && shift; }
stored=${2%.html}.dump
seen=$(mktemp) || exit 1
trap 'rm -f -- "$seen"' EXIT

export QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 FONTCONFIG_FILE=$here/../fonts/fonts.conf
"$1" "$2" 480 240 >"$seen" || exit 1
[ -s "$seen" ] || { echo 'the dump is empty' && exit 1; }

if [ -n "$update" ]; then
    cmp -s -- "$seen" "$stored" || { cp -- "$seen" "$stored" && chmod 644 -- "$stored" && echo "rewritten: $stored"; }
elif [ ! -f "$stored" ]; then
    echo "no such file: $stored; ./tarn test --update-dumps writes it" && exit 1
else
    diff -u --label stored --label seen -- "$stored" "$seen"
fi
