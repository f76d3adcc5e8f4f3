// runtime/guifilter.h: what happens to a page's text before it is parsed. It passes through the filters that scripts
// have registered for pages of its name (guifilter.cpp), of which some replace messages (guifilter-messages.cpp); then
// its includes are expanded (guifilter-includes.cpp).
#pragma once

#include "foundation/vela-string.h"

class ScriptObject;
class ScriptValue;

/// Registers a filter that replaces messages, for pages whose name matches `pattern`, a pattern expression
/// (foundation/vela-regexp.h). A longer pattern that begins with an asterisk is read with a "." in front of it, so that
/// "*.htm" means all names with that ending. A page's name is that of its file, without folders; for a pattern with "/"
/// it is the whole path. Keeps the object. Script thread; also while pages are being filtered.
void guiFilter_add(sstring pattern, ScriptObject* messages);
/// The same for a filter that is a function of the text; copies the value.
void guiFilter_add(sstring pattern, ScriptValue* function);
/// Removes every filter with exactly this pattern; one that is running still runs to its end. The next filter that is
/// added takes the first free place. Script thread; also while pages are being filtered.
void guiFilter_remove(sstring pattern);
/// Removes all filters. Script thread, while no page is being filtered.
void guiFilter_destroyAll();
/// Number of filters registered. Any thread.
unsigned guiFilter_count();

/// The most bytes to which filters and includes may extend a page's text. What would make it longer is left out, with a
/// log line.
inline constexpr unsigned kFilteredBytes = 64u << 20;
/// The most includes that are expanded in one page; the rest stay as they are, with a log line.
inline constexpr unsigned kFilteredIncludes = 1000;

/// Runs the filters over `text`, in place, for the page called `name`, in the order of their places; then expands its
/// includes. Filters and includes call methods of `owner`; function filters get `window`; `form` (may be null) is shown
/// the text before and after each step. Runs script. GUI thread or script thread. Always 1.
int guiFilter_load(ScriptObject* owner, sstring& name, sstring& text, ScriptObject* window, ScriptObject* form);

/// `text` with its messages replaced: "@" and a number N by what the object's method "getString" returns for "AUTON". A
/// message that the object does not know, for which it returns null, stays. Runs script.
sstring guiFilter_applyMessages(sstring text, ScriptObject* messages);

/// Expands the first include in `text`, <!--#exec cgi="event://NAME"-->, into what the handler NAME of `owner` returns.
/// An include of another value becomes nothing. 1, or 0 when there is none left or it had no room. Runs script.
int guiFilter_ProcessSSI(ScriptObject* owner, ScriptObject* window, ScriptObject* form, sstring& text);
/// Whether there is such an include.
bool guiFilter_hasInclude(sstring const& text);

/// Hands the text of the page that is being filtered to the form (may be null).
void guiFilter_showText(ScriptObject* form, sstring const& text);
