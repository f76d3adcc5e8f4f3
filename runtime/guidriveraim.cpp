// runtime/guidriveraim.cpp: see guidriveraim.h.
#include "runtime/guidriveraim.h"

#include "controls/guiaccessname.h"
#include "controls/guihtmlcontrol.h"
#include "controls/guitabstops.h"
#include "foundation/vela-qt.h"
#include "page/guihtmlsheet.h"
#include "page/guinodewatch.h"
#include "page/guiqrect.h"
#include "runtime/guidriverlook.h"
#include "runtime/guidriverrows.h"
#include "runtime/guidriverwindows.h"
#include "runtime/guihtmlbase.h"

#include <QAbstractItemView>
#include <QMenu>
#include <QMenuBar>
#include <QPainterPath>
#include <QTabBar>

namespace {

guiDriverPlace problem(QString const& text) { return {{}, text}; }

/// How a message names what lies over something else.
QString nameOfWidget(QWidget* window, QWidget* widget)
{
    guiHtmlBase* const page = guiDriver_pageOf(window);
    guiHtml* const node = page ? page->findWidget(widget) : nullptr;
    if (node && node->getName().getLength() != 0)
        return QStringLiteral("\"%1\"").arg(sstoq(node->getName()));
    QString const label = node ? guiAccessNameOf(node) : QString();
    return label.isEmpty() ? QStringLiteral("another part of the window") : QStringLiteral("\"%1\"").arg(label);
}

/// The middle of what is seen of the area of a widget, if a click there reaches it.
guiDriverPlace placeOn(QWidget* window, QWidget* widget, QRect area)
{
    if (!widget->isVisibleTo(window))
        return problem(QStringLiteral("not in view: the window has no room for it"));
    for (QWidget* each = widget; each != window; each = each->parentWidget())
        area = area.intersected(each->rect()).translated(each->pos());
    area = area.intersected(window->rect());
    if (area.isEmpty())
        return problem(QStringLiteral("not in view: the window has no room for it"));
    QPoint const at = area.center();
    QWidget* const hit = window->childAt(at);
    if (widget != window && hit != widget && !(hit && widget->isAncestorOf(hit)))
        return problem(QStringLiteral("covered by %1").arg(nameOfWidget(window, hit ? hit : window)));
    return {at, {}};
}

guiDriverPlace placeOfPart(QWidget* window, guiDriverThing const& thing)
{
    QWidget* const widget = thing.widget;
    if (auto const* tabs = qobject_cast<QTabBar*>(widget))
        return placeOn(window, widget, tabs->tabRect(thing.part));
    QAction* const action = widget->actions().value(thing.part);
    if (auto const* menu = qobject_cast<QMenu*>(widget); menu && action)
        return placeOn(window, widget, menu->actionGeometry(action));
    if (auto const* bar = qobject_cast<QMenuBar*>(widget); bar && action)
        return placeOn(window, widget, bar->actionGeometry(action));
    auto* const view = guiDriver_viewIn(widget);
    QRect const row = view ? guiDriver_showRow(*view, thing.part) : QRect();
    return row.isEmpty() ? problem(QStringLiteral("not in view: the row above it is collapsed"))
                         : placeOn(window, view->viewport(), row);
}

/// The first line of a link, which may go over several.
QRect firstLineOf(guiHtml* node, unsigned link)
{
    QList<QPolygonF> const lines = node->getLinkOutline(link).toSubpathPolygons();
    return lines.isEmpty() ? QRect() : lines.constFirst().boundingRect().toAlignedRect();
}

/// Something that the page itself shows: a click at its middle must find it, or something in it.
guiDriverPlace placeOnPage(QWidget* window, guiHtml* node, QRect const& part)
{
    guiRect whole;
    guiRect seen;
    node->getRectInWidget(&whole);
    node->getClipRect(&seen);
    QRect const area = part.translated(whole.left, whole.top).intersected(guiToQRect(seen)).intersected(window->rect());
    if (area.isEmpty())
        return problem(part.isEmpty() ? QStringLiteral("without any size")
                                      : QStringLiteral("not in view: the window has no room for it"));
    QPoint const at = area.center();
    QWidget* const hit = window->childAt(at);
    guiHtml* const over = hit ? guiDriver_pageOf(window)->findWidget(hit) : nullptr;
    for (guiHtml* each = over; each; each = each->getParent())
        if (each == node)
            return {at, {}};
    return hit ? problem(QStringLiteral("covered by %1").arg(nameOfWidget(window, hit))) : guiDriverPlace{at, {}};
}

guiDriverPlace placeOfControl(QWidget* window, guiHtmlControl* control)
{
    QWidget* const widget = control->needWidget();
    if (!widget)
        return problem(QStringLiteral("without anything to click"));
    if (!widget->isEnabled())
        return problem(QStringLiteral("disabled"));
    return placeOn(window, widget, widget->rect());
}

guiDriverPlace placeOfNode(QWidget* window, guiDriverThing const& thing) TARN_ON(velaGuiRole)
{
    guiHtml* const node = thing.node;
    if (guiIsPutAway(node) || node->m.visible == 0)
        return problem(QStringLiteral("hidden"));
    if (node->isEnabled() == 0)
        return problem(QStringLiteral("disabled"));
    QRect const part = thing.link >= 0 ? firstLineOf(node, static_cast<unsigned>(thing.link))
                                       : QRect(0, 0, node->m.rect.width, node->m.rect.height);
    guiNodeWatch const self(node);
    guiScrollIntoView(node, part);
    if (!self.alive())
        return problem(QStringLiteral("gone"));
    auto* const control = dynamic_cast<guiHtmlControl*>(node);
    if (!control)
        return placeOnPage(window, node, part);
    guiDriverPlace whole = placeOfControl(window, control);
    if (!whole.problem.isEmpty() || thing.part < 0)
        return whole;
    return placeOfPart(window, {nullptr, control->getChildWidget(), -1, thing.part});
}

} // namespace

guiDriverPlace guiDriver_aim(QWidget* window, guiDriverThing const& thing)
{
    assertOnGuiThread();
    if (thing.node)
        return placeOfNode(window, thing);
    if (!thing.widget)
        return problem(QStringLiteral("gone"));
    QAction const* const action = thing.part >= 0 ? thing.widget->actions().value(thing.part) : nullptr;
    if (!thing.widget->isEnabled() || (action && !action->isEnabled()))
        return problem(QStringLiteral("disabled"));
    return thing.part >= 0 ? placeOfPart(window, thing) : placeOn(window, thing.widget, thing.widget->rect());
}
