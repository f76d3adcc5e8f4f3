#!/usr/bin/env bash
# demo.sh APP.js FOLDER: opens a program on the display it is given, clicks through the places listed in clicks.txt
# beside the program, saves a picture after each and prints its path.
#
# A line of clicks.txt is a name for the picture, where to click, in pixels from the top left corner of the newest
# window, and, if a click opens or closes a window, the title of the one that is to be seen then.
set -u
. "$(dirname -- "${BASH_SOURCE[0]}")/window.sh"

script=$1
folder=$2

take_picture() {
    wait_until_still "$window"
    save_picture "$window" "$folder/$1.png"
    printf '%s\n' "$folder/$1.png"
}

# click NAME X Y [TITLE]
click() {
    xdotool mousemove --window "$window" "$2" "$3" click 1
    if [ -n "$4" ]; then
        window=$(wait_for_title "$4") || complain "the click on $1 at $2,$3 did not lead to a window \"$4\""
    else
        wait_for_change "$window" || complain "the click on $1 at $2,$3 changed nothing"
    fi
    # The pointer leaves, so that no picture shows a link lit up.
    xdotool mousemove 0 0
}

mkdir -p -- "$folder" && rm -f -- "$folder"/*.png || complain "can not write to $folder"
start_app "$script"
window=$(wait_for_window) || exit
take_picture 1-start
number=1
while read -r name x y title <&3; do
    [ -n "$name" ] || continue
    number=$((number + 1))
    click "$name" "$x" "$y" "$title"
    take_picture "$number-$name"
done 3<"$(dirname -- "$script")/clicks.txt"
