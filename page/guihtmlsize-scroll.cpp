// page/guihtmlsize-scroll.cpp: see guihtmlsize-scroll.h.
#include "page/guihtmlsize-scroll.h"

#include "page/guihtml.h"
#include "page/guihtmlsize.h"
#include "page/guipageroot.h"
#include "page/guipagesurface.h"

#include <QScrollBar>
#include <QSignalBlocker>
#include <cassert>

namespace {

// In less room than this a bar would cover most of the content.
constexpr int kLeastRoom = 31;
constexpr int kLineStep = 16;

} // namespace

// In a widget that is not a guiPageSurface a bar only shows the position.
QScrollBar* createScrollBar(guiHtml* node, Qt::Orientation orientation, char const* name)
{
    if (guiPageSurface* surface = guiPageSurface::of(node))
        return surface->createScrollBar(node, orientation, name);
    QWidget* widget = node->getTopLevelWidget();
    if (!widget)
        return nullptr;
    auto* bar = new QScrollBar(orientation, widget);
    bar->setObjectName(QString::fromUtf8(name));
    bar->hide();
    return bar;
}

int guiBarWidth(guiHtml const* node)
{
    QScrollBar const* bar = node->m.layout.hasBarY ? node->getScroll().barY : nullptr;
    return bar ? bar->sizeHint().width() : 0;
}

int guiBarHeight(guiHtml const* node)
{
    QScrollBar const* bar = node->m.layout.hasBarX ? node->getScroll().barX : nullptr;
    return bar ? bar->sizeHint().height() : 0;
}

// A bar can make its node too small for a bar. So that the runs come to an end, a bar that was removed stays away.
void guiStartBars(guiHtml* node)
{
    guiLayoutMemo& memo = node->m.layout;
    if (guiLayoutRun::currentPhase() == guiLayoutRun::phase::kAgain) {
        memo.lostBarX = memo.lostBarX || (memo.hadBarX && !memo.hasBarX);
        memo.lostBarY = memo.lostBarY || (memo.hadBarY && !memo.hasBarY);
    } else {
        bool const isPart = guiLayoutRun::currentPhase() == guiLayoutRun::phase::kPart;
        bool const keeps = isPart && node->isScrolled();
        memo.hasBarX = keeps && node->getScroll().barX;
        memo.hasBarY = keeps && node->getScroll().barY;
        memo.lostBarX = memo.lostBarY = false;
    }
    memo.hadBarX = memo.hasBarX;
    memo.hadBarY = memo.hasBarY;
}

namespace {

bool hasBars(guiHtml const* node) { return node->isScrolled() && (node->getScroll().barX || node->getScroll().barY); }

/// One of a node's two bars.
struct axis
{
    bool& has;
    bool had;
    bool lost;
    QPointer<QScrollBar>& bar;
    unsigned& position;
    unsigned& range;
    char const* name;
};

axis axisOf(guiHtml* node, Qt::Orientation orientation)
{
    guiHtml::scroll_t& scroll = node->ensureScroll();
    guiLayoutMemo& memo = node->m.layout;
    if (orientation == Qt::Horizontal)
        return {memo.hasBarX, memo.hadBarX, memo.lostBarX, scroll.barX, scroll.posX, scroll.rangeX, "html x-scrollbar"};
    return {memo.hasBarY, memo.hadBarY, memo.lostBarY, scroll.barY, scroll.posY, scroll.rangeY, "html y-scrollbar"};
}

// Not deleted at once: this layout may have been caused by an event of the bar.
void destroyBar(axis const& along)
{
    if (along.bar) {
        along.bar->hide();
        along.bar->setObjectName(QString());
        along.bar->disconnect();
        along.bar->deleteLater();
        along.bar = nullptr;
    }
    along.position = along.range = 0;
}

void addBar(guiHtml* node, Qt::Orientation orientation, axis const& along) TARN_ON(velaGuiRole)
{
    assert(!along.has);
    if (!along.bar)
        along.bar = createScrollBar(node, orientation, along.name);
    along.has = along.bar != nullptr;
    if (along.has)
        guiLayoutRun::countAddedBar();
}

// A bar that was there for a whole run of this layout stays, since otherwise its presence would decide whether it is
// needed; unless the other bar leaves too little room for both.
void dropBar(axis const& along, int room) TARN_ON(velaGuiRole)
{
    bool const isPart = guiLayoutRun::currentPhase() == guiLayoutRun::phase::kPart;
    if (!along.has || (along.had && !isPart && room > kLeastRoom))
        return;
    along.has = false;
    if (along.had)
        guiLayoutRun::countRemovedBar();
    else
        guiLayoutRun::uncountAddedBar();
    if (isPart)
        destroyBar(along);
}

} // namespace

