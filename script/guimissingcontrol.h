// script/guimissingcontrol.h: tells that script names a control which the window's page does not have.
#pragma once

#include "foundation/vela-string.h"

class guiHtmlBase;

/// Logs one line: "CALLER - control NAME not found in window", with the name that comes closest and the page's file, if
/// there is such a name. GUI thread.
void guiTellMissingControl(guiHtmlBase& root, sstring const& name, char const* caller);
/// The same for a name that a window is told before its page may be there: only when there is a page without it.
void guiCheckControl(guiHtmlBase& root, sstring const& name, char const* caller);
