// controls/guihtmlcontrolmenu.cpp: see guihtmlcontrolmenu.h.
#include "controls/guihtmlcontrolmenu.h"

#include "controls/guicontrolhost.h"
#include "controls/guieventscope.h"
#include "controls/guimenuaction.h"
#include "controls/guiwidgetmenubar.h"
#include "controls/guiwidgetpopupmenu.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guiatplace.h"
#include "page/guihtmlsize.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guiuserevent.h"

#include <QAction>
#include <QActionGroup>
#include <algorithm>
#include <cassert>

guiHtml& guiHtmlControlMenu::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    auto* menu = dynamic_cast<guiHtmlControlMenu*>(&other);
    if (!menu || menu == this)
        return *this;
    destroyWidgets(); // they show the items that are replaced now
    m_items = guiCopyItems(menu->m_items);
    return *this;
}

guiHtml* guiHtmlControlMenu::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

guiHtmlControlMenu::~guiHtmlControlMenu() { destroyWidgets(); }

// The bar has to exist before heights are computed, so that the first layout leaves room for it. It does so above the
// page: where the tag stands it takes none, whatever the page asks for.
int guiHtmlControlMenu::calcDynamicLayout()
{
    createChildWidget();
    guiHtmlControl::calcDynamicLayout();
    return takeNoRoom();
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
    m_menuBar = new guiWidgetMenuBar(getTopLevelWidget());
    m_menuBar->setFont(getDefaultFont(nullptr));
    fillRoot();
    m_menuBar->owner = this;
    m_menuBar->setEnabled(m.enabled);
    if (guiPageRoot* base = getBaseHtml())
        base->setMenuBar(m_menuBar);
    placeMenuBar();
    m_menuBar->show();
}

void guiHtmlControlMenu::onLookChange()
{
    assertOnGuiThread();
    if (!m_menuBar)
        return;
    QFont const font = getDefaultFont(nullptr);
    m_menuBar->setFont(font);
    for (auto const& [id, item] : m_byId)
        if (item->popup)
            item->popup->setFont(font);
    guiLayoutRun::startAnew(); // the bar has another height
    placeMenuBar();
}

QWidget* guiHtmlControlMenu::getRoot() const { return m_menuBar; }

void guiHtmlControlMenu::fillRoot()
{
    assert(m_byId.empty());
    fillMenu(getRoot(), m_items);
    assert(isBound(m_items));
}

void guiHtmlControlMenu::fillMenu(QWidget* menu, menuItems const& items)
{
    for (std::size_t i = 0; i < items.size(); ++i)
        insertItem(menu, items, i);
}

void guiHtmlControlMenu::insertItem(QWidget* menu, menuItems const& items, std::size_t index)
{
    guiHtmlControlMenuItem& item = *items[index];
    guiLayoutRun::startAnew(); // a bar with an item is higher than one without
    createAction(menu, item);
    if (item.type == guiMenuItemType::kRadio && !item.popup)
        item.action->setActionGroup(groupFor(items, index));
    showText(item);
    showKey(item);
    showIcon(item);
    showState(item);
    menu->addAction(item.action);
}

void guiHtmlControlMenu::createAction(QWidget* menu, guiHtmlControlMenuItem& item)
{
    assert(!item.action && !item.popup);
    item.id = m_nextId++;
    [[maybe_unused]] bool const isNew = m_byId.emplace(item.id, &item).second;
    assert(isNew);
    item.action = item.children.empty() ? createEntry(menu, item.type) : createPopupMenu(item)->menuAction();
    item.action->setData(item.id);
    QObject::connect(item.action, &QAction::changed, item.action, [this] { tellMirrors(); });
}

void guiHtmlControlMenu::showState(guiHtmlControlMenuItem const& item)
{
    item.action->setCheckable(item.checkable || item.checked);
    item.action->setChecked(item.checked != 0);
    item.action->setEnabled(item.enabled != 0);
}

