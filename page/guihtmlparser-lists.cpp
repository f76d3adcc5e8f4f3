// page/guihtmlparser-lists.cpp: the entries of lists, flex lists and menus.
#include "page/guihtmlparser.h"

#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlcontrolmenu.h"
#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"

#include <algorithm>

namespace {

bool isEntry(mlSection* section)
{
    return section->isTag() && (section->isNamed("option") || section->isNamed("param"));
}

/// Walks the option and param elements of a list in order. An entry that is not closed contains the ones that follow
/// it, so they are looked for at any depth; one by one, since a list of thousands nests as deeply.
class entryWalk
{
public:
    explicit entryWalk(mlSection* list) : m_path{{list, 0}} {}

    /// The next entry, null after the last.
    mlSection* next()
    {
        while (!m_path.empty()) {
            mlSection* item = m_path.back().first->getChild(m_path.back().second++);
            if (!item)
                m_path.pop_back();
            else if (item->isTag())
                m_path.emplace_back(item, 0);
            if (item && isEntry(item))
                return item;
        }
        return nullptr;
    }

private:
    std::vector<std::pair<mlSection*, unsigned>> m_path;
};

/// The text directly in an element, without that of the elements in it.
sstring ownText(mlSection* section)
{
    sstring text;
    for (unsigned i = 0; mlSection* item = section->getChild(i); ++i) {
        if (item->isTag())
            continue;
        if (text.getLength() && item->hasLeadingSpace())
            text += ' ';
        text += item->getData();
    }
    return text;
}

sstring firstGiven(sstring const& a, sstring const& b) { return a.getLength() ? a : b; }

bool isGiven(mlSection* section, char const* name) { return guiHtmlParser::pullAttr(section, name).getLength() != 0; }

} // namespace

void guiHtmlParser::pullInputList(guiHtml* parent, mlSection* section)
{
    auto* list = new guiHtmlControlList;
    pullControl(parent, list, section);
    list->setAction(pullAttr(section, "onchange"));
    int visibleRows = hasAttr(section, "size") ? guiToPixels(pullAttr(section, "size")) : 1;
    list->init(visibleRows, isGiven(section, "multiple"), isGiven(section, "edit"));
    pullInputListEntries(list, section);
}

void guiHtmlParser::pullInputListEntries(guiHtmlControlList* list, mlSection* section)
{
    entryWalk walk(section);
    while (mlSection* entry = walk.next()) {
        sstring text = ownText(entry);
        list->appendEntry(hasAttr(entry, "value") ? pullAttr(entry, "value") : text, text, isGiven(entry, "selected"));
    }
}

namespace {

/// The columns of a row: text1 is the first, text2 and on are appended as "|N|" and the text, up to the first gap.
sstring columnTexts(mlSection* section)
{
    sstring text = guiHtmlParser::pullAttr(section, "text1");
    for (long column = 2;; ++column) {
        sformat name("text%ld", column);
        if (!guiHtmlParser::hasAttr(section, name.c_str()))
            return text;
        text += sformat("|%ld|", column);
        text += guiHtmlParser::pullAttr(section, name.c_str());
    }
}

/// Key and text of a row. A param without a text names its key `name` and its text `value`, like all params.
void readKeyAndText(mlSection* section, guiHtmlControlFlexEntry& entry)
{
    sstring name = guiHtmlParser::pullAttr(section, "name");
    sstring value = guiHtmlParser::pullAttr(section, "value");
    sstring text = firstGiven(columnTexts(section), guiHtmlParser::pullAttr(section, "text"));
    bool isParam = section->isNamed("param");
    if (isParam && text.getLength() == 0 && name.getLength()) {
        entry.value = name;
        entry.text = value;
        return;
    }
    entry.text = text.getLength() || isParam ? text : ownText(section);
    entry.value = firstGiven(firstGiven(value, name), entry.text);
}

guiHtmlControlFlexEntryType rowType(sstring const& type, unsigned styleBits)
{
    if (guiIsWord(type, "checkbox"))
        return kFlexCheckBox;
    if (guiIsWord(type, "radiobutton"))
        return kFlexRadio;
    bool isDefault = type.getLength() == 0;
    return isDefault && (styleBits & kFlexCheckByDefault) ? kFlexCheckBox : kFlexPlain;
}

unsigned flexStyle(sstring const& kind)
{
    if (guiIsWord(kind, "checklist"))
        return kFlexNoHeader | kFlexCheckByDefault;
    return guiIsWord(kind, "treeview") ? unsigned{kFlexNoHeader} : 0;
}

} // namespace

