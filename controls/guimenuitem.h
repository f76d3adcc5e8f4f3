// controls/guimenuitem.h: an item of a menu: what page and script say about it, and its native counterpart.
#pragma once

#include "foundation/vela-string.h"
#include "page/guipicture.h"

#include <QKeySequence>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

class guiWidgetPopupMenu;
class QAction;

/// How an item deals with its check mark when it is chosen.
enum class guiMenuItemType
{
    kNormal,   ///< leaves it alone: the handler decides
    kCheckBox, ///< the same, and it has one from the beginning
    kToggle,   ///< switches it
    kRadio     ///< switches it on, and off those of the other items of its group
};

/// What page and script have said about an item: what a copy of the item takes over.
struct guiMenuItemContent
{
    sstring name; ///< the item's key
    sstring text; ///< what is shown; an item "-" without a sub-menu is a separator
    int checkable = 0;
    int checked = 0; ///< without a native menu; else the item's action has the state
    int enabled = 1; ///< the same
    guiMenuItemType type = guiMenuItemType::kNormal;
    sstring group;    ///< of radio items; "": those that follow each other are one
    QKeySequence key; ///< chooses the item while the window is active
    sstring icon;     ///< the name of a file
    sstring link;     ///< what is followed in place of the menu's event
    sstring place;    ///< " in FILE:LINE", where the page has the item
};

/// One item of a menu, with its sub-menu.
struct guiHtmlControlMenuItem : guiMenuItemContent
{
    std::vector<std::unique_ptr<guiHtmlControlMenuItem>> children;
    int id = 0;                          ///< identifies the item in the native menu; 0 until it has been there
    guiWidgetPopupMenu* popup = nullptr; ///< the sub-menu while the native menu exists; owned
    QAction* action = nullptr;           ///< the item in the native menu; not owned, null without one
    guiPictureRef picture;               ///< that of `icon`, once it is shown

    /// A line between the items around it, which the user cannot choose.
    bool isSeparator() const { return children.empty() && text == "-"; }
    /// One of those radio items that are a group because they follow each other.
    bool isInRun() const { return type == guiMenuItemType::kRadio && group.getLength() == 0; }
    bool isChecked() const;
    bool isEnabled() const;
    /// Whether any direct child has a check mark.
    bool AreChildrenCheckable() const;
    /// Deletes the pop-ups of the children, then its own. Stores the state of the action first.
    void destroyPopup();
};

using guiMenuItems = std::vector<std::unique_ptr<guiHtmlControlMenuItem>>;

/// Copies of the items; the native menus stay with the originals.
guiMenuItems guiCopyItems(guiMenuItems const& items);

/// The keys that a page means by "Ctrl+S" or "F5"; none for anything that is not understood.
std::optional<QKeySequence> guiReadKey(sstring const& text);

/// The list that the item stands in, and where in it; null when it is not among these items or below them.
guiMenuItems* guiListAround(guiMenuItems& items, guiHtmlControlMenuItem const& item, std::size_t& index);

/// "normal", "checkbox", "toggle" and "radiobutton"; none for any other word.
std::optional<guiMenuItemType> guiReadItemType(sstring const& word);
std::vector<std::string_view> guiItemTypeWords();

/// The radio items that exclude each other with this one, itself included; empty for an item of another type.
std::vector<guiHtmlControlMenuItem*> guiGroupOf(guiMenuItems& items, guiHtmlControlMenuItem const& item);
