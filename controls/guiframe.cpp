// controls/guiframe.cpp: see guiframe.h.
#include "controls/guiframe.h"

#include "foundation/vela-threadrole.h"

#include <QAbstractScrollArea>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFrame>

#include <cmath>

namespace {

bool isWhole(qreal scale) { return std::abs(scale - std::round(scale)) < 1.0 / 1024; }

/// Each edge rounded for itself, as clip regions are.
QRect onWholePixels(QRectF const& place)
{
    QPoint const from(qRound(place.left()), qRound(place.top()));
    return QRect(from, QPoint(qRound(place.right()) - 1, qRound(place.bottom()) - 1));
}

/// The toolkit does this together with the frame.
void paintCorner(QPainter& painter, QAbstractScrollArea const& area)
{
    QScrollBar const* across = area.horizontalScrollBar();
    QScrollBar const* down = area.verticalScrollBar();
    if (!across->isVisible() || !down->isVisible())
        return;
    QStyleOption option;
    option.initFrom(&area);
    QPoint const at(down->mapTo(&area, QPoint()).x(), across->mapTo(&area, QPoint()).y());
    option.rect = QRect(at, QSize(down->width(), across->height()));
    area.style()->drawPrimitive(QStyle::PE_PanelScrollAreaCorner, &option, &painter, &area);
}

QStyleOptionFrame frameOf(QAbstractScrollArea const& area, QRect const& place)
{
    QStyleOptionFrame option;
    option.initFrom(&area);
    option.rect = place;
    option.frameShape = area.frameShape();
    option.lineWidth = area.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &area);
    option.midLineWidth = area.midLineWidth();
    option.state.setFlag(QStyle::State_Sunken, area.frameShadow() == QFrame::Sunken);
    option.state.setFlag(QStyle::State_Raised, area.frameShadow() == QFrame::Raised);
    return option;
}

} // namespace

bool guiPaintFrame(QAbstractScrollArea* area)
{
    assertOnGuiThread();
    QPainter painter(area);
    QTransform const toScreen = painter.deviceTransform();
    if (isWhole(toScreen.m11()) || toScreen.type() > QTransform::TxScale)
        return false;
    paintCorner(painter, *area);
    QRect const place = onWholePixels(toScreen.mapRect(QRectF(area->rect())));
    constexpr qreal kHair = 1.0 / 64; // what is lost in computing back and forth must not lead to the pixel before
    painter.setTransform(QTransform::fromTranslate(place.left() + kHair, place.top() + kHair) * toScreen.inverted());
    QStyleOptionFrame const option = frameOf(*area, QRect(QPoint(), place.size()));
    area->style()->drawControl(QStyle::CE_ShapedFrame, &option, &painter, area);
    return true;
}
