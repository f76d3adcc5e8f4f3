// runtime/guipromises.h: the handlers that have returned a promise which has not settled. Nobody waits for them: input
// is free, and only the control that raised the call takes no second activation. They are forgotten with the page that
// called them, so that a promise that never settles holds nothing.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "script/hostinterface.h"

#include <functional>

class guiHtml;
class guiHtmlBase;

/// What a handler was called for.
struct guiPromiseUse
{
    guiHtml* node;           ///< what raised the call
    sstring event;           ///< together with the node: what is not called again meanwhile; "" when all is
    bool isOfWindow = false; ///< belongs to the window, whatever page it shows
    /// What is done when the promise has settled, while the page is still shown; may be empty. `wasRaised`: the call
    /// would have been made again meanwhile. GUI thread.
    std::function<void(ScriptValue const& value, bool wasRaised)> settled = {};
};

/// Notes a promise of a handler that was called for a page. GUI thread.
void guiPromises_add(unsigned promise, guiHtmlBase& root, guiPromiseUse use) TARN_ON(velaGuiRole);

/// Whether a handler that was called for this node and event has not settled yet, so that it is not called again now.
/// The promise's end is told of the attempt. GUI thread.
bool guiPromises_isBusy(guiHtml const* node, sstring const& event) TARN_ON(velaGuiRole);

/// Whether the window has such a promise with this event. GUI thread.
bool guiPromises_isPending(guiHtmlBase const& root, sstring const& event) TARN_ON(velaGuiRole);

/// The promise has settled. Runs script. GUI thread.
void guiPromises_settled(unsigned promise, ScriptValue const& value);

/// Forgets the promises of handlers that the page has called, because other content takes its place; with `withWindow`
/// those of its window too, because it closes. GUI thread.
void guiPromises_forget(guiHtmlBase const& root, bool withWindow) TARN_ON(velaGuiRole);

/// How many there are. GUI thread.
unsigned guiPromises_count() TARN_ON(velaGuiRole);
