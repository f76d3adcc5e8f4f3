// page/guihtmlsize-scroll.h: the scroll bars of a node whose content is larger than itself.
#pragma once

#include <QtGlobal>
#include <qnamespace.h>

#include <cstdint>

class guiHtml;
class QScrollBar;

/// A scroll bar of this name on the node's window, hidden, which scrolls the node; null while the page is in no window.
QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name);

/// What the node's vertical bar takes of its width and its horizontal one of its height, in pixels; 0 without one.
int guiBarWidth(guiHtml const* node);
int guiBarHeight(guiHtml const* node);

/// Forgets, in the first run of a layout, which bars the node had: a layout depends on the window's size only, not on
/// the sizes it had before.
void guiStartBars(guiHtml* node);
/// Gives the node a bar if its content needs more pixels than there is room for, and sets how far it can be scrolled.
void guiDecideBar(guiHtml* node, Qt::Orientation orientation, std::int64_t content, int room);
/// Destroys the bars that the layout found no use for.
void guiSettleBars(guiHtml* node);
