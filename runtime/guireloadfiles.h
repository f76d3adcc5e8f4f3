// runtime/guireloadfiles.h: which files the pages of each window name, for whoever watches them, and the texts of pages
// that have been read ahead of a reload.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"

#include <functional>
#include <optional>

class ScriptObject;

/// Hears, once for each window and file, that a page of the window names the file. `window`: the window's script
/// object; `stamp`: size, time of the last change in nanoseconds and number of the file before it is read, with blanks
/// between them, "" without a file. On the thread that asked for the file.
using guiFileListener = std::function<void(ScriptObject* window, sstring const& path, sstring const& stamp)>;

/// From now on `listener` hears of files, also of those that were named before. Any thread.
void guiReloadFiles_listen(guiFileListener listener);
/// The window's pages name this file, which need not exist. `window` may be null: no window. Full name. Any thread.
void guiReloadFiles_note(ScriptObject* window, sstring const& path);
/// The window goes: another one may get its address. Any thread.
void guiReloadFiles_forget(ScriptObject* window);

/// From now on the page in this file has this text, read and filtered already, until forgetTexts(). GUI thread.
void guiReloadFiles_keepText(sstring const& path, sstring const& text) TARN_ON(velaGuiRole);
std::optional<sstring> guiReloadFiles_textOf(sstring const& path) TARN_ON(velaGuiRole);
bool guiReloadFiles_hasText(sstring const& path) TARN_ON(velaGuiRole);
void guiReloadFiles_forgetTexts() TARN_ON(velaGuiRole);
