// controls/guipaperparts.cpp: see guipaperparts.h.
#include "controls/guipaperparts.h"

#include "controls/guihtmlcontrol.h"
#include "controls/guihtmlimage.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmltext.h"
#include "page/guilinkname.h"
#include "page/guirareattributes.h"
#include "page/guivisibletext.h"

#include <QPainterPath>
#include <algorithm>

namespace {

sstring targetOf(guiHtml* node, unsigned place)
{
    if (node->getType() == guiHtml::kTypeText)
        return static_cast<guiHtmlText*>(node)->getLinkTarget(place);
    if (node->getType() == guiHtml::kTypeImage)
        return static_cast<guiHtmlImage*>(node)->getLinkTarget(place);
    return {};
}

class collecting
{
public:
    void add(guiHtml* node, int x, int y)
    {
        if (!node->m.visible)
            return;
        int const left = x + node->m.rect.left;
        int const top = y + node->m.rect.top;
        QRect const place(left, top, node->m.rect.width, node->m.rect.height);
        if (node->hasString(kStringBookmark))
            m_parts.bookmarks.insert(foldedBookmark(node->getString(kStringBookmark)), top);
        if (node->getType() == guiHtml::kTypeControl && node->isInLine() && !place.isEmpty())
            m_parts.controls.push_back({node, {left, place.width(), top, place.height()}});
        addLinks(node, place.topLeft());
        addHeading(node, place);
        for (guiHtml* child : guiNodesOf(node))
            add(child, left, top);
    }

    guiPaperParts take()
    {
        std::stable_sort(
            m_parts.controls.begin(), m_parts.controls.end(),
            [](guiPaperParts::control const& a, guiPaperParts::control const& b) { return a.place.top < b.place.top; });
        return std::move(m_parts);
    }

private:
    static QString foldedBookmark(sstring const& name)
    {
        QString const text = sstoq(name).toCaseFolded();
        return text.startsWith(u'#') ? text : u'#' + text;
    }

    void addLinks(guiHtml* node, QPoint corner)
    {
        std::vector<unsigned> places;
        node->findLinks(places);
        for (unsigned const each : places) {
            guiPaperLink link;
            if (!readTarget(targetOf(node, each), link))
                continue;
            for (QPolygonF const& part : node->getLinkOutline(each).toSubpathPolygons()) {
                link.place = part.boundingRect().toAlignedRect().translated(corner);
                m_parts.links.push_back(link);
            }
        }
    }

    /// Whether the link leads to somewhere that a sheet of paper knows.
    static bool readTarget(sstring const& written, guiPaperLink& link)
    {
        sstring target;
        sstring rest;
        guiSplitTarget(written, target, rest);
        if (rest.getLength() > 1 && rest[0] == '#') {
            link.bookmark = foldedBookmark(rest);
            return true;
        }
        if (guiKindOfLink(rest) != guiLinkKind::kOutside)
            return false;
        link.uri = sstoq(rest).toUtf8();
        return true;
    }

    // A heading may be several runs, one behind the other, with pictures between them.
    void addHeading(guiHtml* node, QRect const& place)
    {
        int const level = sstoq(guiRareAttributeOf(node, guiRareAttribute::kHeading)).toInt();
        if (level < 1)
            return;
        QString const text = wordsOf(node);
        if (!text.isEmpty())
            m_parts.headings.push_back({level, text, place});
    }

    static QString wordsOf(guiHtml* node) { return guiVisibleText(sstoview(node->getRunText())).text().simplified(); }

    guiPaperParts m_parts;
};

} // namespace

guiPaperParts guiFindPaperParts(guiHtml* page)
{
    assertOnGuiThread();
    collecting found;
    found.add(page, 0, 0);
    return found.take();
}
