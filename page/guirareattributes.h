// page/guirareattributes.h: attributes that any element may have and very few have: what its context menu is, who hears
// of it, of the focus and of the Enter key, what the user may do with its text, the picture of a window, and what
// screen readers are told. All of a node's are kept in one of its strings.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;

/// The letter is how the string tells them apart.
enum class guiRareAttribute : char
{
    kContextMenu = 'm', ///< `contextmenu`: the name of the menu
    kContext = 'c',     ///< `oncontext` and the others: links
    kFocus = 'f',
    kBlur = 'b',
    kEnter = 'e',
    kIcon = 'i',     ///< `icon` of a body: the name of a file
    kNoSelect = 'n', ///< `noselect`: the user does not select what is in it
    kNoFind = 'd',   ///< `nofind` of a body: the window has no find bar
    kAlt = 'a',      ///< `alt` of a picture: what it shows, in words
    kRole = 'r',     ///< `role` of a custom element: what it is
    kLabel = 'l',    ///< `label`: what the element is called
    kValue = 'v',    ///< `value` of a custom element
    kHeading = 'h',  ///< of a run of text, from the parser: the level, "1" to "6"
    kJump = 'j',     ///< the bookmark in it to scroll to when it is laid out (guihtml-bookmark.cpp)
    kSource = 's',   ///< from the parser, for the inspector alone (guinodesource.h)
    kHeadRows = 't', ///< of a table, from the parser: how many of its first layers each sheet of paper repeats
};

/// The value of one, "" when the node has none.
sstring guiRareAttributeOf(guiHtml const* node, guiRareAttribute which);
/// Whether the node has it: alt="" says more than no `alt`.
bool guiHasRareAttribute(guiHtml const* node, guiRareAttribute which);
void guiSetRareAttribute(guiHtml* node, guiRareAttribute which, sstring const& value);
void guiDropRareAttribute(guiHtml* node, guiRareAttribute which);
