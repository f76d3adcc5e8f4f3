#!/usr/bin/env bash
# coverage-test.sh: every tag, attribute and keyword of the page language is on one of the dump pages. Prints what is
# missing.
set -u

here=$(cd -- "$(dirname -- "${BASH_SOURCE[0]}")" && pwd)
pages=$(cat -- "$here"/*.html | tr '\n' ' ')
missing=0

# expect WHAT PATTERN: the extended regular expression, in any case, is somewhere on the pages.
expect() {
    grep -qiE -- "$2" <<<"$pages" && return
    echo "no page has $1"
    missing=1
}

tag() {
    local name
    for name in "$@"; do expect "<$name>" "<${name}[ />]"; done
}

# attributes TAG NAME...: each with a value or without one.
attributes() {
    local tag=$1 name
    for name in "${@:2}"; do expect "<$tag $name>" "<$tag [^>]*\b$name\b"; done
}

# values TAG ATTRIBUTE VALUE...
values() {
    local value
    for value in "${@:3}"; do expect "<$1 $2=$value>" "<$1 [^>]*\b$2=\"?$value\b"; done
}

tag html head title body messages noframe h1 h2 h3 p div br hr center b strong i em cite var u sup font a \
    dl dt dd ol ul li menu table tbody tr td form input textarea select option object param img map area frameset frame tabs tab splitter pane details summary
expect 'a declaration' '<!doctype'
expect 'a comment' '<!--'
expect 'a tag that the language does not have' '<blink>'

looks=(border bordercolor cellspacing framespacing cellpadding scrolling usesystemfont bgcolor background)
mouse=(onmouseover onmouseout onmousedown onmouseup)
attributes body text link alink bgcolor align valign width height minwidth minheight maxwidth maxheight noresize \
    border scrolling
attributes table name src caption width height minwidth minheight frameborder bordercolorlight bordercolordark \
    "${looks[@]}" "${mouse[@]}"
attributes td name src width height minwidth minheight align valign border frameborder scrolling bgcolor cellpadding \
    "${mouse[@]}"
attributes form name src action width height border align valign cellpadding
attributes frameset cols rows noresize name width height border framespacing bgcolor onmouseover
attributes frame name src width height frameborder border scrolling bgcolor background onmousedown
attributes tabs name value height
attributes tab title name valign cellpadding
attributes splitter name vertical
attributes pane name width height minwidth scrolling valign cellpadding
attributes details name open
attributes hr size width align color noshade name
attributes p align
attributes div align
attributes font size face color
attributes a href target name
attributes input name type value onclick onchange checked size maxlength tabindex disabled width height src
attributes textarea name cols rows maxlength type onchange width height
attributes select name size multiple edit onchange tabindex disabled width height
attributes option value selected type text parent checked disabled collapsed text1 text2 text3
attributes object classid name size multiple onselect onchange width height align valign border bgcolor
attributes param name value selected checked unchecked disabled
attributes img src name onclick usemap width height align valign bgcolor pause paused loop looped
attributes map name
attributes area shape coords href

values input type button submit reset checkbox radio text password file hidden image
values object classid flexlist checklist listview treeview menu Gauge
values option type checkbox normal radiobutton
values area shape rect circle poly
values td scrolling no off false 0 yes on true 1 fixed
values td align left center middle right
values td valign top middle bottom
values p align left center middle right
values div align left center right
values font size 1 2 3 4 5 6 7
values font color aqua black blue fuchsia gray green lime maroon navy olive purple red silver teal white yellow

exit "$missing"
