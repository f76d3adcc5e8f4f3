// controls/guihtmlcontextmenu.cpp: see guihtmlcontextmenu.h.
#include "controls/guihtmlcontextmenu.h"

#include "controls/guieventscope.h"
#include "controls/guiwidgetcontextmenu.h"
#include "foundation/vela-threadrole.h"

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
