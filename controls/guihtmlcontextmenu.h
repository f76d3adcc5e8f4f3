// controls/guihtmlcontextmenu.h: a menu that is shown at the pointer: an `object` element of the class "contextmenu".
#pragma once

#include "controls/guihtmlcontrolmenu.h"
#include "controls/guipopup.h"

class guiWidgetContextMenu;

/// The native menu is made when it is shown for the first time. GUI thread.
class guiHtmlContextMenu : public guiHtmlControlMenu, public guiPopup
{
public:
    explicit guiHtmlContextMenu(guiHtml* parent = nullptr) : guiHtmlControlMenu(parent) {}
    ~guiHtmlContextMenu() override { destroyWidgets(); }

    using guiHtmlControlMenu::operator=;
    guiHtml* Clone(guiHtml* parent) override;
    void createChildWidget() override {}
    using guiHtmlControlMenu::activateItem;
    void activateItem(int id) override;

    bool popup(QPoint place, guiEventDetail const& detail) override;

protected:
    QWidget* getRoot() const override;
    void destroyRoot() override;

private:
    guiWidgetContextMenu* m_popup = nullptr; // owned
    guiEventDetail m_opened;                 // for what it was shown last
};
