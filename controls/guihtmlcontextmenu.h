// controls/guihtmlcontextmenu.h: a menu that is shown at the pointer: an `object` element of the class "contextmenu";
// and who shows it: the attributes `contextmenu` and `oncontext` of any element.
#pragma once

#include "controls/guihtmlcontrolmenu.h"
#include "page/guiuserevent.h"

class guiWidgetContextMenu;

/// The native menu is made when it is shown for the first time. GUI thread.
class guiHtmlContextMenu : public guiHtmlControlMenu
{
public:
    explicit guiHtmlContextMenu(guiHtml* parent = nullptr) : guiHtmlControlMenu(parent) {}
    ~guiHtmlContextMenu() override { destroyWidgets(); }

    using guiHtmlControlMenu::operator=;
    guiHtml* Clone(guiHtml* parent) override;
    void createChildWidget() override {}
    using guiHtmlControlMenu::activateItem;
    void activateItem(int id) override;

    /// Shows the menu at a place of the screen, in pixels. Handlers of its items are told that place, and the row and
    /// column of `detail`. False when the page is in no window.
    bool popup(QPoint place, guiEventDetail const& detail = {});

protected:
    QWidget* getRoot() const override;
    void destroyRoot() override;

private:
    guiWidgetContextMenu* m_popup = nullptr; // owned
    guiEventDetail m_opened;                 // for what it was shown last
};

/// The user asks for what can be done with this node, with the right button or the menu key, at a place of the screen
/// in pixels. The nearest node, from this one up, that has `oncontext` or `contextmenu` answers: its handler is called,
/// then its menu is shown. A list says in `detail` which row and column are meant. False: nobody has answered. Runs
/// script.
bool guiAnswerContext(guiHtml* node, QPoint place, guiEventDetail detail = {});
/// Whether the node itself would answer.
bool guiHasContext(guiHtml const* node);
