// controls/guipagelistener.h: who hears of what happens to pages while somebody reads them with a screen reader. The
// objects that such a reader sees know of windows and controls (guipageaccess.h), and these only know of this.
#pragma once

#include "controls/guilinkplace.h"

/// GUI thread. Every call may come for pages that nobody reads.
class guiPageListener
{
public:
    virtual ~guiPageListener() = default;

    /// What is in the node, or below it, is new.
    virtual void onNewContent(guiHtml* node) = 0;
    /// A link has got the keyboard.
    virtual void onLinkFocus(guiLinkPlace const& link) = 0;
    /// A control is about to get the keyboard: now is the time to find out what it is called.
    virtual void onControlFocus(guiHtml* control) = 0;
    /// A control has got a widget, which stands for it from now on.
    virtual void onWidget(guiHtml* control) = 0;
    /// A page is in no window any more.
    virtual void onUnbound(guiHtml* page) = 0;
};

/// The one that hears of all pages; before there is one, one that does nothing.
guiPageListener& guiCurrentPageListener();
/// `listener` is not owned; null: nobody.
void guiSetPageListener(guiPageListener* listener);
