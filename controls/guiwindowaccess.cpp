// controls/guiwindowaccess.cpp: see guiwindowaccess.h.
#include "controls/guiwindowaccess.h"

#include "controls/guiclipper.h"
#include "controls/guipageaccess.h"
#include "controls/guiwidget.h"
#include "page/guipageroot.h"

#include <QMenuBar>
#include <algorithm>

guiWindowAccess::guiWindowAccess(guiWidget* window) : QAccessibleWidget(window, QAccessible::Dialog), m_window(window)
{}

QList<QAccessibleInterface*> guiWindowAccess::children() const
{
    QList<QAccessibleInterface*> all;
    guiPageRoot* const page = m_window ? m_window->htmlBase : nullptr;
    if (!page)
        return all;
    all.append(guiAccessOf(page));
    for (QWidget* bar : {static_cast<QWidget*>(page->getMenuBar()), page->getStatusBar()})
        if (QAccessibleInterface* const object = bar ? QAccessible::queryAccessibleInterface(bar) : nullptr)
            all.append(object);
    return all;
}

int guiWindowAccess::childCount() const { return static_cast<int>(children().size()); }
QAccessibleInterface* guiWindowAccess::child(int index) const { return children().value(index, nullptr); }

int guiWindowAccess::indexOfChild(QAccessibleInterface const* child) const
{
    QList<QAccessibleInterface*> const all = children();
    auto const found = std::find(all.begin(), all.end(), child);
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}

/// The page lies under the bars.
QAccessibleInterface* guiWindowAccess::childAt(int x, int y) const
{
    QList<QAccessibleInterface*> const all = children();
    auto const isThere = [x, y](QAccessibleInterface* each) { return each->rect().contains(x, y); };
    auto const found = std::find_if(all.rbegin(), all.rend(), isThere);
    return found == all.rend() ? nullptr : *found;
}

QAccessibleInterface* guiWindowAccess::focusChild() const
{
    if (!m_window || !m_window->hasFocus())
        return QAccessibleWidget::focusChild();
    std::optional<guiLinkPlace> const link = m_window->currentLink().get();
    return link ? guiAccessOf(*link) : nullptr;
}

// ---- Widgets that clip ----

guiClipAccess::guiClipAccess(guiClipper* clipper) : m_clipper(clipper) {}

guiClipAccess::~guiClipAccess() = default;

guiHtml* guiClipAccess::control() const
{
    auto* const window = m_clipper ? qobject_cast<guiWidget*>(m_clipper->window()) : nullptr;
    return window && window->htmlBase ? m_clipper->owner : nullptr;
}

QAccessibleInterface* guiClipAccess::around() const { return control() ? guiAccessAround(control()) : nullptr; }

QObject* guiClipAccess::object() const { return m_clipper; }
QWindow* guiClipAccess::window() const { return around() ? around()->window() : nullptr; }
QAccessibleInterface* guiClipAccess::parent() const { return around() ? around()->parent() : nullptr; }
QAccessibleInterface* guiClipAccess::child(int index) const { return around() ? around()->child(index) : nullptr; }
QAccessibleInterface* guiClipAccess::childAt(int x, int y) const
{
    return around() ? around()->childAt(x, y) : nullptr;
}
int guiClipAccess::childCount() const { return around() ? around()->childCount() : 0; }

int guiClipAccess::indexOfChild(QAccessibleInterface const* child) const
{
    return around() ? around()->indexOfChild(child) : -1;
}

QString guiClipAccess::text(QAccessible::Text kind) const { return around() ? around()->text(kind) : QString(); }
QRect guiClipAccess::rect() const { return around() ? around()->rect() : QRect(); }
QAccessible::Role guiClipAccess::role() const { return around() ? around()->role() : QAccessible::Section; }

QAccessible::State guiClipAccess::state() const
{
    QAccessible::State gone;
    gone.invalid = true;
    return around() ? around()->state() : gone;
}
