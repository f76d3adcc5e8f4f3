// page/guihtmlsheet.cpp: see guihtmlsheet.h.
#include "page/guihtmlsheet.h"

#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"

#include <QWidget>
#include <algorithm>
#include <utility>

void guiHtmlSheet::putAway(bool away)
{
    assertOnGuiThread();
    if (isPutAway() == away)
        return;
    m.visible = away ? 0 : 1;
    QWidget const* window = away ? nullptr : getTopLevelWidget();
    if (window && window->isVisible())
        onShow();
}

void guiHtmlSheet::bringToFront()
{
    putAway(false);
    updateLayout(1);
}

int guiHtmlSheet::shownHeight(int width)
{
    return std::max(guiHtml::getHeightEstimate(static_cast<unsigned long>(std::max(width, 0))), m_leastHeight);
}

int guiHtmlSheet::calcDynamicLayout()
{
    bool const isMeasured = !isPutAway() || keepsRoom();
    int const preferred = isMeasured ? guiHtml::calcDynamicLayout() : takeNothing();
    m_leastHeight = m.dynamic.cyMin;
    if (!isPutAway())
        return preferred;
    m.dynamic.unitY = kUnitPixels;
    m.dynamic.y = 0;
    m.dynamic.cyMin = 0;
    m.expandHeight = 0;
    return preferred;
}

int guiHtmlSheet::takeNothing()
{
    m.dynamic = {};
    m.dynamic.unitX = kUnitPixels;
    m.expandWidth = 0;
    return 0;
}

int guiHtmlSheet::getHeightEstimate(unsigned long width) { return isPutAway() ? 0 : guiHtml::getHeightEstimate(width); }

/// As far as layout asks, there is nothing below the node.
void guiHtmlSheet::learnEmpty()
{
    m.layout.learn(guiLayoutMemo::kHeights | guiLayoutMemo::kNoSprings | guiLayoutMemo::kNoBars,
                   guiLayoutRun::number());
    m.layout.heightsFor = guiClampPixels(m.activeCy);
}

void guiHtmlSheet::updateActiveWidths()
{
    if (isPutAway())
        learnEmpty();
    else
        guiHtml::updateActiveWidths();
}

void guiHtmlSheet::updateActiveHeights()
{
    if (isPutAway())
        learnEmpty();
    else
        guiHtml::updateActiveHeights();
}

void guiHtmlSheet::updateSpringyHeights()
{
    if (!isPutAway())
        guiHtml::updateSpringyHeights();
}

void guiHtmlSheet::updateScrollbarRanges()
{
    if (!isPutAway())
        guiHtml::updateScrollbarRanges();
}

void guiHtmlSheet::setRect(guiRect* rect)
{
    assertOnGuiThread();
    if (!isPutAway()) {
        m_hasPlace = true;
        guiHtml::setRect(rect);
        return;
    }
    m.rect = *rect;
    m.rect.height = 0;
    if (std::exchange(m_hasPlace, false))
        hideWidgets();
    if (guiLayoutRun::keeps(m.layout.run))
        m.layout.learn(guiLayoutMemo::kPlaced, m.layout.run);
}

namespace {

/// Widgets show what their node's ancestors show of it, which is nothing now.
void placeAgain(guiHtml* node)
{
    int const type = node->getType();
    if (type == guiHtml::kTypeControl || type == guiHtml::kTypeCustom) {
        guiRect rect = node->m.rect;
        node->setRect(&rect);
        return;
    }
    for (guiHtml* child : guiNodesOf(node))
        placeAgain(child);
}

} // namespace

void guiHtmlSheet::hideWidgets()
{
    for (guiHtml* child : guiNodesOf(this))
        placeAgain(child);
    m.layout.forget(guiLayoutMemo::kNoBars);
    guiHtml::updateScrollbarRanges();
}

void guiHtmlSheet::onShow()
{
    if (!isPutAway())
        guiHtml::onShow();
}

bool guiIsPutAway(guiHtml const* node)
{
    for (; node; node = node->getParent())
        if (!node->m.visible)
            return true;
    return false;
}
