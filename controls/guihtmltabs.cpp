// controls/guihtmltabs.cpp: see guihtmltabs.h.
#include "controls/guihtmltabs.h"

#include "controls/guihtmltabbar.h"
#include "controls/guinodeicon.h"
#include "controls/guitabstops.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"

#include <QStyle>
#include <QStyleOptionTabWidgetFrame>
#include <algorithm>

// ---- A sheet ----

guiHtmlTabSheet::guiHtmlTabSheet(guiHtml* parent) : guiHtmlSheet(parent)
{
    constexpr unsigned kWhole = 100;
    m.fixed.unitY = kUnitPercent; // of what the bar leaves
    m.fixed.y = kWhole;
    m.alignY = kAlignTop;
}

guiHtml& guiHtmlTabSheet::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (auto const* sheet = dynamic_cast<guiHtmlTabSheet const*>(&other))
        init(sheet->m_title, sheet->m_icon);
    return *this;
}

void guiHtmlTabSheet::init(sstring const& title, sstring const& icon)
{
    m_title = title;
    m_icon = icon;
}

guiHtmlTabBar* guiHtmlTabSheet::bar()
{
    auto const* tabs = dynamic_cast<guiHtmlTabs const*>(getParent());
    return tabs ? tabs->bar() : nullptr;
}

guiTabLook guiHtmlTabSheet::look(int place)
{
    constexpr int kIconSize = guiWidgetTabBar::kIconSize;
    QString const key = hasString(kStringName) ? sstoq(getName()) : QString::number(place);
    QIcon const icon = getTopLevelWidget() ? guiIconOfNode(this, m_icon, kIconSize, m_picture) : QIcon();
    return {key, sstoq(m_title), icon, m.enabled != 0};
}

void guiHtmlTabSheet::setCaption(sstring const& caption)
{
    m_title = caption;
    if (guiHtmlTabBar* above = bar())
        above->updateTabs();
}

void guiHtmlTabSheet::setEnabled(int enabled)
{
    guiHtml::setEnabled(enabled);
    if (guiHtmlTabBar* above = bar())
        above->updateTabs();
}

void guiHtmlTabSheet::bringToFront()
{
    if (guiHtmlTabBar* above = bar())
        above->showSheet(this);
}

void guiHtmlTabSheet::destroyChildWidget()
{
    guiHtmlSheet::destroyChildWidget();
    m_picture = nullptr;
}

// ---- All of them ----

guiHtmlTabBar* guiHtmlTabs::bar() const
{
    for (guiHtml* child : guiNodesOf(this))
        if (auto* found = dynamic_cast<guiHtmlTabBar*>(child))
            return found;
    return nullptr;
}

std::vector<guiHtmlTabSheet*> guiHtmlTabs::sheets() const
{
    std::vector<guiHtmlTabSheet*> found;
    for (guiHtml* child : guiNodesOf(this))
        if (auto* sheet = dynamic_cast<guiHtmlTabSheet*>(child))
            found.push_back(sheet);
    return found;
}

void guiHtmlTabs::init(sstring const& shown)
{
    std::vector<guiHtmlTabSheet*> const all = sheets();
    if (all.empty())
        return;
    bar()->initText(qtoss(all.front()->look(0).key));
    putAway(0);
    if (shown.getLength() != 0)
        bar()->setText(shown, sstring());
}

void guiHtmlTabs::putAway(int shown)
{
    int place = 0;
    for (guiHtmlTabSheet* sheet : sheets())
        sheet->putAway(place++ != shown);
}

void guiHtmlTabs::show(int index)
{
    std::vector<guiHtmlTabSheet*> const all = sheets();
    if (index < 0 || index >= static_cast<int>(all.size()))
        return;
    guiHtmlTabSheet* const shown = all[static_cast<std::size_t>(index)];
    bool const movesFocus = std::any_of(
        all.begin(), all.end(), [shown](guiHtmlTabSheet* sheet) { return sheet != shown && guiHoldsFocus(sheet); });
    putAway(index);
    updateLayout(1);
    if (movesFocus)
        moveFocus(shown);
}

void guiHtmlTabs::moveFocus(guiHtmlSheet* into)
{
    assertOnGuiThread();
    QWidget* const above = bar() ? bar()->getChildWidget() : nullptr;
    if (!guiFocusNext(into, nullptr, true) && above)
        above->setFocus();
}

int guiHtmlTabs::barHeight() const { return bar() ? bar()->getHeightEstimate(0) : 0; }

int guiHtmlTabs::calcDynamicLayout()
{
    int const preferred = guiHtml::calcDynamicLayout();
    int least = 0;
    for (guiHtmlTabSheet const* sheet : sheets())
        least = std::max(least, sheet->leastHeight());
    m.dynamic.cyMin = std::max(m.dynamic.cyMin, guiClampPixels(least + barHeight() + guiFrameOf(this)));
    return preferred;
}

int guiHtmlTabs::getHeightEstimate(unsigned long width)
{
    int const inner = guiInnerWidth(this, guiClampPixels(width));
    int largest = 0;
    for (guiHtmlTabSheet* sheet : sheets())
        largest = std::max(largest, sheet->shownHeight(inner));
    return guiClampPixels(largest + barHeight() + guiFrameOf(this));
}

int guiHtmlTabs::getChildHeight(unsigned index, unsigned long width, unsigned long available)
{
    auto const* sheet = dynamic_cast<guiHtmlTabSheet const*>(getChild(index));
    if (!sheet || sheet->isPutAway())
        return guiHtml::getChildHeight(index, width, available);
    return std::max(0, guiClampPixels(available) - barHeight());
}

// What stands above may have given the node more height than it had when its sheet got its own.
void guiHtmlTabs::updateSpringyHeights()
{
    assertOnGuiThread();
    guiLayoutRun const run;
    if (m.layout.heightsFor != guiClampPixels(m.activeCy))
        updateActiveHeights();
    guiHtml::updateSpringyHeights();
}

// The bar lies over the upper edge, so that the tab that is shown opens into the frame.
void guiHtmlTabs::paintBorder(QPainter* painter, guiRect* rect, int)
{
    QWidget const* const above = bar() ? bar()->getChildWidget() : nullptr;
    if (!above)
        return;
    QStyle const* const style = above->style();
    int const overlap = style->pixelMetric(QStyle::PM_TabBarBaseOverlap, nullptr, above);
    int const top = barHeight() - overlap;
    QStyleOptionTabWidgetFrame option;
    option.palette = above->palette();
    option.state = QStyle::State_Enabled;
    option.rect = QRect(rect->left, rect->top + top, rect->width, std::max(0, rect->height - top));
    option.lineWidth = style->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, above);
    option.tabBarSize = above->size();
    style->drawPrimitive(QStyle::PE_FrameTabWidget, &option, painter, above);
}

bool guiHtmlTabs::turnParts(int step)
{
    if (!bar())
        return false;
    bar()->step(step);
    return true;
}
