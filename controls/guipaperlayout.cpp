// controls/guipaperlayout.cpp: see guipaperlayout.h. The page itself is laid out, not a copy: only its own nodes know
// what its controls show. Everything happens within one call of the GUI thread, so nobody sees the window meanwhile.
#include "controls/guipaperlayout.h"

#include "foundation/vela-error.h"
#include "foundation/vela-log.h"
#include "page/guicolor.h"
#include "page/guicontrast.h"
#include "page/guihtmlsheet.h"
#include "page/guihtmlsize.h"
#include "page/guipageroot.h"
#include "page/guizoom.h"

#include <QApplication>
#include <QPalette>
#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace {

// A page that needs more room is made smaller up to this, and cut off beyond.
constexpr int kMostWidths = 3;

bool isDark(QWidget const& window) { return guiIsDark(qtogui(window.palette().color(QPalette::Window))); }

/// Black on white, whatever the desktop has.
QPalette paperColors()
{
    QPalette colors = QApplication::style()->standardPalette();
    if (guiIsDark(qtogui(colors.color(QPalette::Window))))
        colors = QPalette(QColor(Qt::lightGray), QColor(Qt::white));
    colors.setColor(QPalette::Link, Qt::blue);
    return colors;
}

/// Whether the height is a share of its parent's that the page chose, not what the parent gives to its parts.
bool isOfWindow(guiHtml* node)
{
    bool const isShare = node->m.fixed.unitY == kUnitPercent;
    return isShare && !dynamic_cast<guiHtmlSheet*>(node) &&
           !(node->m.parent && node->m.parent->getType() == guiHtml::kTypeFrameset);
}

/// Where the content ends, relative to the node.
int contentBottom(guiHtml const* node)
{
    int bottom = 0;
    for (guiHtml const* child : guiNodesOf(node))
        bottom = std::max(bottom, child->m.rect.bottom());
    return bottom;
}

} // namespace

guiPaperLayout::guiPaperLayout(guiPageRoot& page, int width)
    : m_page(page), m_rect(page.getRect()), m_zoom(page.getZoom()), m_wasDark(isDark(*page.getTopLevelWidget()))
{
    assertOnGuiThread();
    QWidget& window = *page.getTopLevelWidget();
    if (m_wasDark)
        window.setPalette(paperColors());
    try {
        layOutFor(width);
    } catch (...) {
        putBack();
        throw;
    }
}

guiPaperLayout::~guiPaperLayout() { putBack(); }

void guiPaperLayout::layOutFor(int width)
{
    keep(&m_page, false);
    if (m_zoom != kUnzoomed)
        guiZoomPage(m_page, kUnzoomed);
    for (keptNode& each : m_kept) { // not zoomed any more
        each.fixed = each.node->m.fixed;
        each.scrollMode = each.node->m.scrollMode;
    }
    m_onPaper = std::make_unique<guiOnPaper>();
    layOut(width);
    int const needed = std::min(m_page.m.dynamic.cxMin, kMostWidths * width);
    if (needed > width)
        layOut(needed);
}

void guiPaperLayout::putBack()
{
    assertOnGuiThread();
    try {
        restore();
    } catch (velaError const& error) {
        velaLog("guiPaperLayout::restore() - %s\n", error.getMessage().c_str());
    }
    QWidget& window = *m_page.getTopLevelWidget();
    if (m_wasDark)
        window.setPalette(QPalette());
    window.update();
}

/// What scrolls shows all that it has, and what is high in proportion to the window is as high as it needs. `isBound`:
/// the node is in one whose height the page gives in pixels.
void guiPaperLayout::keep(guiHtml* node, bool isBound)
{
    bool const isScrolling = node->m.scrollMode == kPolicyScroll;
    if (isScrolling || (!isBound && isOfWindow(node))) {
        guiHtml::scroll_t const& scroll = node->getScroll();
        m_kept.push_back({node, node->m.fixed, node->m.scrollMode, scroll.posX, scroll.posY});
    }
    bool const isBox = node->m.fixed.unitY == kUnitPixels && !isScrolling;
    for (guiHtml* child : guiNodesOf(node))
        keep(child, isBox || (isBound && !isScrolling));
}

void guiPaperLayout::layOut(int width)
{
    m_width = width;
    for (keptNode const& each : m_kept) {
        each.node->m.scrollMode = kPolicyResize;
        each.node->m.fixed.unitY = kUnitUnbound;
        each.node->m.fixed.y = 0;
        each.node->resetScroll();
    }
    guiLayoutRun::startAnew();
    m_page.calcDynamicLayout();
    int const bars = m_page.getMenuHeight() + m_page.getStatusHeight();
    int height = m_page.getHeightEstimate(static_cast<unsigned long>(width));
    // The content may be higher than was estimated, where columns share the width in another way.
    for (int runs = 0; runs < 2; ++runs) {
        guiRect rect{0, width, 0, guiClampPixels(std::int64_t{height} + bars)};
        guiLayoutRun::startAnew();
        m_page.setRect(&rect);
        int const used = contentBottom(&m_page) + m_page.m.border + m_page.m.space;
        if (used <= height)
            break;
        height = used;
    }
}

void guiPaperLayout::restore()
{
    for (keptNode const& each : m_kept) {
        each.node->m.fixed = each.fixed;
        each.node->m.scrollMode = each.scrollMode;
        if (each.posX != 0 || each.posY != 0) {
            each.node->ensureScroll().posX = each.posX;
            each.node->ensureScroll().posY = each.posY;
        }
    }
    m_onPaper.reset();
    guiLayoutRun::startAnew();
    m_page.calcDynamicLayout();
    guiRect rect = m_rect;
    m_page.setRect(&rect);
    if (m_zoom == kUnzoomed)
        return;
    guiZoomPage(m_page, m_zoom);
    for (keptNode const& each : m_kept) {
        if (!each.node->isScrolled())
            continue;
        each.node->onScrollX(static_cast<int>(each.posX));
        each.node->onScrollY(static_cast<int>(each.posY));
    }
}
