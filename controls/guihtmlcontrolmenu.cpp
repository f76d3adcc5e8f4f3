// controls/guihtmlcontrolmenu.cpp: see guihtmlcontrolmenu.h.
#include "controls/guihtmlcontrolmenu.h"

#include "controls/guicontrolhost.h"
#include "controls/guieventscope.h"
#include "controls/guiwidgetmenubar.h"
#include "controls/guiwidgetpopupmenu.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlsize.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guiuserevent.h"

#include <QAction>
#include <algorithm>
#include <cassert>

namespace {

/// The native menus stay with the items that are copied.
guiHtmlControlMenu::menuItems copyItems(guiHtmlControlMenu::menuItems const& items)
{
    guiHtmlControlMenu::menuItems copies;
    for (auto const& item : items) {
        auto copy = std::make_unique<guiHtmlControlMenuItem>();
        static_cast<guiMenuItemContent&>(*copy) = *item;
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
    destroyWidgets(); // they show the items that are replaced now
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
    assert(!popup || (action && action == popup->menuAction()));
    if (action) {
        assert(action->data().toInt() == id);
        checked = action->isChecked();
        enabled = action->isEnabled();
    }
    action = nullptr; // the menu that it is in deletes it
    guiDestroyWrapper(popup);
}

guiHtmlControlMenu::~guiHtmlControlMenu() { destroyWidgets(); }

// The bar has to exist before heights are computed, so that the first layout leaves room for it. It does so above the
// page: where the tag stands it takes none, whatever the page asks for.
int guiHtmlControlMenu::calcDynamicLayout()
{
    createChildWidget();
    guiHtmlControl::calcDynamicLayout();
    m.dynamic = {};
    m.dynamic.unitX = kUnitPixels;
    m.expandWidth = m.expandHeight = 0;
    return 0;
}

void guiHtmlControlMenu::setRect(guiRect* rect)
{
    guiHtmlControl::setRect(rect);
    placeMenuBar();
}

/// The bar is always at the top of the window, wherever the menu is in the page and however far the page is scrolled.
void guiHtmlControlMenu::placeMenuBar()
{
    if (m_menuBar)
        m_menuBar->setGeometry(0, 0, m_menuBar->parentWidget()->width(), m_menuBar->sizeHint().height());
}

void guiHtmlControlMenu::createChildWidget()
{
    if (m_menuBar || !hasWindow())
        return;
    assertOnGuiThread();
    assert(m_byId.empty());
    m_menuBar = new guiWidgetMenuBar(getTopLevelWidget());
    m_menuBar->setFont(getDefaultFont(nullptr));
    fillMenu(m_menuBar, m_items);
    assert(isBound(m_items));
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
    assert(!item.action && !item.popup);
    guiLayoutRun::startAnew(); // a bar with an item is higher than one without
    item.id = m_nextId++;
    [[maybe_unused]] bool const isNew = m_byId.emplace(item.id, &item).second;
    assert(isNew);
    item.action = item.children.empty() ? createEntry(menu) : createPopupMenu(item)->menuAction();
    showText(item);
    item.action->setData(item.id);
    item.action->setCheckable(item.checkable || item.checked);
    item.action->setChecked(item.checked != 0);
    item.action->setEnabled(item.enabled != 0);
    menu->addAction(item.action);
}

/// Whether each of the items, and each below them, is in the menu bar under its own id.
bool guiHtmlControlMenu::isBound(menuItems const& items) const
{
    return std::all_of(items.begin(), items.end(), [this](auto const& item) {
        auto const found = m_byId.find(item->id);
        return found != m_byId.end() && found->second == item.get() && item->action && isBound(item->children);
    });
}

void guiHtmlControlMenu::showText(guiHtmlControlMenuItem const& item)
{
    item.action->setSeparator(item.isSeparator());
    item.action->setText(item.isSeparator() ? QString() : sstoq(item.text)); // the toolkit shows a separator's text
}

// The toolkit toggles the check mark of an item that is chosen, but that decision belongs to the page's handler. This
// slot takes the change back; it is connected before the menu's own, so the handler sees the right mark.
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
    assertOnGuiThread();
    assert(guiIsBoundTo(m_menuBar, this));
    assert(isBound(m_items));
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

namespace {

bool isOn(guiHtmlControlMenuItem const& item) { return item.action ? item.action->isEnabled() : item.enabled != 0; }

/// Whether the item is among these or below them and neither it nor a menu that it lies in is disabled.
bool canBeChosen(guiHtmlControlMenu::menuItems const& items, guiHtmlControlMenuItem const* item)
{
    return std::any_of(items.begin(), items.end(), [&](auto const& each) {
        return isOn(*each) && (each.get() == item || canBeChosen(each->children, item));
    });
}

} // namespace

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
    return item && isOn(*item);
}

void guiHtmlControlMenu::setItemChecked(sstring const& name, int on)
{
    assertOnGuiThread();
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
    assertOnGuiThread();
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
    assertOnGuiThread();
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    item->text = text;
    if (item->action)
        showText(*item);
}

void guiHtmlControlMenu::activate(guiHtmlControlMenuItem const* item)
{
    assertOnGuiThread();
    guiPageRoot* base = item && !item->isSeparator() && canBeChosen(m_items, item) ? getBaseHtml() : nullptr;
    if (!base)
        return;
    sstring const address = sformat("event://%s/", "eMenu") + item->name;
    guiEventNote const note("menu");
    guiNodeWatch root(base);
    guiNodeWatch self(this);
    ScriptObject* object = getCustomObject(); // may run script
    if (self.alive())
        guiControlHost::current().noteChoice(this); // the event is the window's
    if (root.alive())
        base->onEvent(address, object);
}

void guiHtmlControlMenu::activateItem(sstring name) { activate(findItem(name)); }

void guiHtmlControlMenu::activateItem(int id)
{
    auto found = m_byId.find(id);
    assert(found == m_byId.end() || found->second->id == id);
    activate(found == m_byId.end() ? nullptr : found->second);
}
