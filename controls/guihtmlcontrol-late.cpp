// controls/guihtmlcontrol-late.cpp: a control whose widget comes and goes (guilatewidgets.h).
#include "controls/guihtmlcontrol.h"
#include "controls/guilatewidgets.h"
#include "controls/guimistakemark.h"
#include "controls/guiwidget.h"
#include "foundation/vela-threadrole.h"

#include <QAbstractButton>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QScrollBar>
#include <atomic>
#include <cassert>
#include <utility>

namespace {

std::atomic<unsigned long> theLiving{0};

/// Whether the widget is the other one, or stands in it, also in a window of its own, as a pop-up does.
bool isPartOf(QWidget const* widget, QWidget const* whole)
{
    while (widget && widget != whole)
        widget = widget->parentWidget();
    return widget != nullptr;
}

/// A press on a scroll bar does not give the focus to what it scrolls.
bool isScrolling(QWidget const* widget)
{
    auto const* const area = qobject_cast<QAbstractScrollArea const*>(widget);
    return area && (area->verticalScrollBar()->isSliderDown() || area->horizontalScrollBar()->isSliderDown());
}

} // namespace

guiHtmlControl::guiHtmlControl(guiHtml* parent) : guiHtml(parent) { theLiving.fetch_add(1, std::memory_order_relaxed); }

guiHtmlControl::~guiHtmlControl()
{
    onDestroyChildWidget();
    theLiving.fetch_sub(1, std::memory_order_relaxed);
}

unsigned long guiHtmlControl::living() { return theLiving.load(std::memory_order_relaxed); }

bool guiHtmlControl::isOutOfView()
{
    guiRect clip;
    getClipRect(&clip);
    return clip.isEmpty();
}

/// The control has its place now. Whether its widget has to wait.
bool guiHtmlControl::awaits(guiWidget& window)
{
    assertOnGuiThread();
    if (!window.lateWidgets().concerns(this))
        return false;
    onLate();
    if (getChildWidget()) {
        window.lateWidgets().add(this);
        return false;
    }
    await();
    return isOutOfView();
}

void guiHtmlControl::await()
{
    assert(!getChildWidget() && hasWindow());
    if (m_late.isAwaiting)
        return;
    dirtyTabOrder();
    onLate();
    m_late.isAwaiting = true;
    onAwait();
}

/// The widget that was awaited is there.
void guiHtmlControl::arrive()
{
    assertOnGuiThread();
    m_late.isAwaiting = false;
    getWindow()->lateWidgets().add(this);
    if (std::exchange(m_late.isMarked, false))
        showMistake();
}

QWidget* guiHtmlControl::needWidget()
{
    if (m_late.isAwaiting)
        createChildWidget();
    return getChildWidget();
}

bool guiHtmlControl::isAtWork()
{
    QWidget const* const widget = getChildWidget();
    auto const* const button = qobject_cast<QAbstractButton const*>(widget);
    return isPartOf(getWindow()->focusWidget(), widget) || isPartOf(QApplication::activePopupWidget(), widget) ||
           (button && button->isDown()) || isScrolling(widget);
}

void guiHtmlControl::letGo()
{
    assertOnGuiThread();
    if (!getChildWidget() || !mayAwait() || isAtWork())
        return;
    onLate();
    keepState();
    bool const isMarked = m_mark && m_mark->isAwake();
    m_late.isAwaiting = true; // the order of the controls is as before
    destroyChildWidget();
    m_mark = nullptr;
    m_late = {.isAwaiting = true, .isMarked = isMarked};
}
