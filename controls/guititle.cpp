// controls/guititle.cpp: see guititle.h.
#include "controls/guititle.h"

#include "foundation/vela-qt.h"
#include "page/guifindat.h"
#include "page/guihtmltext.h"

#include <optional>

QString guiTipOf(sstring const& text)
{
    return QStringLiteral("<qt>") + sstoq(text).toHtmlEscaped() + QStringLiteral("</qt>");
}

sstring guiTitleAt(guiHtml* page, QPoint at)
{
    auto titleOf = [](guiHtml* node, QPoint inside) -> std::optional<sstring> {
        sstring title = node->getType() == guiHtml::kTypeText
                            ? static_cast<guiHtmlText*>(node)->getTitleAt(inside.x(), inside.y())
                            : node->getString(kStringTitle);
        return title.getLength() != 0 ? std::optional(title) : std::nullopt;
    };
    return guiFindAt(page, at, titleOf).value_or(sstring());
}
