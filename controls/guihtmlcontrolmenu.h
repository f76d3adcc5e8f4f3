// controls/guihtmlcontrolmenu.h: the window's menu bar: an `object` element of the class "menu".
#pragma once

#include "controls/guihtmlcontrol.h"

#include <memory>
#include <vector>

/// One entry of a menu, with its sub-menu.
struct guiHtmlControlMenuItem
{
    sstring name; ///< the item's key
    sstring text; ///< what is shown; "-" is a separator
    int checkable = 0;
    int checked = 0;
    int enabled = 1;
    std::vector<std::unique_ptr<guiHtmlControlMenuItem>> children;
};

class guiHtmlControlMenu : public guiHtmlControl
{
public:
    using items_t = std::vector<std::unique_ptr<guiHtmlControlMenuItem>>;

    explicit guiHtmlControlMenu(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}

    int getControlType() override { return kControlMenu; }
    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// The user chose the item that has this id while the menu bar exists.
    virtual void activateItem(int id);

    items_t const& getItems() const { return m_items; }
    /// The top-level items, to add to before any widget exists.
    items_t& editItems() { return m_items; }

private:
    items_t m_items;
};
