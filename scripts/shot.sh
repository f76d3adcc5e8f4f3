#!/usr/bin/env bash
# shot.sh APP.js OUT.png: a picture of the first window that a program opens on the display it is given.
set -u
. "$(dirname -- "${BASH_SOURCE[0]}")/window.sh"

start_app "$1"
window=$(wait_for_window) || exit
wait_until_still "$window"
save_picture "$window" "$2"
