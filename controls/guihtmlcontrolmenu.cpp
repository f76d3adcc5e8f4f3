// controls/guihtmlcontrolmenu.cpp: see guihtmlcontrolmenu.h.
#include "controls/guihtmlcontrolmenu.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetmenubar.h"
#include "controls/guiwidgetpopupmenu.h"
#include "foundation/vela-qt.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

#include <QAction>
#include <algorithm>

namespace {

guiHtmlControlMenu::menuItems copyItems(guiHtmlControlMenu::menuItems const& items)
{
    guiHtmlControlMenu::menuItems copies;
    for (auto const& item : items) {
        auto copy = std::make_unique<guiHtmlControlMenuItem>();
        copy->name = item->name;
        copy->text = item->text;
        copy->checkable = item->checkable;
        copy->checked = item->checked;
        copy->enabled = item->enabled;
        copy->children = copyItems(item->children);
        copies.push_back(std::move(copy));
    }
    return copies;
}

} // namespace

guiHtml& guiHtmlControlMenu::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* menu = dynamic_cast<guiHtmlControlMenu*>(&other);
    if (!menu || menu == this)
        return *this;
    destroyWidgets(); // of the items that go
    m_items = copyItems(menu->m_items);
    return *this;
}

guiHtml* guiHtmlControlMenu::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

bool guiHtmlControlMenuItem::AreChildrenCheckable() const
{
    return std::any_of(children.begin(), children.end(), [](auto const& child) { return child->checkable != 0; });
}

void guiHtmlControlMenuItem::destroyPopup()
{
    for (auto const& child : children)
        child->destroyPopup();
    if (action) {
        checked = action->isChecked();
        enabled = action->isEnabled();
    }
    action = nullptr; // goes with the menu that holds it
    guiDestroyWrapper(popup);
}

guiHtmlControlMenu::~guiHtmlControlMenu() { destroyWidgets(); }

int guiHtmlControlMenu::getHeightEstimate(unsigned long) { return m_menuBar ? m_menuBar->sizeHint().height() : 0; }

// The bar has to exist before heights are asked for: the first layout reckons with it then.
int guiHtmlControlMenu::calcDynamicLayout()
{
    createChildWidget();
    return guiHtmlControl::calcDynamicLayout();
}

void guiHtmlControlMenu::setRect(guiRect* rect)
{
    guiHtml::setRect(rect);
    createChildWidget();
    placeMenuBar();
}

/// The bar stands along the top of the window, wherever the page has the menu and however far it is scrolled.
void guiHtmlControlMenu::placeMenuBar()
{
    if (m_menuBar)
        m_menuBar->setGeometry(0, 0, m_menuBar->parentWidget()->width(), m_menuBar->sizeHint().height());
}

void guiHtmlControlMenu::createChildWidget()
{
    if (m_menuBar || !hasWindow())
        return;
    m_menuBar = new guiWidgetMenuBar(getTopLevelWidget());
    m_menuBar->setFont(getDefaultFont(nullptr));
    fillMenu(m_menuBar, m_items);
    m_menuBar->owner = this;
    m_menuBar->setEnabled(m.enabled);
    if (guiPageRoot* base = getBaseHtml())
        base->setMenuBar(m_menuBar);
    placeMenuBar();
    m_menuBar->show();
}

void guiHtmlControlMenu::fillMenu(QWidget* menu, menuItems const& items)
{
    for (auto const& item : items)
        insertItem(menu, *item);
}

void guiHtmlControlMenu::insertItem(QWidget* menu, guiHtmlControlMenuItem& item)
{
    guiLayoutRun::startAnew(); // a bar with an item is higher than one without
    item.id = m_nextId++;
    m_byId[item.id] = &item;
    item.action = item.children.empty() ? createEntry(menu) : createPopupMenu(item)->menuAction();
    showText(item);
    item.action->setData(item.id);
    item.action->setCheckable(item.checkable || item.checked);
    item.action->setChecked(item.checked != 0);
    item.action->setEnabled(item.enabled != 0);
    menu->addAction(item.action);
}

