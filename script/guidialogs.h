// script/guidialogs.h: the desktop's own dialogs: messages, questions, files, folders and colours.
#pragma once

#include "foundation/vela-string.h"

#include <functional>
#include <vector>

/// What a dialog shows. Texts that a kind does not use are ignored.
struct guiDialogRequest
{
    sstring kind; ///< alert, confirm, prompt, openFile, openFiles, saveFile, openFolder or pickColor
    sstring title;
    sstring text;   ///< of alert, confirm and prompt; elsewhere the folder to begin in
    sstring value;  ///< what stands there at first: text, name of a file, colour
    sstring option; ///< alert: info, warning, error or question; prompt: "password" hides what is typed
    std::vector<sstring>
        names; ///< alert: the buttons, first the usual one; files: filters such as "Texts (*.txt *.md)"
};

/// What the user answered: the name of the button, the text, the paths, "#RRGGBB"; nothing at all when the dialog was
/// cancelled or closed. Called once, on the GUI thread, unless the application ends first.
using guiDialogAnswer = std::function<void(std::vector<sstring> const& answer)>;

/// Shows a dialog over the active window, which it blocks, and returns at once. Without a window it stands alone. Input
/// that was held back is let through, as for a modal window. False for an unknown kind. GUI thread.
bool guiDialog_show(guiDialogRequest const& request, guiDialogAnswer answer);
