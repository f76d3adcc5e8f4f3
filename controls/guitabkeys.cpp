// controls/guitabkeys.cpp: see guitabkeys.h.
#include "controls/guitabkeys.h"

#include "page/guihtml.h"

#include <QKeyEvent>

namespace {

/// 1 or -1, 0 for keys that turn nothing.
int stepOf(QKeyEvent const& event)
{
    Qt::KeyboardModifiers const modifiers = event.modifiers() & ~Qt::KeypadModifier;
    bool const hasShift = modifiers.testFlag(Qt::ShiftModifier);
    if ((modifiers & ~Qt::ShiftModifier) != Qt::ControlModifier)
        return 0;
    switch (event.key()) {
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return hasShift ? -1 : 1;
    case Qt::Key_PageDown:
        return hasShift ? 0 : 1;
    case Qt::Key_PageUp:
        return hasShift ? 0 : -1;
    default:
        return 0;
    }
}

bool turnAround(guiHtml* node, int step)
{
    while (node && !node->turnParts(step))
        node = node->getParent();
    return node != nullptr;
}

bool turnFirst(guiHtml* node, int step)
{
    if (node->turnParts(step))
        return true;
    for (guiHtml* child : guiNodesOf(node))
        if (child->m.visible && turnFirst(child, step))
            return true;
    return false;
}

} // namespace

bool guiTurnTabs(guiHtml* page, guiHtml* focused, QKeyEvent const& event)
{
    int const step = stepOf(event);
    return step != 0 && (turnAround(focused, step) || turnFirst(page, step));
}
