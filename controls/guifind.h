// controls/guifind.h: goes through the places of a page where a text was found, for the find bar and for script.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guitextspot.h"

#include <QString>

#include <cstddef>

class guiPageRoot;
class QWidget;

/// Which of the places is to become the current one.
enum class guiFindStep
{
    kFirst,
    kNext,
    kPrevious,
    kFromHere, ///< the first one at or behind the selection, or what is seen of the page
};

/// Looks for a text, marks all places, selects one and scrolls to it; how many there are. A part of the page that is
/// put away is shown when something in it is to be selected. The page may be gone afterwards, since that may run
/// script. GUI thread.
std::size_t guiFind(guiPageRoot& page, QString const& text, bool matchCase, guiFindStep step) TARN_ON(velaGuiRole);

/// Whether Ctrl+F finds something: the page does not forbid it, and nothing in the window has these keys.
bool guiMayFind(guiPageRoot& page, QWidget const& window);
