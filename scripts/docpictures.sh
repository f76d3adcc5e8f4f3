#!/usr/bin/env bash
# docpictures.sh [--check | --to FOLDER] [NAME...]: takes the pictures of the documents and of examples/README.md, on the display it is
# given:
#
#     tests/e2e/with-display.sh scripts/docpictures.sh
#
# One for each page docs/pictures/NAME.html, beside it, and one for each program of examples/ that has one or has a test; where
# there is a picture.js, it opens the program with something in it to be seen. With --check nothing is written: the pages must look
# as they are pictured, but for a cursor that blinks. With --to only programs are pictured, into that folder.
set -u
root=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")/.." && pwd) || exit 1
. "$root/scripts/window.sh"
work=$(mktemp -d) || exit 1
trap 'rm -rf -- "$work"' EXIT

mapfile -t programs < <(cd -- "$root/examples" && printf '%s\n' */app.js | sed 's|/.*||')
most_pixels=40 # that may differ: a cursor is one pixel wide

# A folder whose files have the same names, sizes and days wherever the picture is taken.
make_files() {
    local name
    mkdir -p "$work/tmp" "$work/home/letters/2026" "$work/home/pictures" || return
    for name in guide.txt 'photo 2.png' 'photo 10.png' notes.txt; do
        head -c $((${#name} * 4321)) /dev/zero >"$work/home/$name"
    done
    find "$work/home" -exec touch -d '2026-03-15 12:00 UTC' {} +
}

# take_picture OUT APP.js [ARGUMENT...]: few colours, so that a picture takes little room.
take_picture() {
    local out=$1 window
    shift
    export TMPDIR=$work/tmp
    start_app "$@"
    window=$(wait_for_window) || exit
    wait_until_still "$window"
    save_picture "$window" "$work/whole.png"
    end_app
    convert "$work/whole.png" -strip -dither None -colors 200 "png8:$out"
}

# check_picture NAME: compares with the stored one.
check_picture() {
    local differing
    differing=$(compare -metric AE -fuzz 8% "$root/docs/pictures/$1.png" "$work/$1.png" null: 2>&1)
    case $differing in
        '' | *[!0-9]*) complain "$1: $differing" ;;
    esac
    [ "$differing" -le "$most_pixels" ] || complain "docs/pictures/$1.png differs in $differing pixels; scripts/docpictures.sh takes it anew"
}

picture_page() {
    local folder=$root/docs/pictures
    [ -z "$check" ] || folder=$work
    take_picture "$folder/$1.png" "$root/scripts/showpage.js" "$root/docs/pictures/$1.html"
    [ -z "$check" ] || check_picture "$1"
}

picture_program() {
    local folder=$root/examples/$1 app=app.js arguments=()
    [ ! -f "$folder/picture.js" ] || app=picture.js
    # A Node.js without SQLite shows the line that says so; that is not what is kept.
    if [ "$1" = sqlitebrowser ] && [ -z "$to" ] && ! node -e 'require("node:sqlite")' 2>/dev/null; then
        printf 'not pictured, since this Node.js has no SQLite: %s\n' "$1" >&2
        return
    fi
    [ "$1" != filemanager ] || arguments=("$work/home")
    [ "$1" != preferences ] || arguments=("$work/preferences.json")
    take_picture "${to:-$folder}/$1.png" "$folder/$app" "${arguments[@]}"
}

# The inspector beside a small window of which it describes a field.
picture_inspector() {
    local window inspector
    TARN_INSPECT=1 start_app "$root/examples/preferences/app.js" "$work/preferences.json"
    window=$(wait_for_window) || exit
    wait_until_still "$window"
    xdotool windowfocus --sync "$window" key ctrl+shift+i
    inspector=$(wait_for_title 'Inspector - Preferences') || complain 'the inspector does not open'
    xdotool windowsize --sync "$inspector" 700 480 windowmove --sync "$inspector" 560 60 windowmove --sync "$window" 6 30
    wait_until_still "$inspector"
    xdotool mousemove --window "$window" 240 84 mousemove_relative 2 2
    wait_until_still "$inspector"
    xdotool click 1
    wait_until_still "$inspector"
    save_picture "$window" "$work/left.png"
    save_picture "$inspector" "$work/right.png"
    end_app
    convert -background white "$work/left.png" \( "$work/right.png" -gravity west -splice 12x0 \) -gravity north +append \
        -strip -dither None -colors 200 "png8:$root/docs/inspector.png"
}

check=
to=
[ "${1-}" != --check ] || { check=yes && shift; }
[ "${1-}" != --to ] || { to=$2 && shift 2; }
make_files || exit
for page in "$root"/docs/pictures/*.html; do
    name=$(basename "$page" .html)
    [ -z "$to" ] || break
    [ $# -eq 0 ] || [[ " $* " == *" $name "* ]] || continue
    picture_page "$name"
done
[ -z "$check" ] || exit 0
for name in "${programs[@]}"; do
    [ -f "$root/examples/$name/$name.png" ] || [ -f "$root/examples/$name/app.test.js" ] || continue
    [ $# -eq 0 ] || [[ " $* " == *" $name "* ]] || continue
    picture_program "$name"
done
[ -n "$to" ] || { [ $# -gt 0 ] && [[ " $* " != *" inspector "* ]]; } || picture_inspector
