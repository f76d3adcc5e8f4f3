// page/guihtmltext-links.cpp: what the mouse does to the links of a text run.
#include "page/guihtmltext.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guipageroot.h"
#include "page/guiuserevent.h"

#include <QWidget>
#include <optional>

namespace {

constexpr qsizetype kCodeStart = 4; // "[[a " or "[[l "

/// What stands in the code at that position of a text; none when there is no whole code.
std::optional<sstring> targetIn(QStringView text, qsizetype at)
{
    qsizetype const start = at + kCodeStart;
    qsizetype const end = text.indexOf(QStringView(u"]]"), start);
    bool const isCode = end >= start && text.mid(at).startsWith(QStringView(u"[["));
    return isCode ? std::optional(qtoss(text.mid(start, end - start).toString())) : std::nullopt;
}

bool isLabelAt(QStringView text, qsizetype at) { return text.mid(at).startsWith(QStringView(u"[[l ")); }

} // namespace

void guiActOnLabel(guiPageRoot* page, sstring const& target)
{
    sstring name = target;
    bool const isBookmark = target.getLength() != 0 && target[0] == '#';
    if (guiHtml* node = isBookmark ? page->getBookmarked(name) : page->getNamed(name))
        node->onLabel();
}

unsigned guiHtmlText::linkAt(int x, int y) const
{
    for (guiHotspot const& spot : mx.hotspots)
        if (x >= spot.left && x < spot.left + spot.width && y >= spot.top && y < spot.top + spot.height)
            return spot.link;
    return kNoLink;
}

int guiHtmlText::canHitTest() { return !mx.hotspots.empty() || guiHtml::canHitTest(); }

void guiHtmlText::setPointer(bool onLink)
{
    if (QWidget* widget = getTopLevelWidget())
        widget->setCursor(onLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

// The pointer's shape changes only between link and no link.
void guiHtmlText::onMouseMove(int x, int y)
{
    assertOnGuiThread();
    unsigned const link = linkAt(x, y);
    if (link == mx.hoveredLink)
        return;
    bool const wasOnLink = isFollowed(mx.hoveredLink);
    if (wasOnLink != isFollowed(link))
        setPointer(!wasOnLink);
    mx.hoveredLink = link;
    update();
}

void guiHtmlText::onMouseOff()
{
    assertOnGuiThread();
    if (mx.hoveredLink != kNoLink) {
        if (isFollowed(mx.hoveredLink))
            setPointer(false);
        mx.hoveredLink = kNoLink;
        update();
    }
    guiHtml::onMouseOff();
}

/// Whether there is a link at the position, and no label.
bool guiHtmlText::isFollowed(unsigned link) const { return link != kNoLink && !isLabelAt(mx.text.view(), link); }

// A run follows its link and fires no mouse-down event.
void guiHtmlText::onMouseDown(int, int)
{
    assertOnGuiThread();
    if (mx.hoveredLink == kNoLink)
        return;
    guiEventNote const note("click");
    std::optional<sstring> const target = targetIn(mx.text.view(), mx.hoveredLink);
    if (target && isFollowed(mx.hoveredLink))
        onHyperlink(*target, nullptr);
    else if (guiPageRoot* page = target ? getBaseHtml() : nullptr)
        guiActOnLabel(page, *target);
}
