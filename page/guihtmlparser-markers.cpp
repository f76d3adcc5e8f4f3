// page/guihtmlparser-markers.cpp: appends nodes, breaks and alignments to a child list.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "page/guihtml.h"
#include "page/guihtmltext.h"
#include "page/guinumbers.h"

#include <cassert>

namespace {

guiHtml* lastEntry(guiHtml* parent)
{
    unsigned count = parent->getChildCount();
    return count ? parent->getChild(count - 1) : nullptr;
}

/// Whether a break may be appended: only after a node, never in a frameset, whose rows break by themselves.
bool takesBreak(guiHtml* parent)
{
    return guiChildList::isNode(lastEntry(parent)) && parent->getType() != guiHtml::kTypeFrameset;
}

/// Whether something stands in the line that the first `count` entries end with: more than a menu.
bool hasLine(guiHtml* parent, unsigned count)
{
    while (count-- > 0 && guiChildList::isNode(parent->getChild(count)))
        if (parent->getChild(count)->isInLine())
            return true;
    return false;
}

guiAlignment applyMarker(guiHtml* entry, guiAlignment alignment)
{
    if (guiChildList::isNode(entry))
        return alignment;
    switch (guiChildList::toMarker(entry)) {
    case kMarkerAlignLeft:
        return kAlignLeft;
    case kMarkerAlignCenter:
        return kAlignCenter;
    case kMarkerAlignRight:
        return kAlignRight;
    default:
        return alignment;
    }
}

} // namespace

void guiHtmlParser::appendGuiHtml(guiHtml* parent, guiHtml* child)
{
    assert(!child->getParent() || child->getParent() == parent);
    parent->onAppend(child);
    parent->append(child);
    child->m.useSystemFont = parent->m.useSystemFont;
    child->m.textColor = parent->m.textColor;
    child->m.linkColor = parent->m.linkColor;
    child->m.activeLinkColor = parent->m.activeLinkColor;
    child->m.givenColors = parent->m.givenColors;
    child->m.spacious = parent->m.spacious;
    child->m.direction = m_direction;
    if (m_direction == guiDirection::kRightToLeft && child->getType() == guiHtml::kTypePlain)
        child->m.alignX = kAlignRight;
    if (m_fontCode.getLength())
        child->setString(kStringFace, m_fontCode);
    else if (parent->hasString(kStringFace))
        child->setString(kStringFace, parent->getString(kStringFace));
}

// A line without content is no paragraph, below which there would be a gap.
void guiHtmlParser::appendParagraph(guiHtml* parent)
{
    unsigned count = parent->getChildCount();
    if (count && lastEntry(parent) == guiChildList::fromMarker(kMarkerLineBreak)) {
        if (hasLine(parent, count - 1))
            parent->m.children.set(count - 1, guiChildList::fromMarker(kMarkerParagraph));
    } else if (takesBreak(parent)) {
        parent->appendMarker(hasLine(parent, count) ? kMarkerParagraph : kMarkerLineBreak);
    }
}

void guiHtmlParser::appendLineBreak(guiHtml* parent)
{
    if (takesBreak(parent))
        parent->appendMarker(kMarkerLineBreak);
}

void guiHtmlParser::appendAlignment(guiHtml* parent, guiAlignment alignment)
{
    assert(alignment <= kAlignRight);
    parent->appendMarker(static_cast<guiMarker>(kMarkerAlignLeft + unsigned{alignment}));
}

// No marker is read twice: a page may have thousands of paragraphs in one node.
guiAlignment guiHtmlParser::getCurrentAlignment(guiHtml* parent)
{
    for (std::size_t i = m_scopes.size(); i-- > 0;) {
        scope& around = m_scopes[i];
        if (around.parent != parent)
            continue;
        assert(around.scanned <= parent->getChildCount());
        for (; around.scanned < parent->getChildCount(); ++around.scanned)
            around.last = applyMarker(parent->getChild(around.scanned), around.last);
        return around.last;
    }
    guiAlignment alignment = parent->m.alignX;
    for (guiHtml* entry : parent->m.children)
        alignment = applyMarker(entry, alignment);
    return alignment;
}

void guiHtmlParser::pullLeafAlignment(guiHtml* parent, guiHtml* child)
{
    child->m.alignX = getCurrentAlignment(parent);
}

void guiHtmlParser::pullDivider(guiHtml* parent, mlSection* section)
{
    guiAlignment outer = getCurrentAlignment(parent);
    guiAlignment own = alignmentOf(parent, section);
    bool const isByDirection = own != outer;
    if (hasAttr(section, "align"))
        readAlignment(pullAttr(section, "align"), &own);
    if (own != outer)
        appendAlignment(parent, own);
    pullContent(parent, section);
    if (own == outer)
        return;
    if (isByDirection) // behind the marker no break would be appended
        section->isNamed("p") ? appendParagraph(parent) : appendLineBreak(parent);
    appendAlignment(parent, outer);
}
