// controls/guipageaccess.h: what screen readers see of a page: a dialog with a document in it, and in that an object
// for each part of the page, in the order of reading. A run of text is a paragraph or a heading, with its links in it;
// a control that has a widget is that widget. Nothing of it is made until somebody asks, and an object goes with its
// node.
#pragma once

#include "controls/guilinkplace.h"

#include <QAccessible>
#include <functional>
#include <vector>

/// From now on the toolkit knows what screen readers see of pages, and they hear of what happens to them. GUI thread.
void guiOfferPageAccess();

/// The object of a node, made on the first call; of a control that has one, its widget's. Null for null. GUI thread.
QAccessibleInterface* guiAccessOf(guiHtml* node);
/// The object of a link in a node.
QAccessibleInterface* guiAccessOf(guiLinkPlace const& link);
/// The object around a node's: its parent's, or the window's; null outside a window.
QAccessibleInterface* guiAccessAround(guiHtml* node);
/// The nodes below a node that screen readers are shown, in the order of reading.
std::vector<guiHtml*> guiNodesToRead(guiHtml* node);
/// Whether the object is that of the node, without making any.
bool guiIsAccessOf(QAccessibleInterface const* object, guiHtml* node);

/// Takes what screen readers are told, also where there are none, as in tests; empty: they are told again. GUI thread.
void guiListenToPageAccess(std::function<void(QAccessibleEvent const& event)> heard);