/// The group of a radio item is that of one before it, in the native menu already, or a new one.
QActionGroup* guiHtmlControlMenu::groupFor(menuItems const& items, std::size_t index)
{
    for (guiHtmlControlMenuItem const* mate : guiGroupOf(m_items, *items[index]))
        if (mate->action && mate->action->actionGroup())
            return mate->action->actionGroup();
    return new QActionGroup(getRoot());
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

/// The toolkit obeys no keys that two items have.
void guiHtmlControlMenu::showKey(guiHtmlControlMenuItem const& item)
{
    bool const isTaken = std::any_of(m_byId.begin(), m_byId.end(), [&](auto const& other) {
        return other.second != &item && other.second->action && !item.key.isEmpty() &&
               other.second->action->shortcut() == item.key;
    });
    item.action->setShortcutVisibleInContextMenu(true);
    item.action->setShortcut(isTaken ? QKeySequence() : item.key);
}

/// An icon has at least as many pixels as the toolkit shows of it on a screen of scale 2.
void guiHtmlControlMenu::showIcon(guiHtmlControlMenuItem& item)
{
    constexpr int kMostPixels = 48;
    item.picture = nullptr;
    if (item.icon.getLength() != 0) {
        guiAtPlace const place(item.place);
        item.picture = guiPageHost::current().readImage(guiPageObjectOf(this), guiFullName(this, item.icon),
                                                        QSize(kMostPixels, kMostPixels));
    }
    item.action->setIcon(item.picture ? QIcon(item.picture->image) : QIcon());
}

// The toolkit toggles the check mark of an item that is chosen, but unless the page says so that decision belongs to
// its handler. This slot takes the change back; it is connected before the menu's own, so the handler sees the right
// mark.
QAction* guiHtmlControlMenu::createEntry(QWidget* menu, guiMenuItemType type)
{
    auto* action = new guiMenuAction(menu, this);
    if (type == guiMenuItemType::kNormal || type == guiMenuItemType::kCheckBox)
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
    if (!getRoot())
        return;
    assertOnGuiThread();
    assert(isBound(m_items));
    for (auto const& item : m_items)
        item->destroyPopup();
    m_byId.clear();
    destroyRoot();
    onDestroyChildWidget();
}

void guiHtmlControlMenu::destroyRoot()
{
    assert(guiIsBoundTo(m_menuBar, this));
    guiPageRoot* base = getBaseHtml();
    if (base && base->getMenuBar() == m_menuBar)
        base->setMenuBar(nullptr);
    guiDestroyWrapper(m_menuBar);
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

/// Whether the item is among these or below them and neither it nor a menu that it lies in is disabled.
bool canBeChosen(guiHtmlControlMenu::menuItems const& items, guiHtmlControlMenuItem const* item)
{
    return std::any_of(items.begin(), items.end(), [&](auto const& each) {
        return each->isEnabled() && (each.get() == item || canBeChosen(each->children, item));
    });
}

} // namespace

bool guiHtmlControlMenu::canChoose(guiHtmlControlMenuItem const& item) const { return canBeChosen(m_items, &item); }

void guiHtmlControlMenu::removeMirror(guiMenuMirror* mirror) { std::erase(m_mirrors, mirror); }

void guiHtmlControlMenu::tellMirrors()
{
    for (guiMenuMirror* mirror : m_mirrors)
        mirror->mirrorItem();
}

int guiHtmlControlMenu::isItemChecked(sstring const& name)
{
    guiHtmlControlMenuItem const* item = findItem(name);
    return item && item->isChecked();
}

int guiHtmlControlMenu::isItemEnabled(sstring const& name)
{
    guiHtmlControlMenuItem const* item = findItem(name);
    return item && item->isEnabled();
}

void guiHtmlControlMenu::setItemChecked(sstring const& name, int on)
{
    assertOnGuiThread();
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    if (item->action) {
        item->action->setCheckable(item->checkable || on > 0);
        item->action->setChecked(on > 0); // a group of the toolkit's sees to the others
        return;
    }
    if (on > 0)
        for (guiHtmlControlMenuItem* mate : guiGroupOf(m_items, *item))
            mate->checked = 0;
    item->checked = on > 0;
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

void guiHtmlControlMenu::setItemKey(sstring const& name, QKeySequence const& keys)
{
    assertOnGuiThread();
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    item->key = keys;
    if (item->action)
        showKey(*item);
}

void guiHtmlControlMenu::setItemIcon(sstring const& name, sstring const& file)
{
    assertOnGuiThread();
    guiHtmlControlMenuItem* item = findItem(name);
    if (!item)
        return;
    item->icon = file;
    if (item->action)
        showIcon(*item);
}

// ---- Items that come and go ----

void guiHtmlControlMenu::addItem(guiMenuItemContent const& added, sstring const& parent)
{
    assertOnGuiThread();
    guiHtmlControlMenuItem* around = parent.getLength() != 0 ? findItem(parent) : nullptr;
    if (!around && parent.getLength() != 0)
        return;
    QWidget* const menu = around ? around->popup : getRoot();
    bool const becomesMenu = getRoot() && !menu;
    if (becomesMenu)
        destroyWidgets();
    menuItems& items = around ? around->children : m_items;
    items.push_back(std::make_unique<guiHtmlControlMenuItem>());
    static_cast<guiMenuItemContent&>(*items.back()) = added;
    if (becomesMenu)
        createChildWidget();
    else if (menu)
        insertItem(menu, items, items.size() - 1);
    updateLayout(1);
}

void guiHtmlControlMenu::removeItem(sstring const& name)
{
    assertOnGuiThread();
    guiHtmlControlMenuItem const* item = findItem(name);
    std::size_t index = 0;
    guiMenuItems* around = item ? guiListAround(m_items, *item, index) : nullptr;
    if (!around)
        return;
    std::unique_ptr<guiHtmlControlMenuItem> const removed = std::move((*around)[index]);
    around->erase(around->begin() + static_cast<std::ptrdiff_t>(index));
    detach(*removed);
    if (around->empty() && around != &m_items && getRoot()) { // a menu becomes an entry
        destroyWidgets();
        createChildWidget();
    }
    guiLayoutRun::startAnew();
    tellMirrors();
    updateLayout(1);
}

/// Takes an item that is not in the list any more out of the native menu, which may be open.
void guiHtmlControlMenu::detach(guiHtmlControlMenuItem& item)
{
    QAction* const action = item.action;
    if (!action)
        return;
    forgetIds(item);
    bool const isEntry = !item.popup;
    for (QObject* menu : action->associatedObjects())
        if (auto* widget = qobject_cast<QWidget*>(menu))
            widget->removeAction(action);
    item.destroyPopup();
    if (isEntry)
        guiEventScope::deleteAfterwards(action);
}

void guiHtmlControlMenu::forgetIds(guiHtmlControlMenuItem const& item)
{
    m_byId.erase(item.id);
    for (auto const& child : item.children)
        forgetIds(*child);
}

// ---- The user's choice ----

void guiHtmlControlMenu::activate(guiHtmlControlMenuItem const* item)
{
    assertOnGuiThread();
    guiPageRoot* base = item && !item->isSeparator() && canBeChosen(m_items, item) ? getBaseHtml() : nullptr;
    if (!base)
        return;
    guiEventNote const note("menu");
    if (item->link.getLength() != 0)
        return followLink(item->link);
    sstring const address = sformat("event://%s/", "eMenu") + item->name;
    guiNodeWatch root(base);
    guiNodeWatch self(this);
    ScriptObject* object = getCustomObject(); // may run script
    if (self.alive())
        guiControlHost::current().noteChoice(this); // the event is the window's
    if (root.alive())
        base->onEvent(address, object);
}

void guiHtmlControlMenu::activateItem(sstring name)
{
    guiHtmlControlMenuItem const* item = findItem(name);
    if (item && canBeChosen(m_items, item) && item->type == guiMenuItemType::kToggle)
        setItemChecked(name, !item->isChecked());
    if (item && canBeChosen(m_items, item) && item->type == guiMenuItemType::kRadio)
        setItemChecked(name, 1);
    activate(item);
}

void guiHtmlControlMenu::activateItem(int id)
{
    auto found = m_byId.find(id);
    assert(found == m_byId.end() || found->second->id == id);
    activate(found == m_byId.end() ? nullptr : found->second);
}