void guiHtmlControlMenu::showText(guiHtmlControlMenuItem const& item)
{
    item.action->setSeparator(item.isSeparator());
    item.action->setText(item.isSeparator() ? QString() : sstoq(item.text)); // a line with a text shows that, too
}

// The toolkit would check or uncheck an entry that is chosen; here that is for the page's handler to decide. This is
// connected before the menu is, so that the mark is right when the handler looks.
QAction* guiHtmlControlMenu::createEntry(QWidget* menu)
{
    auto* action = new QAction(menu);
    QObject::connect(action, &QAction::triggered, action, [action](bool checked) { action->setChecked(!checked); });
    return action;
}

guiWidgetPopupMenu* guiHtmlControlMenu::createPopupMenu(guiHtmlControlMenuItem& item)
{
    item.popup = new guiWidgetPopupMenu(getTopLevelWidget());
    item.popup->setFont(getDefaultFont(nullptr));
    item.popup->owner = this;
    fillMenu(item.popup, item.children);
    return item.popup;
}

void guiHtmlControlMenu::setEnabled(int enabled)
{
    guiHtmlControl::setEnabled(enabled);
    if (m_menuBar)
        m_menuBar->setEnabled(enabled > 0);
}

void guiHtmlControlMenu::destroyChildWidget()
{
    guiHtmlControl::destroyChildWidget();
    destroyWidgets();
}

void guiHtmlControlMenu::destroyWidgets()
{
    if (!m_menuBar)
        return;
    guiPageRoot* base = getBaseHtml();
    if (base && base->getMenuBar() == m_menuBar)
        base->setMenuBar(nullptr);
    for (auto const& item : m_items)
        item->destroyPopup();
    m_byId.clear();
    guiDestroyWrapper(m_menuBar);
    onDestroyChildWidget();
}

guiHtmlControlMenuItem* guiHtmlControlMenu::findItem(istring const& name, guiHtmlControlMenuItem* from)
{
    if (from && name == from->name)
        return from;
    for (auto const& item : from ? from->children : m_items)
        if (guiHtmlControlMenuItem* found = findItem(name, item.get()))
            return found;
    return nullptr;
}

int guiHtmlControlMenu::isItemChecked(sstring const& name)
{
    guiHtmlControlMenuItem const* item = findItem(name);
    if (!item)
        return 0;
    return item->action ? item->action->isChecked() : item->checked;
}

int guiHtmlControlMenu::isItemEnabled(sstring const& name)
{
    guiHtmlControlMenuItem const* item = findItem(name);
    if (!item)
        return 0;
    return item->action ? item->action->isEnabled() : item->enabled;
}

void guiHtmlControlMenu::setItemChecked(sstring const& name, int on)
{
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    if (!item->action) {
        item->checked = on > 0;
        return;
    }
    item->action->setCheckable(item->checkable || on > 0);
    item->action->setChecked(on > 0);
}

void guiHtmlControlMenu::setItemEnabled(sstring const& name, int on)
{
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    if (item->action)
        item->action->setEnabled(on > 0);
    else
        item->enabled = on > 0;
}

void guiHtmlControlMenu::setItemText(sstring const& name, sstring const& text)
{
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    item->text = text;
    if (item->action)
        showText(*item);
}

void guiHtmlControlMenu::activate(guiHtmlControlMenuItem const* item)
{
    guiPageRoot* base = item && !item->isSeparator() ? getBaseHtml() : nullptr;
    if (!base)
        return;
    sstring const address = sformat("event://%s/", "eMenu") + item->name;
    guiNodeWatch root(base);
    ScriptObject* object = getCustomObject(); // may run script
    if (root.alive())
        base->onEvent(address, object);
}

void guiHtmlControlMenu::activateItem(sstring name) { activate(findItem(name)); }

void guiHtmlControlMenu::activateItem(int id)
{
    auto found = m_byId.find(id);
    activate(found == m_byId.end() ? nullptr : found->second);
}
