// controls/guihtmlcontrollist-read.cpp: reads drop-down lists and list boxes with their entries.
#include "controls/guihtmlcontrollist.h"
#include "controls/guihtmlread.h"
#include "page/guinumbers.h"

namespace {

void pullInputListEntries(guiHtmlParser& parser, guiHtmlControlList* list, mlSection* section)
{
    guiElementWalk walk(parser, section, {"option", "param"});
    while (mlSection* entry = walk.next()) {
        sstring text = guiDirectText(entry);
        bool const hasValue = guiHtmlParser::hasAttr(entry, "value");
        list->appendEntry(hasValue ? guiHtmlParser::pullData(entry, "value") : text, text,
                          guiHasValue(entry, "selected"));
    }
}

void pullInputList(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* list = pullControl<guiHtmlControlList>(parser, parent, section);
    list->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    bool const hasSize = guiHtmlParser::hasAttr(section, "size");
    int visibleRows = hasSize ? guiToPixels(guiHtmlParser::pullAttr(section, "size")) : 1;
    pullRules(parser, list, section);
    list->init(visibleRows, guiHasValue(section, "multiple"), guiHasValue(section, "edit"));
    pullInputListEntries(parser, list, section);
}

guiTag const kSelect("select", pullInputList);

} // namespace
