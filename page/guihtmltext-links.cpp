// page/guihtmltext-links.cpp: what the mouse does to the links of a text run.
#include "page/guihtmltext.h"

#include "foundation/vela-qt.h"

#include <QWidget>

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

// Moving from one link straight to another keeps the pointer as it is.
void guiHtmlText::onMouseMove(int x, int y)
{
    unsigned const link = linkAt(x, y);
    if (link == mx.hoveredLink)
        return;
    if (mx.hoveredLink == kNoLink || link == kNoLink)
        setPointer(link != kNoLink);
    mx.hoveredLink = link;
    update();
}

void guiHtmlText::onMouseOff()
{
    if (mx.hoveredLink != kNoLink) {
        setPointer(false);
        mx.hoveredLink = kNoLink;
        update();
    }
    guiHtml::onMouseOff();
}

// A run fires no mouse-down event of its own.
void guiHtmlText::onMouseDown(int, int)
{
    constexpr unsigned kLinkStart = 4; // "[[a "
    QStringView const text = mx.text.view();
    if (mx.hoveredLink == kNoLink || !text.mid(mx.hoveredLink).startsWith(QStringView(u"[[")))
        return;
    qsizetype const start = qsizetype{mx.hoveredLink} + kLinkStart;
    qsizetype const end = text.indexOf(QStringView(u"]]"), start);
    if (end >= start)
        onHyperlink(qtoss(text.mid(start, end - start).toString()), nullptr);
}
