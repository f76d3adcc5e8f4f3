// script/guitaskbar.h: what a desktop's taskbar or dock shows on the entry of a program.
#pragma once

#include "foundation/vela-string.h"

struct guiTaskbarEntry
{
    sstring desktopFile;  ///< the name of the program's desktop file, by which the desktop knows it: "mail.desktop"
    double progress = -1; ///< 0 to 1; below 0: no bar
    int count = 0;        ///< the number on the entry; 0: none
    bool isUrgent = false;
};

/// Tells the desktop, by the signal Update of the launcher entries' interface, which several docks listen to. Nobody
/// answers, so true says only that there is a session bus that takes it. GUI thread.
bool guiTaskbar_show(guiTaskbarEntry const& entry);
