// controls/guiwidgetscrollbar.cpp: see guiwidgetscrollbar.h.
#include "controls/guiwidgetscrollbar.h"

#include "controls/guieventscope.h"
#include "page/guicolor.h"
#include "page/guihtml.h"
#include "page/guiinks.h"

#include <QKeyEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionSlider>

namespace {

constexpr int kAroundThumb = 4; // pixels by which the frame may exceed the thumb's rectangle

} // namespace

guiWidgetScrollBar::guiWidgetScrollBar(Qt::Orientation orientation, QWidget* parent, char const* name)
    : QScrollBar(orientation, parent)
{
    setObjectName(QString::fromUtf8(name));
    setTracking(true);
    setFocusPolicy(orientation == Qt::Vertical ? Qt::StrongFocus : Qt::NoFocus);
    connect(this, &QScrollBar::valueChanged, this, &guiWidgetScrollBar::onChange);
}

void guiWidgetScrollBar::onChange(int value)
{
    if (!owner)
        return;
    guiEventScope scope;
    if (owner->getScroll().barY == this)
        owner->onScrollY(value);
    else if (owner->getScroll().barX == this)
        owner->onScrollX(value);
}

QRect guiWidgetScrollBar::thumb() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    QRect const rect = style()->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider, this);
    return rect.adjusted(-kAroundThumb, -kAroundThumb, kAroundThumb, kAroundThumb);
}

// An opaque bar is not painted again whenever the page under it is. Styles that may leave pixels unpainted switch this
// off when they are set up for the widget; paintEvent() fills those pixels, so it is switched on again.
bool guiWidgetScrollBar::event(QEvent* event)
{
    bool const isUsed = QScrollBar::event(event);
    if (event->type() == QEvent::Polish || event->type() == QEvent::StyleChange)
        setAttribute(Qt::WA_OpaquePaintEvent);
    return isUsed;
}

void guiWidgetScrollBar::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), palette().color(QPalette::Window));
    QScrollBar::paintEvent(event);
    if (hasFocus())
        paintFrame();
    m_paintedThumb = thumb();
    m_paintedAtEnd = isAtEnd();
}

void guiWidgetScrollBar::paintFrame()
{
    constexpr int kThickness = 2;
    QPainter painter(this);
    painter.setPen(QPen(toQColor(guiFocusInk(palette())), kThickness, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void guiWidgetScrollBar::focusInEvent(QFocusEvent* event)
{
    QScrollBar::focusInEvent(event);
    update();
}

void guiWidgetScrollBar::focusOutEvent(QFocusEvent* event)
{
    QScrollBar::focusOutEvent(event);
    update();
}

void guiWidgetScrollBar::keyPressEvent(QKeyEvent* event) { event->ignore(); }

// At an end of the range a style may draw one of the arrows differently, so then all is repainted.
void guiWidgetScrollBar::sliderChange(SliderChange change)
{
    if (change != SliderValueChange || m_paintedAtEnd || isAtEnd() || hasFocus()) {
        QScrollBar::sliderChange(change);
        return;
    }
    QRect const now = thumb();
    if (now != m_paintedThumb)
        update(now | m_paintedThumb);
}
