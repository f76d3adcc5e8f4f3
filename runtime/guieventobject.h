// runtime/guieventobject.h: the object in which script finds what the user has done: `session.event`.
#pragma once

#include <memory>

class guiHtml;
class ScriptObject;

/// An object for the handler that is called now, for a node of this page; null when it is not called because of the
/// user. It has the properties that make sense: `type`, `button`, `key`, `modifiers`, `x` and `y` in pixels from the
/// corner of the window, `row`, `column`. Any thread; on others than the GUI thread it is null.
std::shared_ptr<ScriptObject> guiEventObject_make(guiHtml* node);
