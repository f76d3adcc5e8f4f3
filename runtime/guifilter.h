// runtime/guifilter.h: the content filters that scripts register: what a page's text passes through before it is
// parsed.
#pragma once

#include "foundation/vela-string.h"

class ScriptObject;
class ScriptValue;

/// Registers a message filter for pages whose name matches `pattern`. The object is kept. Script thread.
void guiFilter_add(sstring pattern, ScriptObject* messages);
/// Registers a function filter. The function is copied. Script thread.
void guiFilter_add(sstring pattern, ScriptValue* function);
/// Removes every filter with exactly this pattern. A later filter takes the first free place. Script thread.
void guiFilter_remove(sstring pattern);
/// Removes all filters.
void guiFilter_destroyAll();

/// Number of filters registered.
unsigned guiFilter_count();

/// Runs the filters over `text`, in place, for the page called `name`. Always 1.
int guiFilter_load(ScriptObject* owner, sstring& name, sstring& text, ScriptObject* window, ScriptObject* form);
