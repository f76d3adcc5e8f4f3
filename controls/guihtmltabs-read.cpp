// controls/guihtmltabs-read.cpp: reads `tabs` and `tab`.
#include "controls/guihtmlread.h"
#include "controls/guihtmltabbar.h"
#include "controls/guihtmltabs.h"
#include "page/guirareattributes.h"
#include "page/guirareread.h"

#include <memory>

namespace {

void pullBar(guiHtmlParser& parser, guiHtmlTabs* tabs, mlSection* section)
{
    auto* bar = parser.appendGuiHtml(tabs, std::make_unique<guiHtmlTabBar>());
    guiHtmlParser::pullName(bar, section);
    guiHtmlParser::pullTabIndex(bar, section);
    guiPullRareAttributes(bar, section);
    bar->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    if (guiHtmlParser::hasAttr(section, "disabled"))
        bar->setEnabled(0);
}

void pullTabs(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiHtmlTabs* const tabs = parser.appendBlock(parent, std::make_unique<guiHtmlTabs>());
    tabs->m.expandChildren = 1;
    tabs->m.alignX = kAlignLeft;
    tabs->m.alignY = kAlignTop;
    guiHtmlParser::pullRestrict(tabs, section);
    guiHtmlParser::keepPixelSizes(tabs);
    guiHtmlParser::pullMouseEvents(tabs, section);
    pullBar(parser, tabs, section);
    parser.pullContent(tabs, section);
    tabs->init(guiHtmlParser::pullData(section, "value"));
    parser.appendLineBreak(parent);
}

/// Also for a tab that is read inside of another one, which nobody has closed.
guiHtmlTabs* tabsAround(guiHtml* parent)
{
    guiHtml* const outer = dynamic_cast<guiHtmlTabSheet*>(parent) ? parent->getParent() : parent;
    return dynamic_cast<guiHtmlTabs*>(outer);
}

void pullSheet(guiHtmlParser& parser, guiHtmlTabSheet* sheet, mlSection* section)
{
    sheet->init(guiHtmlParser::pullData(section, "title"), guiHtmlParser::pullAttr(section, "icon"));
    guiHtmlParser::pullName(sheet, section);
    guiHtmlParser::pullString(sheet, section, "src", kStringSource);
    guiHtmlParser::pullObjectAlignment(sheet, section);
    guiHtmlParser::pullBackground(sheet, section);
    guiHtmlParser::pullRoomyBorder(sheet, section);
    sheet->m.border = guiHtmlTabSheet::kFrame;
    parser.keepPlace(sheet, section);
    parser.pullContent(sheet, section);
    if (guiHtmlParser::hasAttr(section, "disabled"))
        sheet->setEnabled(0);
}

/// Outside of `tabs` it is what it contains.
void pullTab(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiHtmlTabs* const tabs = tabsAround(parent);
    if (!tabs)
        return parser.pullContent(parent, section);
    parser.appendLineBreak(tabs);
    pullSheet(parser, parser.appendGuiHtml(tabs, std::make_unique<guiHtmlTabSheet>()), section);
}

guiTag const kTabs("tabs", pullTabs, kTagNests | kTagBlock);
guiTag const kTab("tab", pullTab, kTagNests | kTagBlock);

} // namespace
