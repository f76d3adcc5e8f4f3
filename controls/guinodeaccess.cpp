// controls/guinodeaccess.cpp: see guinodeaccess.h.
#include "controls/guinodeaccess.h"

#include "controls/guiaccessname.h"
#include "controls/guiaccessrole.h"
#include "controls/guilinkaccess.h"
#include "controls/guipageaccess.h"
#include "foundation/vela-qt.h"
#include "page/guihtmlsize.h"
#include "page/guiqrect.h"
#include "page/guirareattributes.h"

#include <QWidget>
#include <QWindow>
#include <algorithm>

QRect guiRectOnScreen(guiHtml* node, QRect const& part)
{
    QWidget const* const window = node->getTopLevelWidget();
    if (!window)
        return {};
    guiRect corner;
    guiRect clip;
    node->getRectInWidget(&corner);
    node->getClipRect(&clip);
    QRect const seen = part.translated(corner.left, corner.top).intersected(guiToQRect(clip));
    return seen.isEmpty() ? QRect() : seen.translated(window->mapToGlobal(QPoint()));
}

QAccessible::State guiStateOfPart(guiHtml* node, QRect const& onScreen)
{
    QAccessible::State state;
    state.invalid = !node->getTopLevelWidget();
    state.disabled = !node->isEnabled();
    state.offscreen = onScreen.isEmpty();
    return state;
}

guiNodeAccess::guiNodeAccess(guiHtml* node) : m_node(node) {}

guiNodeAccess::~guiNodeAccess() = default;

bool guiNodeAccess::isValid() const
{
    return m_node->getTopLevelWidget() && (m_node->getType() != guiHtml::kTypeControl || !m_node->getChildWidget());
}

QWindow* guiNodeAccess::window() const
{
    QWidget const* const window = m_node->getTopLevelWidget();
    return window ? window->windowHandle() : nullptr;
}

// ---- The tree ----

QAccessibleInterface* guiNodeAccess::parent() const { return guiAccessAround(m_node); }

std::vector<guiHtml*> const& guiNodeAccess::nodes() const
{
    bool const isKnown = m_generation == guiHtml::generation() && m_layout == guiLayoutRun::number();
    if (!isKnown)
        m_nodes = guiNodesToRead(m_node);
    m_generation = guiHtml::generation();
    m_layout = guiLayoutRun::number();
    return m_nodes;
}

/// Those that are children. A picture that is a link as a whole has none.
std::vector<unsigned> guiNodeAccess::links() const
{
    std::vector<unsigned> places;
    if (!isLink())
        m_node->findLinks(places);
    return places;
}

bool guiNodeAccess::isLink() const { return guiAccessRoleOf(m_node) == QAccessible::Link; }

int guiNodeAccess::childCount() const { return static_cast<int>(nodes().size() + links().size()); }

QAccessibleInterface* guiNodeAccess::child(int index) const
{
    auto const at = static_cast<std::size_t>(std::max(index, 0));
    if (index < 0)
        return nullptr;
    if (at < nodes().size())
        return guiAccessOf(nodes()[at]);
    std::vector<unsigned> const places = links();
    std::size_t const link = at - nodes().size();
    return link < places.size() ? guiAccessOf(guiLinkPlace{m_node, places[link]}) : nullptr;
}

int guiNodeAccess::indexOfChild(QAccessibleInterface const* child) const
{
    if (!child)
        return -1;
    auto const isIt = [child](guiHtml* node) { return guiIsAccessOf(child, node); };
    auto const found = std::find_if(nodes().begin(), nodes().end(), isIt);
    if (found != nodes().end())
        return static_cast<int>(found - nodes().begin());
    auto const* const link = dynamic_cast<guiLinkAccess const*>(child);
    std::vector<unsigned> const places = links();
    auto const place = link && link->link().node == m_node ? std::find(places.begin(), places.end(), link->link().place)
                                                           : places.end();
    return place == places.end() ? -1 : static_cast<int>(nodes().size()) + static_cast<int>(place - places.begin());
}

QAccessibleInterface* guiNodeAccess::childAt(int x, int y) const
{
    for (int i = 0; i < childCount(); ++i)
        if (QAccessibleInterface* const each = child(i); each && each->rect().contains(x, y))
            return each;
    return nullptr;
}

// ---- What it is ----

QString guiNodeAccess::text(QAccessible::Text kind) const
{
    switch (kind) {
    case QAccessible::Name:
        return guiAccessNameOf(m_node);
    case QAccessible::Description:
        return guiAccessDescriptionOf(m_node);
    case QAccessible::Value:
        return sstoq(guiRareAttributeOf(m_node, guiRareAttribute::kValue));
    default:
        return {};
    }
}

QRect guiNodeAccess::rect() const
{
    return guiRectOnScreen(m_node, {0, 0, m_node->m.rect.width, m_node->m.rect.height});
}

QAccessible::Role guiNodeAccess::role() const { return guiAccessRoleOf(m_node); }

QAccessible::State guiNodeAccess::state() const
{
    QAccessible::State state = guiStateOfPart(m_node, rect());
    QWidget const* const widget = m_node->getChildWidget();
    state.invalid = !isValid();
    state.readOnly = !m_node->awaitsWidget();
    state.focusable = !actionNames().isEmpty() || (widget && widget->focusPolicy() != Qt::NoFocus);
    state.focused = widget && widget->hasFocus();
    if (m_node->awaitsWidget())
        guiAddStateOf(m_node, state);
    return state;
}

void* guiNodeAccess::interface_cast(QAccessible::InterfaceType type)
{
    bool const canAct = type == QAccessible::ActionInterface && !actionNames().isEmpty();
    return canAct ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

// ---- What can be done ----

QStringList guiNodeAccess::actionNames() const
{
    if (!isValid() || !m_node->isEnabled())
        return {};
    if (isLink())
        return {pressAction(), setFocusAction()};
    if (!m_node->awaitsWidget())
        return {};
    return guiAccessRoleOf(m_node) == QAccessible::EditableText ? QStringList{setFocusAction()}
                                                                : QStringList{setFocusAction(), pressAction()};
}

void guiNodeAccess::doAction(QString const& name)
{
    if (!actionNames().contains(name))
        return;
    if (isLink())
        guiPostToLink({m_node, 0}, name == pressAction());
    else
        guiPostToControl(m_node, name == pressAction());
}
