// controls/guititle.cpp: see guititle.h.
#include "controls/guititle.h"

#include "foundation/vela-qt.h"
#include "page/guichildspan.h"
#include "page/guihtml.h"
#include "page/guihtmltext.h"

QString guiTipOf(sstring const& text)
{
    return QStringLiteral("<qt>") + sstoq(text).toHtmlEscaped() + QStringLiteral("</qt>");
}

sstring guiTitleAt(guiHtml* node, QPoint at)
{
    guiRect const rect = node->m.rect;
    if (at.x() < rect.left || at.x() >= rect.right() || at.y() < rect.top || at.y() >= rect.bottom())
        return {};
    if (node->getType() == guiHtml::kTypeText)
        return static_cast<guiHtmlText*>(node)->getTitleAt(at.x() - rect.left, at.y() - rect.top);
    guiHtml::scroll_t const& scroll = node->getScroll();
    QPoint const inside(at.x() - rect.left + static_cast<int>(scroll.posX),
                        at.y() - rect.top + static_cast<int>(scroll.posY));
    guiChildSpan span(node, {inside.x(), 1, inside.y(), 1});
    while (guiHtml* child = span.next())
        if (sstring found = guiTitleAt(child, inside); found.getLength() != 0)
            return found;
    return node->getString(kStringTitle);
}
