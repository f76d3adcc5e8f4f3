// page/guirareattributes.h: attributes that any element may have and very few have: what its context menu is, who hears
// of it, of the focus and of the Enter key, what the user may do with its text, and the picture of a window. All of a
// node's are kept in one of its strings.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;
class mlSection;

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
    kNoFind = 'd'    ///< `nofind` of a body: the window has no find bar
};

/// Reads those that the element has.
void guiPullRareAttributes(guiHtml* node, mlSection* section);
/// The value of one, "" when the node has none.
sstring guiRareAttributeOf(guiHtml const* node, guiRareAttribute which);
