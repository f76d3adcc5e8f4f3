// page/guitaborder.h: the controls of a page in the order of the Tab key.
#pragma once

#include "page/guihtml.h"

#include <vector>

class QWidget;

struct guiTabStop
{
    guiHtml* node = nullptr;
    QWidget* widget =
        nullptr; ///< the node's, or the scroll bar of a pane; not owned. Null: the node awaits it, or it is a link.
    int tabIndex = 0;
    unsigned link = guiHtml::kNoLink; ///< the place of a link in its node

    bool isLink() const { return link != guiHtml::kNoLink; }
};

/// All nodes that have a widget or await one and are not put away, and panes that scroll and have nothing in them that
/// takes the keyboard, by tab index and else in document order; `withLinks`: also the links that are not disabled. GUI
/// thread.
std::vector<guiTabStop> guiTabStopsOf(guiHtml* page, bool withLinks = false);
