// controls/guihtmlcontrolmenu.h: the window's menu bar: an `object` element of the class "menu".
#pragma once

#include "controls/guihtmlcontrol.h"

#include <map>
#include <memory>
#include <vector>

class guiWidgetMenuBar;
class guiWidgetPopupMenu;
class QAction;

/// One entry of a menu, with its sub-menu.
struct guiHtmlControlMenuItem
{
    sstring name; ///< the item's key
    sstring text; ///< what is shown; "-" of an item without a sub-menu is a separator
    int checkable = 0;
    int checked = 0;
    int enabled = 1;
    std::vector<std::unique_ptr<guiHtmlControlMenuItem>> children;
    int id = 0;                          ///< what the menu bar calls the item; 0 until it has one
    guiWidgetPopupMenu* popup = nullptr; ///< the sub-menu while the menu bar exists; owned
    QAction* action = nullptr;           ///< the entry in the menu that holds the item; not owned

    /// A line between the items around it, which nobody can choose.
    bool isSeparator() const { return children.empty() && text == "-"; }
    /// Whether any direct child has a check mark.
    bool AreChildrenCheckable() const;
    /// Deletes the pop-ups of the children, then its own.
    void destroyPopup();
};

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
    int getHeightEstimate(unsigned long width) override;
    void setEnabled(int enabled) override;
    int calcDynamicLayout() override;
    void setRect(guiRect* rect) override;
    void createChildWidget() override;
    void destroyChildWidget() override;
    /// The menu bar, null while the page is not in a window.
    guiWidgetMenuBar* getMenuBar() const { return m_menuBar; }

    /// The first item of this name without regard to case, from `from` on downwards (null: in the whole menu), an item
    /// before its children; null when there is none.
    guiHtmlControlMenuItem* findItem(istring const& name, guiHtmlControlMenuItem* from = nullptr);
    /// State of the item of this name; 0 when there is none.
    int isItemChecked(sstring const& name);
    int isItemEnabled(sstring const& name);
    void setItemChecked(sstring const& name, int on);
    void setItemEnabled(sstring const& name, int on);
    void setItemText(sstring const& name, sstring const& text);
    /// As if the user had chosen the item: the page event "eMenu" with its name. Nothing for a name that is none, or a
    /// separator's.
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

    guiWidgetMenuBar* m_menuBar = nullptr; // owned
    menuItems m_items;
    std::map<int, guiHtmlControlMenuItem*> m_byId; // items that are in the menu bar
    int m_nextId = 1;
};
