// page/guirareattributes.h: attributes that any element may have and very few have: what its context menu is, who hears
// of it, of the focus and of the Enter key, and the picture of a window. All of a node's are kept in one of its
// strings.
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
    kIcon = 'i' ///< `icon` of a body: the name of a file
};

/// Reads those that the element has.
void guiPullRareAttributes(guiHtml* node, mlSection* section);
/// The value of one, "" when the node has none.
sstring guiRareAttributeOf(guiHtml const* node, guiRareAttribute which);
