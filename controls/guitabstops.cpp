// controls/guitabstops.cpp: see guitabstops.h.
#include "controls/guitabstops.h"

#include "controls/guicurrentlink.h"
#include "controls/guiwidgetscrollbar.h"
#include "page/guihtml.h"
#include "page/guinodewatch.h"
#include "page/guitaborder.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QPainterPath>
#include <QPointer>
#include <QScrollBar>
#include <algorithm>
#include <cassert>
#include <vector>

namespace {

QButtonGroup* groupOf(QWidget const* widget)
{
    auto const* button = qobject_cast<QAbstractButton const*>(widget);
    QButtonGroup* group = button ? button->group() : nullptr;
    return group && group->exclusive() ? group : nullptr;
}

/// Whether Tab stops at the widget itself. One that passes the keyboard on to another is not asked.
bool takesTab(QWidget const* widget)
{
    return widget->isEnabled() && !widget->isHidden() && !widget->focusProxy() &&
           (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
}

/// The bar that a pane is entered at takes the keyboard only so.
bool isPane(QWidget const* widget) { return qobject_cast<guiWidgetScrollBar const*>(widget) && !widget->isHidden(); }

/// The stops inside one control: itself, and what it is put together from.
std::vector<QWidget*> stopsInside(QWidget* control)
{
    std::vector<QWidget*> found;
    if (takesTab(control) || isPane(control))
        found.push_back(control);
    for (QWidget* part : control->findChildren<QWidget*>())
        if (takesTab(part) && part->window() == control->window())
            found.push_back(part);
    return found;
}

bool holds(QWidget const* control, QWidget const* widget)
{
    return control && widget && (control == widget || control->isAncestorOf(widget));
}

/// The stop of the same control that comes next, null when `from` is the last.
QWidget* nextInside(QWidget* control, QWidget* from, bool forward)
{
    std::vector<QWidget*> const inside = stopsInside(control);
    auto const at = std::find(inside.begin(), inside.end(), from);
    if (at == inside.end())
        return nullptr;
    if (forward)
        return std::next(at) == inside.end() ? nullptr : *std::next(at);
    return at == inside.begin() ? nullptr : *std::prev(at);
}

bool isSameGroup(guiTabStop const& a, guiTabStop const& b)
{
    if (guiRadioGroup const* group = a.node->getTabGroup())
        return group == b.node->getTabGroup();
    return groupOf(a.widget) && groupOf(a.widget) == groupOf(b.widget);
}

/// Whether the radio button is where its group is entered; true for every other control.
bool isEntry(guiTabStop const& stop)
{
    if (stop.node->getTabGroup())
        return stop.node->isTabEntry();
    QButtonGroup const* group = groupOf(stop.widget);
    QAbstractButton const* checked = group ? group->checkedButton() : nullptr;
    return !checked || !checked->isEnabled() || checked == stop.widget;
}

/// Whether Tab stops in the control, which may still await its widget.
bool takesTab(guiTabStop const& stop)
{
    if (stop.isLink())
        return true;
    return stop.widget ? !stopsInside(stop.widget).empty() : stop.node->isEnabled() != 0;
}

bool hasSize(guiHtml const* node) { return node->m.rect.width > 0 && node->m.rect.height > 0; }

void give(guiHtml* node, QWidget* widget, bool forward) TARN_ON(velaGuiRole)
{
    QPointer<QWidget> const kept(widget); // scrolling may run script
    guiScrollIntoView(node);
    if (kept)
        kept->setFocus(forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

/// Tab enters the control, or the bar of a pane.
void enterControl(guiTabStop const& stop, bool forward) TARN_ON(velaGuiRole)
{
    if (!stop.widget)
        stop.node->createChildWidget();
    std::vector<QWidget*> const inside = stopsInside(stop.widget ? stop.widget : stop.node->getChildWidget());
    if (!inside.empty())
        give(stop.node, forward ? inside.front() : inside.back(), forward);
}

void enterLink(guiTabStop const& stop, bool forward, guiCurrentLink& links) TARN_ON(velaGuiRole)
{
    guiNodeWatch const self(stop.node);
    guiScrollIntoView(stop.node, stop.node->getLinkOutline(stop.link).boundingRect().toAlignedRect());
    if (self.alive())
        links.take({stop.node, stop.link}, forward ? Qt::TabFocusReason : Qt::BacktabFocusReason);
}

void enter(guiTabStop const& stop, bool forward, guiCurrentLink* links) TARN_ON(velaGuiRole)
{
    if (stop.isLink() && links)
        enterLink(stop, forward, *links);
    else
        enterControl(stop, forward);
}

/// The stop that has the keyboard; the number of stops when none has it.
std::size_t findCurrent(std::vector<guiTabStop> const& stops, QWidget const* from, guiCurrentLink const* links)
{
    guiLinkPlace const link = links ? links->get().value_or(guiLinkPlace()) : guiLinkPlace();
    auto const isCurrent = [&](guiTabStop const& each) {
        return link.node ? each.node == link.node && each.link == link.place : holds(each.widget, from);
    };
    return static_cast<std::size_t>(std::find_if(stops.begin(), stops.end(), isCurrent) - stops.begin());
}

/// How far the bar has to move for `begin` to `end` to lie between `first` and `last`; the begin comes first.
int distance(int begin, int end, int first, int last)
{
    if (begin < first)
        return begin - first;
    return end > last ? std::min(begin - first, end - last) : 0;
}

void scrollBy(QScrollBar* bar, int pixels)
{
    if (bar && pixels != 0)
        bar->setValue(bar->value() + pixels);
}

} // namespace

bool guiHoldsFocus(guiHtml* node)
{
    QWidget const* const window = node->getTopLevelWidget();
    QWidget* at = window ? window->focusWidget() : nullptr;
    for (; at && at != window; at = at->parentWidget())
        if (node->findWidget(at))
            return true;
    return false;
}

void guiScrollIntoView(guiHtml* node)
{
    assert(node);
    guiScrollIntoView(node, {0, 0, node->m.rect.width, node->m.rect.height});
}

void guiScrollIntoView(guiHtml* node, QRect const& part)
{
    assert(node);
    guiNodeWatch const self(node);
    for (guiHtml* pane = node->getParent(); pane; pane = self.alive() ? pane->getParent() : nullptr) {
        guiHtml::scroll_t const& scroll = pane->getScroll();
        if (!scroll.barX && !scroll.barY)
            continue;
        guiNodeWatch const watch(pane);
        guiRect corner;
        node->getRectInWidget(&corner);
        guiRect const place{corner.left + part.left(), part.width(), corner.top + part.top(), part.height()};
        guiRect view;
        pane->getRectInWidget(&view);
        scrollBy(scroll.barY, distance(place.top, place.bottom(), view.top, view.bottom()));
        if (!self.alive() || !watch.alive())
            return;
        scrollBy(pane->getScroll().barX, distance(place.left, place.right(), view.left, view.right()));
        if (!watch.alive())
            return;
    }
}

bool guiFocusNext(guiHtml* page, QWidget* from, bool forward, guiCurrentLink* links)
{
    std::vector<guiTabStop> const stops = guiTabStopsOf(page, links != nullptr);
    auto const count = stops.size();
    std::size_t const current = findCurrent(stops, from, links);
    bool const isInControl = current < count && stops[current].widget;
    if (QWidget* next = isInControl ? nextInside(stops[current].widget, from, forward) : nullptr)
        return give(stops[current].node, next, forward), true;
    std::size_t at = current < count ? current : forward ? count - 1 : 0;
    for (std::size_t tried = 0; tried < count; ++tried) {
        at = (at + (forward ? 1 : count - 1)) % count;
        if (at == current)
            break;
        bool const isInGroup = isInControl && isSameGroup(stops[current], stops[at]);
        if (!isInGroup && isEntry(stops[at]) && hasSize(stops[at].node) && takesTab(stops[at]))
            return enter(stops[at], forward, links), true;
    }
    return false;
}
