// script/guitray.h: the program's pictures in the desktop's tray, each with a tip and a menu.
#pragma once

#include "foundation/vela-string.h"

#include <functional>
#include <vector>

/// One line of a tray's menu.
struct guiTrayItem
{
    /// item, disabled, checked, unchecked or line; any other word is an item
    sstring kind;
    sstring text; ///< with its mnemonic, "&Quit"; nothing for a line
};

/// What stands in the tray.
struct guiTrayRequest
{
    sstring icon; ///< the full name of a picture's file
    sstring tip;
    std::vector<guiTrayItem> menu; ///< without items there is no menu
    /// Hears the place of the item that the user chose, from 0, or -1 for a click on the picture. GUI thread.
    std::function<void(int)> heard;
};

/// Whether the desktop has a tray now. GUI thread.
bool guiTray_isAvailable();

/// Shows the picture of that number, or changes it. They are all gone with the application. False when the file holds
/// no picture; what was shown before stays then. GUI thread.
bool guiTray_show(int number, guiTrayRequest const& request);

/// Takes the picture out of the tray; nothing for a number that is not shown. GUI thread.
void guiTray_remove(int number);
