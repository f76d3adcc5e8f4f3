// runtime/guifilter.h: what a page's text passes through before it is parsed: the filters that scripts have registered
// for pages of its name (guifilter.cpp), of which some replace messages (guifilter-messages.cpp), and then its includes
// (guifilter-includes.cpp).
#pragma once

#include "foundation/vela-string.h"

class ScriptObject;
class ScriptValue;

/// Registers a filter that replaces messages, for pages whose name matches `pattern`, a pattern expression
/// (foundation/vela-regexp.h). A pattern that begins with an asterisk and goes on is read with a "." in front of it:
/// "*.htm" is meant for all names with that ending. A page's name is that of its file, without folders; for a pattern
/// with "/" it is the whole path. The object is kept. Script thread; also while pages are
/// being filtered.
void guiFilter_add(sstring pattern, ScriptObject* messages);
/// Registers a filter that is a function of the text. The function is copied.
void guiFilter_add(sstring pattern, ScriptValue* function);
/// Removes every filter with exactly this pattern; one that is running ends first. A later filter takes the first place
/// that is free. Script thread; also while pages are being filtered.
void guiFilter_remove(sstring pattern);
/// Removes all filters. No page is being filtered.
void guiFilter_destroyAll();
/// Number of filters registered.
unsigned guiFilter_count();

/// Bytes of a page's text that filters and includes may come to. What would make it longer is left out, with a log
/// line.
inline constexpr unsigned kFilteredBytes = 64u << 20;
/// Includes that are expanded in one page; the rest stay as they are, with a log line.
inline constexpr unsigned kFilteredIncludes = 1000;

/// Runs the filters over `text`, in place, for the page called `name`, in the order of their places; then expands its
/// includes. `owner`: the object whose methods filters and includes call; `window` is handed to function filters;
/// `form` (may be null) is shown the text before and after each step. Runs script. GUI thread or script thread.
/// Always 1.
int guiFilter_load(ScriptObject* owner, sstring& name, sstring& text, ScriptObject* window, ScriptObject* form);

/// `text` with its messages replaced: "@" and a number N by what the object's method "getString" returns for "AUTON". A
/// message that the object does not know, for which it returns null, stays. Runs script.
sstring guiFilter_applyMessages(sstring text, ScriptObject* messages);

/// Expands the first include in `text`, <!--#exec cgi="event://NAME"-->, into what the handler NAME of `owner` returns.
/// An include of another value becomes nothing. 1, or 0 when there is none left or it had no room. Runs script.
int guiFilter_ProcessSSI(ScriptObject* owner, ScriptObject* window, ScriptObject* form, sstring& text);
/// Whether there is one.
bool guiFilter_hasInclude(sstring const& text);

/// Hands the text of the page that is being filtered to the form (null: nobody).
void guiFilter_showText(ScriptObject* form, sstring const& text);
