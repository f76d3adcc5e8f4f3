// script/guiwindowcontrols.h: the control objects that windows keep for their pages' elements, so that script gets the
// same object for the same element each time it asks.
#pragma once

#include "foundation/vela-string.h"
#include "script/hostinterface.h"

class guiHtml;

struct guiWindowData;

/// The control object for an element that has no object of its own; made at the first call, under the name that script
/// wrote, whose letters may be of another case. Not kept for the caller. Null, after a log line of the host, when it
/// cannot be made. The window keeps it until it ends, or until many have been made and the page has no such element any
/// more. GUI thread.
ScriptObject* guiWindowControls_get(guiWindowData& window, guiHtml& element, sstring const& name);

/// The window is ending: gives up what it keeps. Script thread.
void guiWindowControls_release(ScriptObject* window);
