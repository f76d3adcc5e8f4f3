// controls/guicurrentlink.cpp: see guicurrentlink.h.
#include "controls/guicurrentlink.h"

#include "controls/guipagelistener.h"
#include "page/guihtmlsheet.h"
#include "page/guiqrect.h"
#include "page/guisavedpainter.h"

#include <QPainter>
#include <QWidget>
#include <cmath>

namespace {

constexpr int kThickness = 2;
constexpr int kAway = 1; // pixels between the pieces and the middle of the line

/// What the panes around the node show of it, and a little more, so that the ring around a piece at its edge is whole.
QRect viewOf(guiHtml* node)
{
    constexpr int kRing = kAway + kThickness;
    guiHtml* const pane = node->getParent();
    guiRect clip;
    (pane ? pane : node)->getClipRect(&clip);
    return guiToQRect(clip).adjusted(-kRing, -kRing, kRing, kRing);
}

} // namespace

std::optional<guiLinkPlace> guiCurrentLink::get() const
{
    guiHtml* const node = m_node ? m_node->get() : nullptr;
    if (!node || !node->isEnabled() || guiIsPutAway(node))
        return std::nullopt;
    return guiLinkPlace{node, m_place};
}

void guiCurrentLink::take(guiLinkPlace const& link, Qt::FocusReason reason)
{
    repaint();
    m_node.emplace(link.node);
    m_place = link.place;
    m_hasRing = reason != Qt::MouseFocusReason;
    repaint();
    m_window.setFocus(reason);
    if (get() == link)
        guiCurrentPageListener().onLinkFocus(link);
}

void guiCurrentLink::drop()
{
    repaint();
    m_node.reset();
}

bool guiCurrentLink::follow()
{
    std::optional<guiLinkPlace> const link = get();
    if (link) {
        m_hasRing = true;
        repaint();
        link->node->followLinkAt(link->place);
    }
    return link.has_value();
}

// Pieces on neighbouring lines that stand over each other have one ring, others one each.
QPainterPath guiCurrentLink::ringOf(guiLinkPlace const& link)
{
    guiRect corner;
    link.node->getRectInWidget(&corner);
    QPainterPath const outline = link.node->getLinkOutline(link.place).translated(corner.left, corner.top);
    QPainterPath ring;
    for (QPolygonF const& part : outline.toSubpathPolygons()) {
        QRectF const box = part.boundingRect();
        bool const isBox = part.size() == 5 && QPolygonF(box) == part;
        QPainterPath piece;
        if (isBox)
            piece.addRect(box.adjusted(-kAway, -kAway, kAway, kAway));
        else
            piece.addPolygon(part);
        ring = ring.united(piece);
    }
    return ring.simplified();
}

void guiCurrentLink::repaint() const
{
    if (std::optional<guiLinkPlace> const link = get())
        m_window.update(
            ringOf(*link).boundingRect().toAlignedRect().adjusted(-kThickness, -kThickness, kThickness, kThickness));
}

void guiCurrentLink::paint(QPainter& painter) const
{
    std::optional<guiLinkPlace> const link = get();
    if (!link || !m_hasRing)
        return;
    guiSavedPainter const saved(painter);
    painter.setClipRect(viewOf(link->node), Qt::IntersectClip);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(
        QPen(m_window.palette().color(QPalette::Highlight), kThickness, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawPath(ringOf(*link));
}
