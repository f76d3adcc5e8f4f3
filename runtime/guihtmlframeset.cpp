// runtime/guihtmlframeset.cpp: see guihtmlframeset.h.
#include "runtime/guihtmlframeset.h"

#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize-layers.h"

#include <QWidget>
#include <algorithm>
#include <cassert>

namespace {

bool sharesHeight(guiHtml const* frame) { return frame->m.dynamic.unitY == kUnitUnbound; }

bool sharesHeight(guiLayerNodes const& row)
{
    return std::any_of(row.begin(), row.end(), [](guiHtml* frame) { return sharesHeight(frame); });
}

} // namespace

guiHtml& guiHtmlFrameset::operator=(guiHtml& other)
{
    if (other.getType() == kTypeFrameset && &other != this) {
        auto& frameset = static_cast<guiHtmlFrameset&>(other);
        m_columns = frameset.m_columns;
        m_rows = frameset.m_rows;
        m_isResizable = frameset.m_isResizable;
        m_frames = frameset.m_frames;
        m_columnTracks = frameset.m_columnTracks;
        m_rowTracks = frameset.m_rowTracks;
    }
    guiHtml::operator=(other);
    return *this;
}

guiHtml* guiHtmlFrameset::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlFrameset::setTracks(std::vector<track> columns, std::vector<track> rows)
{
    m_columnTracks = std::move(columns);
    m_rowTracks = std::move(rows);
    m_columns = std::max<int>(1, static_cast<int>(m_columnTracks.size()));
    m_rows = std::max<int>(1, static_cast<int>(m_rowTracks.size()));
}

void guiHtmlFrameset::onAppend(guiHtml* child)
{
    assert(child && child != this);
    if (child->getType() == kTypeText)
        return;
    unsigned const count = getChildCount();
    if (nextStartsRow() && count && guiChildList::isNode(getChild(count - 1)))
        appendMarker(kMarkerLineBreak);
    placeNext(child);
}

void guiHtmlFrameset::placeNext(guiHtml* frame)
{
    assert(m_columns >= 1 && m_rows >= 1);
    unsigned column = m_frames % static_cast<unsigned>(m_columns);
    unsigned row = m_frames / static_cast<unsigned>(m_columns);
    ++m_frames;
    track width = column < m_columnTracks.size() ? m_columnTracks[column] : track();
    track height = row < m_rowTracks.size() ? m_rowTracks[row] : track();
    frame->m.fixed.unitX = width.unit;
    frame->m.fixed.x = width.size;
    frame->m.fixed.unitY = height.unit;
    frame->m.fixed.y = height.size;
}

int guiHtmlFrameset::getChildHeight(unsigned index, unsigned long width, unsigned long available)
{
    assertOnGuiThread();
    assert(index < getChildCount());
    if (!guiChildList::isNode(getChild(index)) || !sharesHeight(getChild(index)))
        return guiHtml::getChildHeight(index, width, available);
    rowShares const& shares = shareHeight(available);
    return index < shares.lastRow ? shares.each : shares.last;
}

int guiHtmlFrameset::fixedRowHeight(unsigned first, unsigned count, unsigned long available)
{
    int height = 0;
    for (unsigned i = first; i < first + count; ++i)
        height = std::max({height, guiHtml::getChildHeight(i, 0, available), getChild(i)->m.dynamic.cyMin});
    return height;
}

/// Asked for every frame, worked out once in a run of the layout.
guiHtmlFrameset::rowShares const& guiHtmlFrameset::shareHeight(unsigned long available)
{
    if (m_shares.run == guiLayoutRun::number() && m_shares.available == available)
        return m_shares;
    m_shares = {guiLayoutRun::number(), available};
    std::int64_t left = static_cast<std::int64_t>(available) + m.divide;
    std::int64_t sharing = 0;
    guiLayerWalk rows(this);
    while (rows.next()) {
        guiLayer const& row = rows.layer();
        left -= m.divide;
        if (!sharesHeight(guiLayerNodes(this, row))) {
            left -= fixedRowHeight(row.first, row.count, available);
            continue;
        }
        ++sharing;
        m_shares.lastRow = row.first;
    }
    left = std::max<std::int64_t>(left, 0);
    std::int64_t const each = sharing ? left / sharing : 0;
    m_shares.each = guiClampPixels(each);
    m_shares.last = guiClampPixels(left - std::max<std::int64_t>(sharing - 1, 0) * each);
    return m_shares;
}

// ---- The dividers under the pointer ----

bool guiHtmlFrameset::isOnDivider(int x, int y)
{
    bool isInside = x >= 0 && y >= 0 && x < m.rect.width && y < m.rect.height;
    return m_isResizable && isInside && guiFrameDivider::find(this, x, y).has_value();
}

guiHtml* guiHtmlFrameset::hitTest(int* x, int* y)
{
    assertOnGuiThread();
    int ownX = *x - m.rect.left;
    int ownY = *y - m.rect.top;
    if (!m_dragged && !isOnDivider(ownX, ownY))
        return guiHtml::hitTest(x, y);
    *x = ownX;
    *y = ownY;
    return this;
}

// Script hears of the pointer on the dividers only if the page asks for mouse events of the frameset.

void guiHtmlFrameset::onMouseOn()
{
    assertOnGuiThread();
    if (canHitTest())
        guiHtml::onMouseOn();
}

void guiHtmlFrameset::onMouseOff()
{
    assertOnGuiThread();
    m_dragged.reset();
    if (canHitTest())
        guiHtml::onMouseOff();
}

void guiHtmlFrameset::onMouseMove(int x, int y)
{
    assertOnGuiThread();
    std::optional<guiFrameDivider> divider = m_dragged;
    if (!divider && m_isResizable)
        divider = guiFrameDivider::find(this, x, y);
    if (QWidget* widget = divider ? getTopLevelWidget() : nullptr)
        widget->setCursor(divider->isBetweenColumns() ? Qt::SplitHCursor : Qt::SplitVCursor);
    if (m_dragged && m_dragged->moveTo(this, x, y))
        updateLayout(1);
    if (canHitTest())
        guiHtml::onMouseMove(x, y);
}

void guiHtmlFrameset::onMouseUp()
{
    assertOnGuiThread();
    m_dragged.reset();
    if (canHitTest())
        guiHtml::onMouseUp();
}

void guiHtmlFrameset::onMouseDown(int x, int y)
{
    assertOnGuiThread();
    if (m_isResizable)
        m_dragged = guiFrameDivider::find(this, x, y);
    if (canHitTest())
        guiHtml::onMouseDown(x, y);
}
