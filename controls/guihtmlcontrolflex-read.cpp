// controls/guihtmlcontrolflex-read.cpp: reads flex lists with their rows.
#include "controls/guihtmlcontrolflex.h"
#include "controls/guihtmlread.h"
#include "foundation/vela-mlparser.h"
#include "page/guinumbers.h"

namespace {

sstring firstNonEmpty(sstring const& a, sstring const& b) { return a.getLength() ? a : b; }

/// The column codes of a row: the text of text1, then those of text2, text3 and so on up to the first that is missing.
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

/// Key and text of a row. In a param without `text`, `name` is the key and `value` the text, as in all params.
void readKeyAndText(mlSection* section, guiHtmlControlFlexEntry& entry)
{
    sstring name = guiHtmlParser::pullAttr(section, "name");
    sstring value = guiHtmlParser::pullAttr(section, "value");
    sstring text = firstNonEmpty(columnTexts(section), guiHtmlParser::pullAttr(section, "text"));
    bool isParam = section->isNamed("param");
    if (isParam && text.getLength() == 0 && name.getLength()) {
        entry.value = name;
        entry.text = value;
        return;
    }
    entry.text = text.getLength() || isParam ? text : guiDirectText(section);
    entry.value = firstNonEmpty(firstNonEmpty(value, name), entry.text);
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
        readKeyAndText(row, entry);
        entry.parent = guiHtmlParser::pullAttr(row, "parent");
        entry.entryType = rowType(guiHtmlParser::pullAttr(row, "type"), flex->getStyleBits());
        entry.selected = guiHasValue(row, "selected");
        entry.checked = guiHasValue(row, "checked");
        entry.enabled = !guiHtmlParser::hasAttr(row, "disabled");
        entry.expanded = !guiHtmlParser::hasAttr(row, "collapsed");
        flex->appendEntry(entry);
    }
}

template <unsigned styleBits>
void pullInputFlex(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* flex = pullControl<guiHtmlControlFlex>(parser, parent, section);
    int rows = guiToPixels(guiHtmlParser::pullAttr(section, "size"));
    flex->init(styleBits, rows ? rows : guiHtmlControlFlex::kDefaultRows, guiHasValue(section, "multiple"));
    if (guiHasValue(section, "onselect"))
        flex->setSelectAction(guiHtmlParser::pullAttr(section, "onselect"));
    if (guiHasValue(section, "onchange"))
        flex->setChangeAction(guiHtmlParser::pullAttr(section, "onchange"));
    pullInputFlexEntries(parser, flex, section);
}

guiObjectClass const kFlexList("flexlist", pullInputFlex<0>);
guiObjectClass const kListView("listview", pullInputFlex<0>);
guiObjectClass const kTreeView("treeview", pullInputFlex<kFlexNoHeader>);
guiObjectClass const kCheckList("checklist", pullInputFlex<kFlexNoHeader | kFlexCheckByDefault>);

} // namespace
