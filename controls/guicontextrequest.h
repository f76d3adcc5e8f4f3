// controls/guicontextrequest.h: the right button and the menu key: who answers, by the attributes `oncontext` and
// `contextmenu` of any element.
#pragma once

#include "page/guiuserevent.h"

#include <QPoint>

class guiHtml;

/// The user asks for what can be done with this node, with the right button or the menu key, at a place of the screen
/// in pixels. The nearest node, from this one up, that has `oncontext` or `contextmenu` answers: its handler is called,
/// then its menu is shown. A list says in `detail` which row and column are meant. False: nobody has answered. Runs
/// script.
bool guiAnswerContext(guiHtml* node, QPoint place, guiEventDetail detail = {});
/// Whether the node itself would answer.
bool guiHasContext(guiHtml const* node);
/// Shows the menu of the node's own `contextmenu`, if it has one.
void guiShowContextMenu(guiHtml* node, QPoint place, guiEventDetail const& detail);
