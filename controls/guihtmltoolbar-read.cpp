// controls/guihtmltoolbar-read.cpp: reads tool bars with their buttons. The bar is a plain node of one line.
#include "controls/guihtmlread.h"
#include "controls/guihtmltoolbutton.h"
#include "page/guihtmlparser.h"

#include <memory>

namespace {

void pullButton(guiHtmlParser& parser, guiHtml* bar, mlSection* section)
{
    auto* button = pullControl<guiHtmlToolButton>(parser, bar, section);
    sstring const text = guiHtmlParser::pullData(section, "value");
    sstring const item = guiHtmlParser::pullAttr(section, "item");
    button->initText(text == "-" ? sstring() : text);
    button->setAction(guiHtmlParser::pullAttr(section, "onclick"));
    button->init({item, guiHtmlParser::pullAttr(section, "icon"), guiHtmlParser::pullData(section, "title"),
                  text == "-" && item.getLength() == 0});
    parser.keepPlace(button, section, {"icon", "item"});
}

void pullToolBar(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    constexpr unsigned kWhole = 100;
    guiHtml* bar = parser.appendBlock(parent, std::make_unique<guiHtml>());
    bar->m.fixed.unitX = kUnitPercent;
    bar->m.fixed.x = kWhole;
    bar->m.divide = bar->m.space = 2;
    bar->m.alignX = kAlignLeft;
    guiHtmlParser::pullName(bar, section);
    guiHtmlParser::pullMouseEvents(bar, section);
    guiHtmlParser::pullBackground(bar, section);
    guiElementWalk buttons(parser, section, {"param"});
    while (mlSection* each = buttons.next())
        pullButton(parser, bar, each);
    parser.appendLineBreak(parent);
}

guiTag const kToolBar("toolbar", pullToolBar, kTagNests | kTagBlock);

} // namespace
