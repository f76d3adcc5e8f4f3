// controls/guiwidgetsummary.cpp: see guiwidgetsummary.h.
#include "controls/guiwidgetsummary.h"

#include "controls/guieventscope.h"
#include "controls/guihtmldetails.h"
#include "controls/guiwidget.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOption>

guiWidgetSummary::guiWidgetSummary(QWidget* parent) : QAbstractButton(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setCheckable(true);
    connect(this, &QAbstractButton::clicked, this, [this] { press(); });
}

void guiWidgetSummary::showOpen(bool open)
{
    setChecked(open);
    update();
}

// The toolkit has toggled the button already; the node says what it is.
void guiWidgetSummary::press()
{
    guiEventScope scope;
    if (owner)
        owner->onClick();
}

void guiWidgetSummary::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    int const key = event->key();
    event->accept();
    if (key == Qt::Key_Return || key == Qt::Key_Enter)
        click();
    else if (!guiHandleKey(owner, key, false))
        QAbstractButton::keyPressEvent(event);
}

void guiWidgetSummary::enterEvent(QEnterEvent* event)
{
    QAbstractButton::enterEvent(event);
    update();
}

void guiWidgetSummary::leaveEvent(QEvent* event)
{
    QAbstractButton::leaveEvent(event);
    update();
}

namespace {

/// Points right, or down when it is open; in a square of `side` pixels around `middle`.
QPainterPath arrowAt(QPointF middle, qreal side, bool isOpen)
{
    qreal const longer = side / 2;
    qreal const shorter = side / 4;
    QPainterPath path;
    if (isOpen) {
        path.moveTo(middle + QPointF(-longer, -shorter));
        path.lineTo(middle + QPointF(0, shorter));
        path.lineTo(middle + QPointF(longer, -shorter));
    } else {
        path.moveTo(middle + QPointF(-shorter, -longer));
        path.lineTo(middle + QPointF(shorter, 0));
        path.lineTo(middle + QPointF(-shorter, longer));
    }
    return path;
}

} // namespace

void guiWidgetSummary::paintEvent(QPaintEvent*)
{
    constexpr int kTextLeft = 22;
    constexpr int kArrowMiddle = 11;
    constexpr int kArrowSide = 8;
    auto const scaled = [this](int pixels) { return owner ? owner->scaled(pixels) : pixels; };
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse() && isEnabled()) {
        QColor ground = palette().color(QPalette::WindowText);
        ground.setAlphaF(0.07F);
        painter.setPen(Qt::NoPen);
        painter.setBrush(ground);
        painter.drawRoundedRect(rect(), 3, 3);
    }
    QColor const ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(arrowAt(QPointF(scaled(kArrowMiddle), height() / 2.0), scaled(kArrowSide), isChecked()));
    painter.setPen(ink);
    painter.drawText(rect().adjusted(scaled(kTextLeft), 0, 0, 0), Qt::AlignVCenter | Qt::TextShowMnemonic, text());
    if (!hasFocus())
        return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}
