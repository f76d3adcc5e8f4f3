// runtime/guilinkcall.h: the call of the handler behind a link or an event of a control, and what follows when the
// handler's promise settles.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;
class ScriptObject;

/// Calls the handler that `event` names on `target`, which has it, and waits until it returns. Gives the string that it
/// returned, "" for anything else. A promise is not waited for: a string with which it settles is followed then, with
/// the answer loaded into `frame`; and a field or list that would have called the handler meanwhile calls it once more,
/// if its value is another one. GUI thread. The node may be gone afterwards.
sstring guiLinkCall_run(guiHtml* node, ScriptObject* target, sstring const& event, sstring const& frame);
