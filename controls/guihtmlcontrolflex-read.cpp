// controls/guihtmlcontrolflex-read.cpp: reads flex lists with their rows.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlread.h"
#include "controls/guilistlook.h"
#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <string>
#include <utility>

namespace {

sstring firstNonEmpty(sstring const& a, sstring const& b) { return a.getLength() ? a : b; }

/// The texts of text1, then of text2, text3 and so on up to the first that is missing. They are taken literally.
/// Returns how many there are.
int readColumnTexts(mlSection* section, guiHtmlControlFlexEntry& entry)
{
    for (int column = 1;; ++column) {
        sformat const name("text%ld", long{column});
        bool const isThere = guiHtmlParser::hasAttr(section, name.c_str());
        if (!isThere && column > 1)
            return column - 1;
        sstring const text = guiHtmlParser::pullData(section, name.c_str());
        if (guiContainsColumnCode(text))
            entry.uncoded.add(column, text);
        else if (column == 1)
            entry.text = text;
        else
            guiAddColumnText(entry.text, column, text);
    }
}

/// Attributes without a number are about the row, numbered ones about a column.
guiTextLook readLook(mlSection* section, unsigned column)
{
    std::string const number = column ? std::to_string(column) : std::string();
    auto has = [&](char const* name) { return guiHtmlParser::hasAttr(section, (name + number).c_str()); };
    auto pull = [&](char const* name) { return sstoq(guiHtmlParser::pullAttr(section, (name + number).c_str())); };
    guiTextLook look{pull("color"), pull("bgcolor"), std::nullopt};
    if (has("bold"))
        look.isBold = true;
    return look;
}

void readLooks(mlSection* section, guiHtmlControlFlexEntry& entry, int columns)
{
    for (int column = 0; column <= columns; ++column)
        guiAddLook(entry.look, static_cast<unsigned>(column), readLook(section, static_cast<unsigned>(column)));
}

bool hasText(guiHtmlControlFlexEntry const& entry) { return entry.text.getLength() || !entry.uncoded.texts.empty(); }

/// Key and text of a row. In a param without `text`, `name` is the key and `value` the text, as in all params.
/// Returns how many texts are numbered.
int readKeyAndText(mlSection* section, guiHtmlControlFlexEntry& entry)
{
    sstring name = guiHtmlParser::pullData(section, "name");
    sstring value = guiHtmlParser::pullData(section, "value");
    int const columns = readColumnTexts(section, entry);
    if (!hasText(entry))
        entry.text = guiHtmlParser::pullData(section, "text");
    bool isParam = section->isNamed("param");
    if (isParam && !hasText(entry) && name.getLength()) {
        entry.value = name;
        entry.text = value;
        return columns;
    }
    if (!hasText(entry) && !isParam)
        entry.text = guiDirectText(section);
    sstring const& first = entry.uncoded.texts.empty() ? entry.text : entry.uncoded.texts.front().text;
    entry.value = firstNonEmpty(firstNonEmpty(value, name), firstNonEmpty(entry.text, first));
    return columns;
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

void pullInputFlexEntries(guiHtmlParser& parser, guiHtmlControlFlex* flex, mlSection* section)
{
    guiElementWalk walk(parser, section, {"option", "param"});
    while (mlSection* row = walk.next()) {
        guiHtmlControlFlexEntry entry;
        int const columns = readKeyAndText(row, entry);
        entry.parent = guiHtmlParser::pullData(row, "parent");
        entry.icon = guiHtmlParser::pullAttr(row, "icon");
        readLooks(row, entry, std::max(1, columns));
        entry.entryType = rowType(guiHtmlParser::pullAttr(row, "type"), flex->getStyleBits());
        entry.selected = guiHasValue(row, "selected");
        entry.checked = guiHasValue(row, "checked");
        entry.enabled = !guiHtmlParser::hasAttr(row, "disabled");
        entry.expanded = !guiHtmlParser::hasAttr(row, "collapsed");
        flex->appendEntry(entry);
    }
}

guiColumnLook readColumnLook(mlSection* column)
{
    guiColumnLook look;
    look.align = sstoq(guiHtmlParser::pullAttr(column, "align"));
    look.sort = sstoq(guiHtmlParser::pullAttr(column, "sort"));
    if (guiHasValue(column, "order"))
        look.order = std::max(0, guiToNumber(guiHtmlParser::pullAttr(column, "order")));
    look.isEditable = guiHtmlParser::hasAttr(column, "editable");
    return look;
}

void pullColumns(guiHtmlParser& parser, guiHtmlControlFlex* flex, mlSection* section)
{
    guiElementWalk walk(parser, section, {"column"});
    for (int number = 1; mlSection* column = walk.next(); ++number) {
        flex->setColumnText(number, guiHtmlParser::pullData(column, "text"));
        flex->setColumnLook(number, readColumnLook(column));
        if (guiHasValue(column, "width"))
            flex->setColumnWidth(number, guiToPixels(guiHtmlParser::pullAttr(column, "width")));
    }
}

/// The links of a list, by attribute; without one the usual link stays.
void pullActions(guiHtmlControlFlex* flex, mlSection* section)
{
    constexpr std::pair<char const*, void (guiHtmlControlFlex::*)(sstring const&)> kActions[] = {
        {"onselect", &guiHtmlControlFlex::setSelectAction},   {"onchange", &guiHtmlControlFlex::setChangeAction},
        {"onsort", &guiHtmlControlFlex::setSortAction},       {"onactivate", &guiHtmlControlFlex::setActivateAction},
        {"oncontext", &guiHtmlControlFlex::setContextAction}, {"onexpand", &guiHtmlControlFlex::setExpandAction},
        {"onheader", &guiHtmlControlFlex::setHeaderAction},   {"onrename", &guiHtmlControlFlex::setRenameAction},
    };
    for (auto const& [name, set] : kActions)
        if (guiHasValue(section, name))
            (flex->*set)(guiHtmlParser::pullAttr(section, name));
}

template <unsigned styleBits>
void pullInputFlex(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* flex = pullControl<guiHtmlControlFlex>(parser, parent, section);
    int rows = guiToPixels(guiHtmlParser::pullAttr(section, "size"));
    flex->init(styleBits, rows ? rows : guiHtmlControlFlex::kDefaultRows, guiHasValue(section, "multiple"));
    flex->setEditable(guiHtmlParser::hasAttr(section, "editable"));
    flex->setZebra(guiHasValue(section, "zebra"));
    pullActions(flex, section);
    pullColumns(parser, flex, section);
    pullInputFlexEntries(parser, flex, section);
}

guiObjectClass const kFlexList("flexlist", pullInputFlex<0>);
guiObjectClass const kListView("listview", pullInputFlex<0>);
guiObjectClass const kTreeView("treeview", pullInputFlex<kFlexNoHeader>);
guiObjectClass const kCheckList("checklist", pullInputFlex<kFlexNoHeader | kFlexCheckByDefault>);

} // namespace
