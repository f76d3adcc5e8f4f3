// controls/guiwidgetdivider.cpp: see guiwidgetdivider.h.
#include "controls/guiwidgetdivider.h"

#include "controls/guiaccessiblerole.h"
#include "controls/guieventscope.h"
#include "controls/guihtmlsplitter.h"
#include "controls/guiowntexts.h"
#include "controls/guiwidget.h"
#include "page/guicolor.h"
#include "page/guiinks.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <algorithm>
#include <utility>

guiWidgetDivider::guiWidgetDivider(QWidget* parent, bool isHorizontal) : QWidget(parent), m_isHorizontal(isHorizontal)
{
    setFocusPolicy(Qt::TabFocus);
    setCursor(isHorizontal ? Qt::SplitVCursor : Qt::SplitHCursor);
    guiSetAccessibleRole(this, QAccessible::Splitter); // before anybody asks
    setAccessibleName(guiOwnText("Divider"));
}

int guiWidgetDivider::along(QPointF const& point) const { return qRound(m_isHorizontal ? point.y() : point.x()); }

// ---- The pointer ----

void guiWidgetDivider::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mousePressEvent(event);
    m_isDragged = true;
    m_grasped = along(event->position());
    update();
}

// The widget moves with the divider, so the pointer is always as far from its edge as when the drag began.
void guiWidgetDivider::mouseMoveEvent(QMouseEvent* event)
{
    guiEventScope scope;
    int const by = along(event->position()) - m_grasped;
    if (m_isDragged && owner && by != 0)
        owner->moveBy(by);
}

void guiWidgetDivider::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return QWidget::mouseReleaseEvent(event);
    update();
    if (std::exchange(m_isDragged, false))
        letGo();
}

void guiWidgetDivider::mouseDoubleClickEvent(QMouseEvent* event)
{
    guiEventScope scope;
    if (event->button() == Qt::LeftButton && owner)
        owner->reset();
    if (event->button() == Qt::LeftButton)
        letGo();
}

void guiWidgetDivider::letGo()
{
    guiEventScope scope;
    m_isMovedByKeys = false;
    if (owner)
        owner->letGo();
}

// ---- Keys ----

/// By how many pixels a key moves it; 0 for all others.
int guiWidgetDivider::stepOf(int key) const
{
    constexpr int kStep = 10;
    constexpr int kFar = 1 << 20; // more than any window has
    switch (key) {
    case Qt::Key_Left:
        return m_isHorizontal ? 0 : -kStep;
    case Qt::Key_Right:
        return m_isHorizontal ? 0 : kStep;
    case Qt::Key_Up:
        return m_isHorizontal ? -kStep : 0;
    case Qt::Key_Down:
        return m_isHorizontal ? kStep : 0;
    case Qt::Key_Home:
        return -kFar;
    case Qt::Key_End:
        return kFar;
    default:
        return 0;
    }
}

void guiWidgetDivider::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    int const by = event->modifiers() & ~Qt::KeypadModifier ? 0 : stepOf(event->key());
    event->setAccepted(by != 0 || guiHandleKey(owner, event->key(), true));
    if (by == 0 || !owner)
        return;
    m_isMovedByKeys = true;
    owner->moveBy(by);
}

void guiWidgetDivider::keyReleaseEvent(QKeyEvent* event)
{
    if (m_isMovedByKeys && !event->isAutoRepeat())
        letGo();
    else
        QWidget::keyReleaseEvent(event);
}

// ---- Its looks ----

void guiWidgetDivider::focusInEvent(QFocusEvent* event)
{
    QWidget::focusInEvent(event);
    update();
}

void guiWidgetDivider::focusOutEvent(QFocusEvent* event)
{
    guiEventScope scope;
    QWidget::focusOutEvent(event);
    update();
    if (m_isMovedByKeys)
        letGo();
}

void guiWidgetDivider::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    update();
}

void guiWidgetDivider::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    update();
}

/// A line along the middle with a grip on it; a stroke of the highlight colour while it is used.
void guiWidgetDivider::paintEvent(QPaintEvent*)
{
    constexpr int kGripLength = 28;
    constexpr int kGripWidth = 3;
    bool const isUsed = hasFocus() || m_isDragged;
    QColor line = isUsed ? toQColor(guiFocusInk(palette())) : palette().color(QPalette::Mid);
    QPainter painter(this);
    int const length = m_isHorizontal ? width() : height();
    int const middle = (m_isHorizontal ? height() : width()) / 2;
    int const grip = std::min(kGripLength, length);
    auto const bar = [&](int begin, int size, int thickness) {
        int const across = middle - thickness / 2;
        return m_isHorizontal ? QRect(begin, across, size, thickness) : QRect(across, begin, thickness, size);
    };
    painter.fillRect(bar(0, length, isUsed ? kGripWidth : 1), line);
    if (underMouse() && !isUsed)
        line = palette().color(QPalette::Dark);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(line);
    painter.drawRoundedRect(bar((length - grip) / 2, grip, kGripWidth), 1.5, 1.5);
}
