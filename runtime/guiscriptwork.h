// runtime/guiscriptwork.h: pieces of the component's own work that travel between the threads without anybody waiting
// for them. Those for the script thread go the way of a call of a script method, so that they keep their place among
// the handlers.
#pragma once

#include <functional>

class guiHtml;
class ScriptObject;

/// Runs `work` on the GUI thread soon. Any thread, while there is a component.
void guiScriptWork_postToGui(std::function<void()> work);

/// Runs `work` on the script thread soon, and then `done`, on any thread. When script is ending, or the node is in no
/// window with script, `done` alone. The window is kept until `done` has returned; the node is not. GUI thread.
void guiScriptWork_post(guiHtml* node, std::function<void()> work, std::function<void()> done);

/// Calls the method `name` of `object` with the session as its argument, and waits for it. Script thread.
void guiScriptWork_call(ScriptObject* object, char const* name);