void guiHtmlParser::pullInputFlex(guiHtml* parent, mlSection* section, sstring const& kind)
{
    auto* flex = new guiHtmlControlFlex;
    pullControl(parent, flex, section);
    int rows = guiToPixels(pullAttr(section, "size"));
    flex->init(flexStyle(kind), rows ? rows : guiHtmlControlFlex::kDefaultRows, isGiven(section, "multiple"));
    if (isGiven(section, "onselect"))
        flex->setSelectAction(pullAttr(section, "onselect"));
    if (isGiven(section, "onchange"))
        flex->setChangeAction(pullAttr(section, "onchange"));
    pullInputFlexEntries(flex, section);
}

void guiHtmlParser::pullInputFlexEntries(guiHtmlControlFlex* flex, mlSection* section)
{
    entryWalk walk(section);
    while (mlSection* row = walk.next()) {
        guiHtmlControlFlexEntry entry;
        readKeyAndText(row, entry);
        entry.parent = pullAttr(row, "parent");
        entry.entryType = rowType(pullAttr(row, "type"), flex->getStyleBits());
        entry.selected = isGiven(row, "selected");
        entry.checked = isGiven(row, "checked");
        entry.enabled = !hasAttr(row, "disabled");
        entry.expanded = !hasAttr(row, "collapsed");
        flex->appendEntry(entry);
    }
}

void guiHtmlParser::pullObjectMenu(guiHtml* parent, mlSection* section)
{
    auto* menu = new guiHtmlControlMenu;
    pullControl(parent, menu, section);
    pullMenuItems(menu, section);
}

namespace {

std::unique_ptr<guiHtmlControlMenuItem> readMenuItem(mlSection* section)
{
    auto item = std::make_unique<guiHtmlControlMenuItem>();
    item->name = guiHtmlParser::pullAttr(section, "name");
    item->text = guiHtmlParser::pullAttr(section, "value");
    item->enabled = !guiHtmlParser::hasAttr(section, "disabled");
    item->checked = isGiven(section, "checked");
    item->checkable = guiHtmlParser::hasAttr(section, "checked") || guiHtmlParser::hasAttr(section, "unchecked");
    return item;
}

} // namespace

// A nested menu element is an item with a sub-menu; a param that is not closed contains the items that follow it.
void guiHtmlParser::pullMenuItems(guiHtmlControlMenu* menu, mlSection* section)
{
    struct place
    {
        mlSection* section;
        unsigned next;
        guiHtmlControlMenu::items_t* items;
        unsigned depth;
    };
    std::vector<place> path{{section, 0, &menu->editItems(), m_depth}};
    while (!path.empty()) {
        place& at = path.back();
        mlSection* child = at.section->getChild(at.next++);
        if (!child) {
            path.pop_back();
            continue;
        }
        if (!child->isTag())
            continue;
        bool isMenu = child->isNamed("menu");
        place inside{child, 0, at.items, at.depth};
        if (isMenu && at.depth >= kMaxNesting) {
            warnOfDepth();
        } else if (isMenu || child->isNamed("param")) {
            at.items->push_back(readMenuItem(child));
            if (isMenu) {
                inside.items = &at.items->back()->children;
                ++inside.depth;
            }
        }
        path.push_back(inside);
    }
}
