// controls/guihtmlcontrolmenu.cpp: see guihtmlcontrolmenu.h.
#include "controls/guihtmlcontrolmenu.h"

namespace {

guiHtmlControlMenu::items_t copyItems(guiHtmlControlMenu::items_t const& items)
{
    guiHtmlControlMenu::items_t copies;
    for (auto const& item : items) {
        auto copy = std::make_unique<guiHtmlControlMenuItem>();
        copy->name = item->name;
        copy->text = item->text;
        copy->checkable = item->checkable;
        copy->checked = item->checked;
        copy->enabled = item->enabled;
        copy->children = copyItems(item->children);
        copies.push_back(std::move(copy));
    }
    return copies;
}

} // namespace

guiHtml& guiHtmlControlMenu::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto* menu = dynamic_cast<guiHtmlControlMenu*>(&other))
        m_items = copyItems(menu->m_items);
    return *this;
}

guiHtml* guiHtmlControlMenu::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

// Items have ids only while there is a menu bar.
void guiHtmlControlMenu::activateItem(int) {}
