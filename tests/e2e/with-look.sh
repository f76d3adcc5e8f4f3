#!/usr/bin/env bash
# with-look.sh light|dark SCALE COMMAND [ARGUMENT...]: runs a command as on a desktop of these colours, with that many
# screen pixels to each pixel of a page. For use under with-display.sh, whose settings are nobody's own.
set -u

look=$1
scale=$2
shift 2

# Plain settings of a desktop, as the toolkit reads them.
write_dark_colours() {
    cat >"$XDG_CONFIG_HOME/kdeglobals" <<'END'
[General]
ColorScheme=Dark
[Colors:Window]
BackgroundNormal=35,38,41
BackgroundAlternate=42,46,50
ForegroundNormal=239,240,241
[Colors:View]
BackgroundNormal=27,30,32
BackgroundAlternate=35,38,41
ForegroundNormal=239,240,241
ForegroundInactive=161,169,177
[Colors:Button]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
[Colors:Selection]
BackgroundNormal=61,174,233
ForegroundNormal=252,252,252
[Colors:Tooltip]
BackgroundNormal=49,54,59
ForegroundNormal=239,240,241
END
}

export QT_SCALE_FACTOR=$scale
if [ "$look" = dark ]; then
    write_dark_colours
    export QT_QPA_PLATFORMTHEME=kde KDE_SESSION_VERSION=5 QT_STYLE_OVERRIDE=fusion
fi
exec "$@"
