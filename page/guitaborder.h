// page/guitaborder.h: the controls of a page in the order of the Tab key.
#pragma once

#include <vector>

class QWidget;
class guiHtml;

struct guiTabStop
{
    guiHtml* node;
    QWidget* widget; ///< the node's, or the scroll bar of a pane; not owned. Null: the node awaits it.
    int tabIndex;
};

/// All nodes that have a widget or await one and are not put away, and panes that scroll and have nothing in them that
/// takes the keyboard, by tab index and else in document order. GUI thread.
std::vector<guiTabStop> guiTabStopsOf(guiHtml* page);
