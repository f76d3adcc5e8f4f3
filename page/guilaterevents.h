// page/guilaterevents.h: postpones the events that nodes fire while a page is being taken apart.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;

/// While one exists, the mouse events of nodes wait for the event loop and then go to the page, if it still lives: a
/// handler that ran now would find half a tree. GUI thread.
class guiLaterEvents
{
public:
    guiLaterEvents();
    ~guiLaterEvents();
    guiLaterEvents(guiLaterEvents const&) = delete;
    guiLaterEvents& operator=(guiLaterEvents const&) = delete;

    /// Takes the event over; false when nothing is postponed.
    static bool take(guiHtml* node, sstring const& link);
};
