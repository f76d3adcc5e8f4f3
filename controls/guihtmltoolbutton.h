// controls/guihtmltoolbutton.h: a button of a tool bar, which stands for an item of a menu or for a link of its own,
// and the lines between buttons.
#pragma once

#include "controls/guihtmlcontrol.h"
#include "controls/guihtmlcontrolmenu.h"
#include "page/guinodewatch.h"
#include "page/guipicture.h"

#include <optional>

class guiWidgetToolButton;

/// Shows its icon, with the text as a tip, or without an icon its text. GUI thread.
class guiHtmlToolButton : public guiHtmlControl, public guiMenuMirror
{
public:
    explicit guiHtmlToolButton(guiHtml* parent = nullptr) : guiHtmlControl(parent) {}
    ~guiHtmlToolButton() override;

    using guiHtmlControl::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override { return guiCloneNode(*this, parent); }

    /// What the page says about it.
    struct look
    {
        sstring item;           // the name of the menu's item that it stands for; "" for one of its own
        sstring icon;           // the name of a file; "" for that of the item
        sstring tip;            // "" for its text
        bool isDivider = false; // a line between buttons
    };
    void init(look const& given) { m_look = given; }

    int setText(sstring const& text, sstring const& directory) override;
    void setEnabled(int enabled) override;
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long) override;
    QWidget* getChildWidget() override;
    void createChildWidget() override;
    void destroyChildWidget() override;
    void onLookChange() override;
    void triggerNow() override { onClick(); }

    /// The user has pressed it.
    void onClick();
    /// Gives the focus to the next button of the bar, or with -1 to the one before. False when there is none.
    bool moveFocus(int step);
    /// Shows what has become of the item.
    void mirrorItem() override;

private:
    guiHtmlControlMenu* menu();
    guiHtmlControlMenuItem const* item();
    void showOwn();
    void showItem(guiHtmlControlMenuItem const& item);
    void showTexts(sstring const& text, QIcon const& icon, QKeySequence const& key);
    QIcon ownIcon();
    void showIconSize();
    void tellMissingItem();
    void destroyWidgets();

    look m_look;
    guiWidgetToolButton* m_button = nullptr; // owned
    QWidget* m_line = nullptr;               // owned; of a divider
    guiPictureRef m_picture;                 // of the icon, while it is shown
    std::optional<guiNodeWatch> m_menu;      // whose item it mirrors
    bool m_isMissingTold = false;            // that there is no such item
};
