#!/usr/bin/env bash
# sandboxed.sh COMMAND [ARGUMENT...]: runs a command off the screen with the fonts of the tests and folders of its own for
# everything that a program may write without being told where. They are gone afterwards.
set -u
here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
work=$(mktemp -d "${TMPDIR:-/tmp}/tarn-sandbox.XXXXXX") || exit 125
trap 'rm -rf -- "$work"' EXIT
mkdir -m 700 -- "$work/home" "$work/runtime" "$work/tmp" || exit 125

unset DISPLAY WAYLAND_DISPLAY XAUTHORITY SESSION_MANAGER XDG_CURRENT_DESKTOP QT_QPA_PLATFORMTHEME QT_STYLE_OVERRIDE
unset QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_AUTO_SCREEN_SCALE_FACTOR TARN_SLOW
export HOME=$work/home TMPDIR=$work/tmp XDG_RUNTIME_DIR=$work/runtime
export XDG_CONFIG_HOME=$HOME/.config XDG_CACHE_HOME=$HOME/.cache XDG_DATA_HOME=$HOME/.local/share
export QT_QPA_PLATFORM=offscreen QT_FONT_DPI=96 LC_ALL=C.UTF-8 FONTCONFIG_FILE=$here/../fonts/fonts.conf
export DBUS_SESSION_BUS_ADDRESS=disabled: NO_AT_BRIDGE=1
"$@"
