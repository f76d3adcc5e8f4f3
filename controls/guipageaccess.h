// controls/guipageaccess.h: what screen readers see of a page: a dialog with a document in it, and in that an object
// for each part of the page, in the order of reading. A run of text is a paragraph or a heading, with its links in it;
// a control that has a widget is that widget. Nothing of it is made until somebody asks, and an object goes with its
// node.
#pragma once

#include "controls/guicurrentlink.h"
#include "foundation/vela-threadrole.h"

#include <QAccessible>
#include <functional>
#include <vector>

class guiHtml;

/// From now on the toolkit knows what screen readers see of pages. GUI thread.
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

/// The node's own object goes, if there is one: its widget stands for it from now on.
void guiForgetAccess(guiHtml* node);
/// The objects of all nodes of a page go, which is in no window any more.
void guiForgetPageAccess(guiHtml* page);

/// Takes what screen readers are told, also where there are none, as in tests; empty: they are told again. GUI thread.
void guiListenToPageAccess(std::function<void(QAccessibleEvent const& event)> listener);

/// If there are readers, gives the widget of a control its name before they hear of it. Null is allowed.
void guiNameForReaders(guiHtml* control);
/// Tells screen readers, if there are any, that a node's content is new, and that a link has got the keyboard.
void guiTellNewContent(guiHtml* node);
void guiTellLinkFocus(guiLinkPlace const& link);
