// controls/guiscrollkeys.cpp: see guiscrollkeys.h.
#include "controls/guiscrollkeys.h"

#include "page/guihtml.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <optional>

namespace {

struct scrollStep
{
    Qt::Orientation orientation;
    QAbstractSlider::SliderAction action;
};

std::optional<scrollStep> stepOf(QKeyEvent const& event)
{
    Qt::KeyboardModifiers const modifiers = event.modifiers() & ~Qt::KeypadModifier;
    bool const isBack = event.key() == Qt::Key_Space && modifiers == Qt::ShiftModifier;
    if (modifiers != Qt::NoModifier && !isBack)
        return std::nullopt;
    switch (event.key()) {
    case Qt::Key_PageUp:
        return scrollStep{Qt::Vertical, QAbstractSlider::SliderPageStepSub};
    case Qt::Key_PageDown:
        return scrollStep{Qt::Vertical, QAbstractSlider::SliderPageStepAdd};
    case Qt::Key_Space:
        return scrollStep{Qt::Vertical,
                          isBack ? QAbstractSlider::SliderPageStepSub : QAbstractSlider::SliderPageStepAdd};
    case Qt::Key_Home:
        return scrollStep{Qt::Vertical, QAbstractSlider::SliderToMinimum};
    case Qt::Key_End:
        return scrollStep{Qt::Vertical, QAbstractSlider::SliderToMaximum};
    case Qt::Key_Up:
        return scrollStep{Qt::Vertical, QAbstractSlider::SliderSingleStepSub};
    case Qt::Key_Down:
        return scrollStep{Qt::Vertical, QAbstractSlider::SliderSingleStepAdd};
    case Qt::Key_Left:
        return scrollStep{Qt::Horizontal, QAbstractSlider::SliderSingleStepSub};
    case Qt::Key_Right:
        return scrollStep{Qt::Horizontal, QAbstractSlider::SliderSingleStepAdd};
    default:
        return std::nullopt;
    }
}

bool canScroll(QScrollBar const* bar) { return bar && bar->minimum() < bar->maximum(); }

QScrollBar* barAround(guiHtml* node, Qt::Orientation orientation)
{
    for (guiHtml* at = node; at; at = at->getParent()) {
        guiHtml::scroll_t const& scroll = at->getScroll();
        QScrollBar* bar = orientation == Qt::Vertical ? scroll.barY.data() : scroll.barX.data();
        if (canScroll(bar))
            return bar;
    }
    return nullptr;
}

} // namespace

bool guiScrollByKey(guiHtml* page, guiHtml* focused, QScrollBar* pane, QKeyEvent const& event)
{
    std::optional<scrollStep> const step = stepOf(event);
    if (!step)
        return false;
    QScrollBar* bar = step->orientation == Qt::Vertical && canScroll(pane) ? pane : nullptr;
    if (!bar)
        bar = barAround(focused, step->orientation);
    if (!bar)
        bar = barAround(page, step->orientation);
    if (!bar)
        return false;
    bar->triggerAction(step->action);
    return true;
}
