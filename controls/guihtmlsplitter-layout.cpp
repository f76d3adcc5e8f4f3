// controls/guihtmlsplitter-layout.cpp: gives the panes of a splitter their sizes, and makes the dividers.
#include "controls/guieventscope.h"
#include "controls/guihtmlsplitter.h"
#include "controls/guiwidgetdivider.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize.h"

#include <algorithm>
#include <utility>

// ---- Panes ----

std::vector<guiHtml*> guiHtmlSplitter::panes() const
{
    std::vector<guiHtml*> found;
    for (guiHtml* child : guiNodesOf(this))
        if (child->getType() == kTypePlain)
            found.push_back(child);
    return found;
}

/// What is left for panes in so many pixels.
int guiHtmlSplitter::roomFor(int inner) const
{
    auto const count = static_cast<int>(panes().size());
    return inner - std::max(0, count - 1) * guiHtmlDivider::kSize;
}

guiSplitPart guiHtmlSplitter::startOf(std::size_t pane, int room) const
{
    constexpr std::int64_t kWhole = 100;
    start const asked = pane < m_starts.size() ? m_starts[pane] : start();
    if (asked.unit == kUnitPixels)
        return {scaled(static_cast<int>(asked.size)), 0, false};
    if (asked.unit == kUnitPercent)
        return {static_cast<int>(std::max(room, 0) * std::int64_t{asked.size} / kWhole), 0, false};
    return {0, 0, true};
}

std::vector<guiSplitPart> guiHtmlSplitter::parts(int room) const
{
    std::vector<guiHtml*> const all = panes();
    std::vector<guiSplitPart> found;
    for (std::size_t i = 0; i < all.size(); ++i) {
        guiSplitPart part = startOf(i, room);
        auto const& dynamic = all[i]->m.dynamic;
        part.least = std::max(kLeastPane, m_isVertical ? dynamic.cyMin : dynamic.cxMin);
        if (m_sizes.size() == all.size())
            part.wanted = m_sizes[i];
        found.push_back(part);
    }
    return found;
}

int guiHtmlSplitter::calcDynamicLayout()
{
    recall();
    return guiHtmlControl::calcDynamicLayout();
}

// The panes ask for exactly what they are to have, and layout gives it to them.
void guiHtmlSplitter::updateActiveWidths()
{
    if (!m_isVertical) {
        int const room = roomFor(guiInnerWidth(this, guiClampPixels(m.activeCx)));
        std::vector<int> const sizes = guiShareSplit(parts(room), room);
        std::size_t at = 0;
        for (guiHtml* pane : panes()) {
            pane->m.expandWidth = 0;
            pane->m.dynamic.unitX = kUnitPixels;
            pane->m.dynamic.x = static_cast<unsigned>(sizes[at++]);
        }
    }
    guiHtmlControl::updateActiveWidths();
}

void guiHtmlSplitter::updateActiveHeights()
{
    if (m_isVertical) {
        int const room = roomFor(guiInnerHeight(this, guiClampPixels(m.activeCy)));
        m_heights = guiShareSplit(parts(room), room);
    }
    guiHtmlControl::updateActiveHeights();
}

int guiHtmlSplitter::getChildHeight(unsigned index, unsigned long width, unsigned long available)
{
    std::vector<guiHtml*> const all = panes();
    auto const found = std::find(all.begin(), all.end(), getChild(index));
    auto const at = static_cast<std::size_t>(found - all.begin());
    if (m_isVertical && at < m_heights.size())
        return m_heights[at];
    return guiHtmlControl::getChildHeight(index, width, available);
}

// What stands above may have given the node more height than it had when its panes got theirs.
void guiHtmlSplitter::updateSpringyHeights()
{
    assertOnGuiThread();
    guiLayoutRun const run;
    if (m.layout.heightsFor != guiClampPixels(m.activeCy))
        updateActiveHeights();
    guiHtmlControl::updateSpringyHeights();
}

// ---- Dividers ----

guiHtmlSplitter* guiHtmlDivider::splitter() const { return dynamic_cast<guiHtmlSplitter*>(getParent()); }

bool guiHtmlDivider::isHorizontal() const
{
    guiHtmlSplitter const* const of = splitter();
    return of && of->isVertical();
}

void guiHtmlDivider::moveBy(int pixels)
{
    if (guiHtmlSplitter* of = splitter())
        of->moveDivider(this, pixels);
}

void guiHtmlDivider::reset()
{
    if (guiHtmlSplitter* of = splitter())
        of->reset();
}

void guiHtmlDivider::letGo()
{
    if (guiHtmlSplitter* of = splitter())
        of->letGo();
}

QWidget* guiHtmlDivider::getChildWidget() { return m_divider; }

void guiHtmlDivider::createChildWidget()
{
    if (m_divider || !hasWindow())
        return;
    assertOnGuiThread();
    dirtyTabOrder();
    m_divider = new guiWidgetDivider(getClipWidget(), isHorizontal());
    m_divider->owner = this;
    finishWidget(m_divider);
}

void guiHtmlDivider::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidget();
}

void guiHtmlDivider::destroyWidget()
{
    guiDestroyWrapper(m_divider);
    onDestroyChildWidget();
}
