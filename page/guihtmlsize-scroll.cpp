// page/guihtmlsize-scroll.cpp: see guihtmlsize-scroll.h.
#include "page/guihtmlsize-scroll.h"

#include "page/guihtml.h"
#include "page/guihtmlsize.h"
#include "page/guipagesurface.h"

#include <QScrollBar>
#include <QSignalBlocker>

namespace {

// Less room than this is not worth a bar: the bar alone would fill it.
constexpr int kLeastRoom = 31;
constexpr int kLineStep = 16;

} // namespace

// In a widget that is no surface a bar shows how far the content is scrolled, and moves nothing.
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

// A node may become lower because of its bar, and so too low for one: what went once does not come back.
void guiStartBars(guiHtml* node)
{
    guiLayoutMemo& memo = node->m.layout;
    if (guiLayoutRun::kind() == guiLayoutRun::Kind::Again) {
        memo.lostBarX = memo.lostBarX || (memo.hadBarX && !memo.hasBarX);
        memo.lostBarY = memo.lostBarY || (memo.hadBarY && !memo.hasBarY);
    } else {
        bool const keeps = guiLayoutRun::kind() == guiLayoutRun::Kind::Part && node->isScrolled();
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

// The bar may be what caused this layout, so it must outlive the call.
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

void addBar(guiHtml* node, Qt::Orientation orientation, axis const& along)
{
    if (!along.bar)
        along.bar = createScrollBar(node, orientation, along.name);
    along.has = along.bar != nullptr;
    if (along.has)
        guiLayoutRun::addBar();
}

// Within a layout a bar that took part in a whole run stays, since whether it is needed would otherwise depend on
// itself; but not in a node that the other bar left too little room for two.
void dropBar(axis const& along, int room)
{
    bool const isPart = guiLayoutRun::kind() == guiLayoutRun::Kind::Part;
    if (!along.has || (along.had && !isPart && room > kLeastRoom))
        return;
    along.has = false;
    if (along.had)
        guiLayoutRun::dropOldBar();
    else
        guiLayoutRun::dropNewBar();
    if (isPart)
        destroyBar(along);
}

} // namespace

void guiDecideBar(guiHtml* node, Qt::Orientation orientation, std::int64_t content, int room)
{
    bool const isNeeded = content > room && node->m.scrollMode == kPolicyScroll && room > kLeastRoom;
    if (!isNeeded && !hasBars(node))
        return;
    axis const along = axisOf(node, orientation);
    if (isNeeded && !along.has && !along.lost)
        addBar(node, orientation, along);
    if (!isNeeded)
        dropBar(along, room);
    along.range = isNeeded && along.has ? static_cast<unsigned>(guiClampPixels(content - room)) : 0;
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
    int const above =
        rect.height - guiClampPixels(node->getType() == guiHtml::kTypeBase ? node->m.activeCy : unsigned(rect.height));
    return QRect(rect.left + inset, rect.top + inset + above, rect.width - 2 * inset, rect.height - 2 * inset - above);
}

// What an ancestor cuts off of the node is cut off of its bars, too.
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
    if (m.layout.knows(guiLayoutMemo::kNoBars, guiLayoutRun::number()))
        return;
    updateOwnBars(this);
    for (guiHtml* child : guiNodesOf(this))
        child->updateScrollbarRanges();
}
