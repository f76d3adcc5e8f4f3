// controls/guihtmlcontrolmenu.h: the window's menu bar: an `object` element of the class "menu".
#pragma once

#include "controls/guihtmlcontrol.h"
#include "controls/guimenuitem.h"

#include <map>
#include <vector>

class guiWidgetMenuBar;
class guiWidgetPopupMenu;
class QActionGroup;

/// What shows an item of a menu elsewhere in the page.
class guiMenuMirror
{
public:
    /// The items have changed.
    virtual void mirrorItem() = 0;

protected:
    ~guiMenuMirror() = default;
};

/// The menu bar exists while the page is in a window; its items exist independently of it. GUI thread.
class guiHtmlControlMenu : public guiHtmlControl
{
public:
    using menuItems = guiMenuItems;

    explicit guiHtmlControlMenu(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlControlMenu() override;

    int getControlType() override { return kControlMenu; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    int getPreferredWidth() override { return 0; }
    int getHeightEstimate(unsigned long) override { return 0; }
    bool isInLine() const override { return false; }
    void setEnabled(int enabled) override;
    int calcDynamicLayout() override;
    void setRect(guiRect* rect) override;
    void createChildWidget() override;
    void destroyChildWidget() override;
    void onLookChange() override;
    /// The menu bar, null while the page is not in a window.
    guiWidgetMenuBar* getMenuBar() const { return m_menuBar; }

    /// The first item of this name, compared without regard to case: `from` and the items below it (null: the whole
    /// menu), an item before its children. Null when there is none.
    guiHtmlControlMenuItem* findItem(istring const& name, guiHtmlControlMenuItem* from = nullptr);
    /// State of the item of this name; 0 when there is none.
    int isItemChecked(sstring const& name);
    int isItemEnabled(sstring const& name);
    void setItemChecked(sstring const& name, int on);
    void setItemEnabled(sstring const& name, int on);
    void setItemText(sstring const& name, sstring const& text);
    /// The keys that choose the item while the window is active; without keys, none. Of two items with the same keys
    /// the first has them.
    void setItemKey(sstring const& name, QKeySequence const& keys);
    /// The picture in a file, "" for none.
    void setItemIcon(sstring const& name, sstring const& file);
    /// Adds an item at the end of the menu of this name, which need not have had a sub-menu; "" means the top level.
    /// Does nothing without such an item.
    void addItem(guiMenuItemContent const& added, sstring const& parent);
    /// Removes the first item of this name with all below it.
    void removeItem(sstring const& name);
    /// Whether the user can choose the item now, which is one of this menu.
    bool canChoose(guiHtmlControlMenuItem const& item) const;
    /// Tells the mirror of each change, until it is removed. Not owned.
    void addMirror(guiMenuMirror* mirror) { m_mirrors.push_back(mirror); }
    void removeMirror(guiMenuMirror* mirror);
    /// As if the user had chosen the item: the page event "eMenu" with its name. Does nothing for what the user can not
    /// choose, a separator or an item that is disabled or lies in a disabled one, or when there is no item of this
    /// name.
    void activateItem(sstring name);
    /// The user chose the item that has this id while the menu bar exists.
    virtual void activateItem(int id);

    menuItems const& getItems() const { return m_items; }
    /// The top-level items, to add to before any widget exists.
    menuItems& editItems() { return m_items; }

protected:
    void addScriptMethods(ScriptObject* object) override;
    /// The widget that has the top-level items; null while there is none.
    virtual QWidget* getRoot() const;
    /// Deletes it, when there is one.
    virtual void destroyRoot();
    /// Takes the top-level items into the new root.
    void fillRoot();
    /// Deletes all native menus; the items survive.
    void destroyWidgets();

private:
    void fillMenu(QWidget* menu, menuItems const& items);
    void insertItem(QWidget* menu, menuItems const& items, std::size_t index);
    void createAction(QWidget* menu, guiHtmlControlMenuItem& item);
    void showState(guiHtmlControlMenuItem const& item);
    QActionGroup* groupFor(menuItems const& items, std::size_t index);
    QAction* createEntry(QWidget* menu, guiMenuItemType type);
    void showText(guiHtmlControlMenuItem const& item);
    void showKey(guiHtmlControlMenuItem const& item);
    void showIcon(guiHtmlControlMenuItem& item);
    guiWidgetPopupMenu* createPopupMenu(guiHtmlControlMenuItem& item);
    void detach(guiHtmlControlMenuItem& item);
    void forgetIds(guiHtmlControlMenuItem const& item);
    void activate(guiHtmlControlMenuItem const* item);
    void placeMenuBar();
    void tellMirrors();
    bool isBound(menuItems const& items) const;

    guiWidgetMenuBar* m_menuBar = nullptr; // owned
    menuItems m_items;
    std::map<int, guiHtmlControlMenuItem*> m_byId; // not owned; the items that are in the native menu
    int m_nextId = 1;
    std::vector<guiMenuMirror*> m_mirrors; // not owned
};
