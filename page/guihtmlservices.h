// page/guihtmlservices.h: what the node tree asks of the runtime around it. Kept in one place, so that nodes can be
// made and tested without a component: then every service answers with its neutral result.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;
class guiHtmlBase;
class ScriptObject;

namespace guiServices {

/// Whether the window has a page object. `base` may be null.
bool hasPageObject(guiHtmlBase* base);
/// Has the script side build a node's custom object, which is entered in the component's map and kept by the node; null
/// when that failed. On the GUI thread events are handled meanwhile: the node may be gone afterwards.
ScriptObject* buildCustomObject(guiHtml* node);
/// The node with this custom object is going: takes it out of the component's map and lets go of it.
void unbindObject(ScriptObject* object, guiHtml* node);
/// The node is going, or its widgets are: the window forgets it as the hovered one.
void nodeLosesWidget(guiHtml* node);
/// The controls at and below the node are going, or are new: their values in the window's form object go, or become
/// the controls' first values.
void eraseFormValues(guiHtml* node);
void loadFormValues(guiHtml* node);
/// Runs triggerNow() of the node later, from the event loop, if it still lives then.
void postTrigger(guiHtml* node);
/// Names of the controls that Enter and Escape trigger in this window, "" without one. `base` may be null.
sstring enterControl(guiHtmlBase* base);
sstring escapeControl(guiHtmlBase* base);
/// Passes an Enter key on to the window root; not 0 when it was used up.
int enterOnRoot(guiHtmlBase* base);
/// Height in pixels of the window's menu bar, 0 without one. `base` may be null.
int menuHeight(guiHtmlBase* base);

} // namespace guiServices
