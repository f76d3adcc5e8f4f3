// controls/guihtmlcontrolmenu-read.cpp: reads menu bars and context menus with their items.
#include "controls/guihtmlcontextmenu.h"
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guihtmlread.h"
#include "foundation/vela-mlparser.h"

namespace {

guiMenuItemType readType(guiHtmlParser& parser, mlSection* section)
{
    if (guiHtmlParser::hasAttr(section, "toggle"))
        return guiMenuItemType::kToggle;
    if (!guiHtmlParser::hasAttr(section, "type"))
        return guiMenuItemType::kNormal;
    std::optional<guiMenuItemType> const type = guiReadItemType(guiHtmlParser::pullAttr(section, "type"));
    if (!type)
        parser.mistakes().addUnusedWord(section, "type", guiItemTypeWords());
    return type.value_or(guiMenuItemType::kNormal);
}

QKeySequence readKey(guiHtmlParser& parser, mlSection* section)
{
    if (!guiHtmlParser::hasAttr(section, "key"))
        return {};
    std::optional<QKeySequence> const key = guiReadKey(guiHtmlParser::pullData(section, "key"));
    if (!key)
        parser.mistakes().addUnusedWord(section, "key", {});
    return key.value_or(QKeySequence());
}

std::unique_ptr<guiHtmlControlMenuItem> readMenuItem(guiHtmlParser& parser, mlSection* section)
{
    auto item = std::make_unique<guiHtmlControlMenuItem>();
    item->name = guiHtmlParser::pullData(section, "name");
    item->text = guiHtmlParser::pullData(section, "value");
    item->enabled = !guiHtmlParser::hasAttr(section, "disabled");
    item->checked = guiHasValue(section, "checked");
    item->type = readType(parser, section);
    item->checkable = item->type != guiMenuItemType::kNormal || guiHtmlParser::hasAttr(section, "checked") ||
                      guiHtmlParser::hasAttr(section, "unchecked");
    item->group = guiHtmlParser::pullData(section, "group");
    item->key = readKey(parser, section);
    item->icon = guiHtmlParser::pullAttr(section, "icon");
    item->link = guiHtmlParser::pullAttr(section, "onclick");
    if (item->icon.getLength() != 0)
        item->place = parser.mistakes().place(section->getLine());
    return item;
}

/// An element that is being read, and where its items go.
struct menuLevel
{
    mlSection* section;
    unsigned next;                        // child to read
    guiHtmlControlMenu::menuItems* items; // not owned
    unsigned depth;
};

/// Adds the item that an element stands for, if any. Returns where the elements inside it go.
menuLevel pullMenuItem(guiHtmlParser& parser, mlSection* element, menuLevel const& around)
{
    menuLevel inside{element, 0, around.items, around.depth};
    bool const isMenu = element->isNamed("menu");
    if (isMenu && around.depth >= kMaxNesting) {
        parser.warnOfDepth(element->getLine());
    } else if (isMenu || element->isNamed("param")) {
        parser.mistakes().checkAttributes(element);
        around.items->push_back(readMenuItem(parser, element));
        if (isMenu) {
            inside.items = &around.items->back()->children;
            ++inside.depth;
        }
    }
    return inside;
}

// A nested menu element is an item with a sub-menu. A param is usually not closed and so contains the items that follow
// it.
void pullMenuItems(guiHtmlParser& parser, guiHtmlControlMenu* menu, mlSection* section)
{
    std::vector<menuLevel> path{{section, 0, &menu->editItems(), parser.depth()}};
    while (!path.empty()) {
        mlSection* child = path.back().section->getChild(path.back().next++);
        if (!child)
            path.pop_back();
        else if (child->isTag())
            path.push_back(pullMenuItem(parser, child, menuLevel(path.back())));
    }
}

template <typename Menu>
void pullObjectMenu(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* menu = pullControl<Menu>(parser, parent, section);
    pullMenuItems(parser, menu, section);
}

guiObjectClass const kMenu("menu", pullObjectMenu<guiHtmlControlMenu>);
guiObjectClass const kContextMenu("contextmenu", pullObjectMenu<guiHtmlContextMenu>);

} // namespace
