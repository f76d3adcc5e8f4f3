// page/guimissinghandler.h: tells that a page calls a handler which nobody has.
#pragma once

#include "foundation/vela-string.h"

class guiHandlerPlaces;
class ScriptObject;

/// Logs one line with the place in the page and the methods whose names come close. Once for each handler until the
/// page is read again; not for what the component calls by itself, and not for a page without script, whose `page` is
/// null. `event`: what stands behind "event://". `object` may be null: the script object that was asked before the
/// page's. GUI thread.
void guiTellMissingHandler(guiHandlerPlaces& places, ScriptObject* page, ScriptObject* object, sstring const& event);
