// script/guinotice.h: a notification, which the desktop shows beside what the user is doing and takes away by itself.
#pragma once

#include "foundation/vela-string.h"

#include <functional>

struct guiNotice
{
    sstring title;
    sstring text;       ///< below the title, "" for nothing; shown as it is, whatever the service reads as markup
    sstring icon;       ///< the name of an icon of the desktop's theme, "" for none
    int durationMs = 0; ///< how long it is shown; 0: as long as the desktop thinks fit
};

/// Hears why the notification is not shown, "" when it is. Called once, on the GUI thread, unless the application ends
/// first.
using guiNoticeAnswer = std::function<void(sstring const& complaint)>;

/// Has the notification service of the session bus show it. Returns at once; a service that does not answer counts as
/// none after some seconds. GUI thread.
void guiNotice_show(guiNotice const& notice, guiNoticeAnswer const& answer);
