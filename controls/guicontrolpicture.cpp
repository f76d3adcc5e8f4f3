// controls/guicontrolpicture.cpp: see guicontrolpicture.h.
#include "controls/guicontrolpicture.h"

#include "controls/guiclipdevice.h"
#include "controls/guihtmlcontrol.h"
#include "page/guionpaper.h"
#include "page/guisavedpainter.h"

#include <QAbstractScrollArea>
#include <QCoreApplication>
#include <QPainter>
#include <QRect>
#include <QRegion>
#include <QResizeEvent>
#include <QScrollBar>
#include <QWidget>
#include <cassert>

namespace {

/// The size and the place of scrolling of a widget, which it has again in the end.
class keptSize
{
public:
    explicit keptSize(QWidget& widget) : m_widget(widget), m_size(widget.size())
    {
        if (auto* const area = qobject_cast<QAbstractScrollArea*>(&widget))
            m_scrolled = {area->horizontalScrollBar()->value(), area->verticalScrollBar()->value()};
    }
    ~keptSize()
    {
        m_widget.resize(m_size);
        auto* const area = qobject_cast<QAbstractScrollArea*>(&m_widget);
        if (!area)
            return;
        area->horizontalScrollBar()->setValue(m_scrolled.x());
        area->verticalScrollBar()->setValue(m_scrolled.y());
    }
    keptSize(keptSize const&) = delete;
    keptSize& operator=(keptSize const&) = delete;

private:
    QWidget& m_widget;
    QSize m_size;
    QPoint m_scrolled;
};

/// The toolkit tells hidden widgets of a new size when they are shown: those of windows that are not, and those out of
/// view.
void tellSizes(QWidget& widget)
{
    if (widget.testAttribute(Qt::WA_PendingResizeEvent)) {
        QResizeEvent event(widget.size(), QSize());
        widget.setAttribute(Qt::WA_PendingResizeEvent, false);
        QCoreApplication::sendEvent(&widget, &event);
    }
    for (QObject* child : widget.children())
        if (child->isWidgetType() && !static_cast<QWidget*>(child)->isWindow())
            tellSizes(*static_cast<QWidget*>(child));
}

void paint(QPainter& painter, QWidget& widget, QRect const& place)
{
    widget.resize(place.size());
    widget.ensurePolished();
    tellSizes(widget);
    guiSavedPainter const saved(painter);
    painter.translate(place.topLeft());
    guiClipDevice device(painter, place.size());
    QPainter inner(&device);
    widget.render(&inner, QPoint(), QRegion(), QWidget::DrawChildren);
}

/// In a window that has never been shown no control has a widget yet.
void awaitOrMake(guiHtmlControl& control)
{
    if (control.awaitsWidget() || control.getChildWidget())
        return;
    if (control.mayAwait())
        control.await();
    else
        control.createChildWidget();
}

} // namespace

void guiPaintControl(QPainter& painter, guiHtml* node, QRect const& place)
{
    assert(guiOnPaper::isActive());
    auto* const control = dynamic_cast<guiHtmlControl*>(node);
    if (!control)
        return;
    awaitOrMake(*control);
    bool const isAwaited = control->awaitsWidget();
    QWidget* const widget = control->needWidget();
    if (!widget)
        return;
    if (isAwaited) {
        paint(painter, *widget, place);
        control->letGo();
        return;
    }
    keptSize const kept(*widget);
    paint(painter, *widget, place);
}
