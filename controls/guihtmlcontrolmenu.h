// controls/guihtmlcontrolmenu.h: the window's menu bar: an `object` element of the class "menu".
#pragma once

#include "controls/guihtmlcontrol.h"

#include <map>
#include <memory>
#include <vector>

class guiWidgetMenuBar;
class guiWidgetPopupMenu;
class QAction;

/// What page and script have said about an item: what a copy of the item takes over.
struct guiMenuItemContent
{
    sstring name; ///< the item's key
    sstring text; ///< what is shown; an item "-" without a sub-menu is a separator
    int checkable = 0;
    int checked = 0; ///< without a menu bar; else the item's action has the state
    int enabled = 1; ///< the same
};

/// One item of a menu, with its sub-menu.
struct guiHtmlControlMenuItem : guiMenuItemContent
{
    std::vector<std::unique_ptr<guiHtmlControlMenuItem>> children;
    int id = 0;                          ///< identifies the item in the menu bar; 0 until it has been there
    guiWidgetPopupMenu* popup = nullptr; ///< the sub-menu while the menu bar exists; owned
    QAction* action = nullptr;           ///< the item in the native menu; not owned, null without a menu bar

    /// A line between the items around it, which the user cannot choose.
    bool isSeparator() const { return children.empty() && text == "-"; }
    /// Whether any direct child has a check mark.
    bool AreChildrenCheckable() const;
    /// Deletes the pop-ups of the children, then its own. Stores the state of the action first.
    void destroyPopup();
};

/// The menu bar exists while the page is in a window; its items exist independently of it. GUI thread.
class guiHtmlControlMenu : public guiHtmlControl
{
public:
    using menuItems = std::vector<std::unique_ptr<guiHtmlControlMenuItem>>;

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

private:
    void fillMenu(QWidget* menu, menuItems const& items);
    void insertItem(QWidget* menu, guiHtmlControlMenuItem& item);
    QAction* createEntry(QWidget* menu);
    void showText(guiHtmlControlMenuItem const& item);
    guiWidgetPopupMenu* createPopupMenu(guiHtmlControlMenuItem& item);
    void activate(guiHtmlControlMenuItem const* item);
    void placeMenuBar();
    void destroyWidgets();
    bool isBound(menuItems const& items) const;

    guiWidgetMenuBar* m_menuBar = nullptr; // owned
    menuItems m_items;
    std::map<int, guiHtmlControlMenuItem*> m_byId; // not owned; the items that are in the menu bar
    int m_nextId = 1;
};
