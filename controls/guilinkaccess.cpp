// controls/guilinkaccess.cpp: see guilinkaccess.h.
#include "controls/guilinkaccess.h"

#include "controls/guicontrolhost.h"
#include "controls/guieventscope.h"
#include "controls/guinodeaccess.h"
#include "controls/guipageaccess.h"
#include "controls/guitabstops.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "page/guiuserevent.h"

#include <QApplication>
#include <QPointer>
#include <QWindow>
#include <algorithm>
#include <functional>
#include <memory>

namespace {

bool isBehindModal(QWidget const* window)
{
    QWidget const* const modal = QApplication::activeModalWidget();
    return modal && modal != window && !modal->isAncestorOf(window);
}

/// Does the work soon, if the user could do it then.
void postFor(guiHtml* node, std::function<void(guiHtml* node, guiWidget& window)> const& work)
{
    auto* const window = qobject_cast<guiWidget*>(node->getTopLevelWidget());
    if (!window)
        return;
    auto const watch = std::make_shared<guiNodeWatch>(node);
    QMetaObject::invokeMethod(
        window,
        [watch, window, work] {
            guiEventScope scope;
            if (watch->alive() && !guiControlHost::current().isInputBlocked() && !isBehindModal(window))
                work(watch->get(), *window);
        },
        Qt::QueuedConnection);
}

/// What a click would be, for the handlers that hear of it.
guiUserInput clickAt(QPoint place)
{
    guiUserInput input;
    input.type = sstring("mousedown");
    input.button = sstring("left");
    input.place = place;
    return input;
}

} // namespace

guiLinkAccess::guiLinkAccess(guiLinkPlace const& link) : m_link(link) {}

guiLinkAccess::~guiLinkAccess() = default;

bool guiLinkAccess::isValid() const { return m_link.node->getTopLevelWidget() != nullptr; }

QWindow* guiLinkAccess::window() const
{
    QWidget const* const window = m_link.node->getTopLevelWidget();
    return window ? window->windowHandle() : nullptr;
}

QAccessibleInterface* guiLinkAccess::parent() const { return guiAccessOf(m_link.node); }

QString guiLinkAccess::text(QAccessible::Text kind) const
{
    return kind == QAccessible::Name ? sstoq(m_link.node->getLinkText(m_link.place)) : QString();
}

QRect guiLinkAccess::rect() const
{
    return guiRectOnScreen(m_link.node, m_link.node->getLinkOutline(m_link.place).boundingRect().toAlignedRect());
}

QAccessible::State guiLinkAccess::state() const
{
    QAccessible::State state = guiStateOfPart(m_link.node, rect());
    auto* const window = qobject_cast<guiWidget*>(m_link.node->getTopLevelWidget());
    state.focusable = !state.disabled;
    state.focused = window && window->hasFocus() && window->currentLink().get() == m_link;
    state.linked = true;
    return state;
}

void* guiLinkAccess::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
}

QStringList guiLinkAccess::actionNames() const
{
    bool const canBeUsed = isValid() && m_link.node->isEnabled();
    return canBeUsed ? QStringList{pressAction(), setFocusAction()} : QStringList();
}

void guiLinkAccess::doAction(QString const& name)
{
    if (actionNames().contains(name))
        guiPostToLink(m_link, name == pressAction());
}

void guiPostToLink(guiLinkPlace const& link, bool follow)
{
    postFor(link.node, [place = link.place, follow](guiHtml* node, guiWidget& window) {
        assertOnGuiThread();
        std::vector<unsigned> places;
        node->findLinks(places);
        if (std::find(places.begin(), places.end(), place) == places.end() || !node->isEnabled())
            return;
        QRect const area = node->getLinkOutline(place).boundingRect().toAlignedRect();
        guiInputScope const input(clickAt(guiRectOnScreen(node, area).center()));
        guiNodeWatch const self(node);
        guiScrollIntoView(node, area);
        if (self.alive())
            window.currentLink().take({node, place}, Qt::OtherFocusReason);
        if (self.alive() && follow)
            node->followLinkAt(place);
    });
}

void guiPostToControl(guiHtml* control, bool press)
{
    postFor(control, [press](guiHtml* node, guiWidget&) {
        assertOnGuiThread();
        guiInputScope const input(clickAt(guiRectOnScreen(node, {0, 0, 1, 1}).center()));
        guiNodeWatch const self(node);
        guiScrollIntoView(node);
        if (self.alive())
            node->onLabel(); // makes its widget
        if (self.alive() && press)
            node->triggerNow();
    });
}

void guiPostScroll(guiHtml* node, QRect const& part)
{
    postFor(node, [part](guiHtml* there, guiWidget&) {
        assertOnGuiThread();
        guiScrollIntoView(there, part);
    });
}
