// controls/guicontextrequest.cpp: see guicontextrequest.h.
#include "controls/guicontextrequest.h"

#include "controls/guipopup.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"
#include "page/guirareattributes.h"

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
    if (self.alive())
        guiShowContextMenu(node, place, detail);
    return true;
}

void guiShowContextMenu(guiHtml* node, QPoint place, guiEventDetail const& detail)
{
    assertOnGuiThread();
    sstring const name = guiRareAttributeOf(node, guiRareAttribute::kContextMenu);
    if (name.getLength() == 0)
        return;
    guiPageRoot* root = node->getBaseHtml();
    auto* menu = root ? dynamic_cast<guiPopup*>(root->getNamed(sstring(name))) : nullptr;
    if (menu)
        menu->popup(place, detail);
    else
        velaLog("tarn: no context menu is called %s\n", velaPrintable(name).c_str());
}
