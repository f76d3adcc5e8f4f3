// controls/guihtmlcontextmenu.cpp: see guihtmlcontextmenu.h.
#include "controls/guihtmlcontextmenu.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetcontextmenu.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guirareattributes.h"

#include <utility>

guiHtml* guiHtmlContextMenu::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

QWidget* guiHtmlContextMenu::getRoot() const { return m_popup; }
void guiHtmlContextMenu::destroyRoot() { guiDestroyWrapper(m_popup); }

bool guiHtmlContextMenu::popup(QPoint place, guiEventDetail const& detail)
{
    assertOnGuiThread();
    if (!hasWindow())
        return false;
    if (!m_popup) {
        m_popup = new guiWidgetContextMenu(getTopLevelWidget());
        m_popup->setFont(getDefaultFont(nullptr));
        m_popup->owner = this;
        fillRoot();
    }
    m_opened = detail;
    m_opened.place = place;
    m_popup->setEnabled(m.enabled);
    m_popup->popup(place);
    return true;
}

void guiHtmlContextMenu::activateItem(int id)
{
    guiEventNote const note("menu", m_opened);
    guiHtmlControlMenu::activateItem(id);
}

// ---- Who shows it ----

namespace {

void showMenu(guiHtml* node, sstring const& name, guiEventDetail const& detail)
{
    guiPageRoot* root = node->getBaseHtml();
    auto* menu = root ? dynamic_cast<guiHtmlContextMenu*>(root->getNamed(name)) : nullptr;
    if (menu)
        menu->popup(*detail.place, detail);
    else
        velaLog("tarn: no context menu is called %s\n", velaPrintable(name).c_str());
}

} // namespace

bool guiHasContext(guiHtml const* node)
{
    return guiRareAttributeOf(node, guiRareAttribute::kContext).getLength() != 0 ||
           guiRareAttributeOf(node, guiRareAttribute::kContextMenu).getLength() != 0;
}

bool guiAnswerContext(guiHtml* node, QPoint place, guiEventDetail detail)
{
    assertOnGuiThread();
    while (node && !guiHasContext(node))
        node = node->getParent();
    if (!node)
        return false;
    detail.place = place;
    guiEventNote const note("context", detail);
    guiNodeWatch const self(node);
    if (sstring const link = guiRareAttributeOf(node, guiRareAttribute::kContext); link.getLength() != 0)
        node->onEvent(link, node->getCustomObject());
    sstring const menu = self.alive() ? guiRareAttributeOf(node, guiRareAttribute::kContextMenu) : sstring();
    if (menu.getLength() != 0)
        showMenu(node, menu, detail);
    return true;
}
