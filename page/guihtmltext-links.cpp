// page/guihtmltext-links.cpp: what the mouse does to the links of a text run.
#include "page/guihtmltext.h"

#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guiuserevent.h"

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

// The pointer's shape changes only between link and no link.
void guiHtmlText::onMouseMove(int x, int y)
{
    assertOnGuiThread();
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
    assertOnGuiThread();
    if (mx.hoveredLink != kNoLink) {
        setPointer(false);
        mx.hoveredLink = kNoLink;
        update();
    }
    guiHtml::onMouseOff();
}

// A run follows its link and fires no mouse-down event.
void guiHtmlText::onMouseDown(int, int)
{
    assertOnGuiThread();
    constexpr unsigned kLinkStart = 4; // "[[a "
    QStringView const text = mx.text.view();
    if (mx.hoveredLink == kNoLink || !text.mid(mx.hoveredLink).startsWith(QStringView(u"[[")))
        return;
    qsizetype const start = qsizetype{mx.hoveredLink} + kLinkStart;
    qsizetype const end = text.indexOf(QStringView(u"]]"), start);
    guiEventNote const note("click");
    if (end >= start)
        onHyperlink(qtoss(text.mid(start, end - start).toString()), nullptr);
}
