// page/guilaterevents.h: postpones the events that nodes fire while a page is being destroyed.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;

/// While an object exists, the mouse events of nodes are queued in the event loop and later sent to the page, if it
/// still exists: a handler that ran at once would find an incomplete tree. GUI thread.
class guiLaterEvents
{
public:
    guiLaterEvents();
    ~guiLaterEvents();
    guiLaterEvents(guiLaterEvents const&) = delete;
    guiLaterEvents& operator=(guiLaterEvents const&) = delete;

    /// Queues the event; false, and nothing done, when no object exists.
    static bool take(guiHtml* node, sstring const& link);
    /// Whether an object exists: no handler may run now.
    static bool isActive();
};