void guiDecideBar(guiHtml* node, Qt::Orientation orientation, std::int64_t content, int room)
{
    assert(guiLayoutRun::isActive());
    bool const isNeeded = content > room && node->m.scrollMode == kPolicyScroll && room > kLeastRoom;
    if (!isNeeded && !hasBars(node))
        return;
    axis const along = axisOf(node, orientation);
    if (isNeeded && !along.has && !along.lost)
        addBar(node, orientation, along);
    if (!isNeeded)
        dropBar(along, room);
    along.range = isNeeded && along.has ? static_cast<unsigned>(guiClampPixels(content - room)) : 0;
    assert(along.range <= static_cast<unsigned>(kMaxLayoutPixels));
}

void guiSettleBars(guiHtml* node)
{
    if (!hasBars(node))
        return;
    for (Qt::Orientation orientation : {Qt::Horizontal, Qt::Vertical}) {
        axis const along = axisOf(node, orientation);
        if (!along.has)
            destroyBar(along);
        along.position = std::min(along.position, along.range);
    }
}

namespace {

/// The node's content area and the bars beside it, in coordinates of the window.
QRect innerRect(guiHtml* node)
{
    guiRect rect;
    node->getRectInWidget(&rect);
    int const inset = guiClampPixels(guiFrameOf(node) / 2);
    int const above = guiBarAbove(node);
    return QRect(rect.left + inset, rect.top + inset + above, rect.width - 2 * inset,
                 rect.height - 2 * inset - above - guiBarBelow(node));
}

// A node's bars are clipped by its ancestors like the node itself.
void showClipped(guiHtml* node, QScrollBar* bar)
{
    guiRect clip;
    node->getClipRect(&clip);
    QRect const shown = bar->geometry() & QRect(clip.left, clip.top, clip.width, clip.height);
    if (shown == bar->geometry())
        bar->clearMask();
    else
        bar->setMask(QRegion(shown.translated(-bar->pos())));
    bar->setVisible(!shown.isEmpty());
}

void updateBar(guiHtml* node, QScrollBar* bar, QRect const& place, int page, unsigned range, unsigned position)
{
    QSignalBlocker const quiet(bar);
    bar->setGeometry(place);
    bar->setRange(0, guiClampPixels(range));
    bar->setPageStep(std::max(page, 1));
    bar->setSingleStep(kLineStep);
    bar->setValue(guiClampPixels(position));
    showClipped(node, bar);
}

void updateOwnBars(guiHtml* node)
{
    if (!hasBars(node))
        return;
    guiHtml::scroll_t const& scroll = node->getScroll();
    QRect const inner = innerRect(node);
    int const room = inner.width() - guiBarWidth(node);
    int const roomBelow = inner.height() - guiBarHeight(node);
    if (scroll.barX)
        updateBar(node, scroll.barX, QRect(inner.left(), inner.top() + roomBelow, room, inner.height() - roomBelow),
                  room, scroll.rangeX, scroll.posX);
    if (scroll.barY)
        updateBar(node, scroll.barY, QRect(inner.left() + room, inner.top(), inner.width() - room, roomBelow),
                  roomBelow, scroll.rangeY, scroll.posY);
}

} // namespace

void guiHtml::updateScrollbarRanges()
{
    assertOnGuiThread();
    if (m.layout.knows(guiLayoutMemo::kNoBars, guiLayoutRun::number()))
        return;
    updateOwnBars(this);
    for (guiHtml* child : guiNodesOf(this))
        child->updateScrollbarRanges();
}
