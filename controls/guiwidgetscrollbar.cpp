// controls/guiwidgetscrollbar.cpp: see guiwidgetscrollbar.h.
#include "controls/guiwidgetscrollbar.h"

#include "controls/guieventscope.h"
#include "page/guihtml.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionSlider>

namespace {

constexpr int kAroundThumb = 4; // pixels: as far as its frame may lie outside its rectangle

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

// A bar covers what it lies on, so that painting the page does not paint the bar, too. Styles that may leave something
// out say when they take the widget over that it does not; what they leave out is painted below.
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
    m_paintedThumb = thumb();
    m_paintedAtEnd = isAtEnd();
}

// At an end a style may draw an arrow in another way.
void guiWidgetScrollBar::sliderChange(SliderChange change)
{
    if (change != SliderValueChange || m_paintedAtEnd || isAtEnd()) {
        QScrollBar::sliderChange(change);
        return;
    }
    QRect const now = thumb();
    if (now != m_paintedThumb)
        update(now | m_paintedThumb);
}
