// controls/guipopup.h: what a page can show at the pointer.
#pragma once

#include "page/guiuserevent.h"

#include <QPoint>

/// GUI thread.
class guiPopup
{
public:
    /// Shows it at a place of the screen, in pixels. Handlers are told that place, and the row and column of `detail`.
    /// False when the page is in no window.
    virtual bool popup(QPoint place, guiEventDetail const& detail) = 0;

protected:
    guiPopup() = default;
    guiPopup(guiPopup const&) = default;
    guiPopup& operator=(guiPopup const&) = default;
    ~guiPopup() = default;
};
