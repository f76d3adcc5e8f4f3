// controls/guitabkeys.cpp: see guitabkeys.h.
#include "controls/guitabkeys.h"

#include "controls/guihtmltabbar.h"
#include "controls/guihtmltabs.h"

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

guiHtmlTabs* tabsAround(guiHtml* node)
{
    for (; node; node = node->getParent())
        if (auto* tabs = dynamic_cast<guiHtmlTabs*>(node))
            return tabs;
    return nullptr;
}

guiHtmlTabs* firstTabs(guiHtml* node)
{
    if (auto* tabs = dynamic_cast<guiHtmlTabs*>(node))
        return tabs;
    for (guiHtml* child : guiNodesOf(node))
        if (guiHtmlTabs* found = child->m.visible ? firstTabs(child) : nullptr)
            return found;
    return nullptr;
}

} // namespace

bool guiTurnTabs(guiHtml* page, guiHtml* focused, QKeyEvent const& event)
{
    int const step = stepOf(event);
    guiHtmlTabs* tabs = step != 0 ? tabsAround(focused) : nullptr;
    if (step != 0 && !tabs)
        tabs = firstTabs(page);
    if (!tabs || !tabs->bar())
        return false;
    tabs->bar()->step(step);
    return true;
}
