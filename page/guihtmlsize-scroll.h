// page/guihtmlsize-scroll.h: the scroll bars of a node with content larger than itself.
#pragma once

#include "foundation/vela-threadrole.h"

#include <QtGlobal>
#include <qnamespace.h>

#include <cstdint>

class guiHtml;
class QScrollBar;

/// A new hidden scroll bar of this name, which the node's window owns; null while the page is in no window.
QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name) TARN_ON(velaGuiRole);

/// The width of the node's vertical bar and the height of its horizontal one, in pixels; 0 without one.
int guiBarWidth(guiHtml const* node);
int guiBarHeight(guiHtml const* node);

/// The first run of a layout starts without bars: the result must depend only on the window's size, not on the sizes
/// that it had before. Called before the widths are computed.
void guiStartBars(guiHtml* node) TARN_ON(velaGuiRole);
/// Gives the node a bar if its content needs more pixels than there is room for, and sets the bar's range.
void guiDecideBar(guiHtml* node, Qt::Orientation orientation, std::int64_t content, int room) TARN_ON(velaGuiRole);
/// Destroys the bars that the layout does not need. Called after the last run.
void guiSettleBars(guiHtml* node) TARN_ON(velaGuiRole);
