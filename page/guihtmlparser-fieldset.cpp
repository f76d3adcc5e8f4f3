// page/guihtmlparser-fieldset.cpp: reads group boxes: `fieldset`, and `legend`, its title.
#include "page/guihtmlparser.h"
#include "page/guitagtable.h"

#include <memory>

namespace {

void pullFrame(guiHtml* box, mlSection* section)
{
    constexpr int kEtched = 2;
    guiHtmlParser::pullRoomyBorder(box, section);
    if (!guiHtmlParser::hasAttr(section, "border"))
        box->m.border = kEtched;
}

/// What is in it is disabled as a whole.
void pullFieldset(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiHtml* const box = parser.appendBlock(parent, std::make_unique<guiHtml>());
    box->m.expandChildren = 1;
    box->setString(kStringCaption, sstring(kEmptyGroupBox));
    guiHtmlParser::pullBackground(box, section);
    guiHtmlParser::pullRestrict(box, section);
    guiHtmlParser::keepPixelSizes(box);
    pullFrame(box, section);
    guiHtmlParser::pullName(box, section);
    guiHtmlParser::pullMouseEvents(box, section);
    parser.pullContent(box, section);
    if (guiHtmlParser::hasAttr(section, "disabled"))
        box->setEnabled(0);
    parser.appendLineBreak(parent);
}

/// Outside of a fieldset, or as a second one, a legend is text like any other.
void pullLegend(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    sstring const title = parser.pullText(section);
    if (title.getLength() != 0 && parent->isString(kStringCaption, sstring(kEmptyGroupBox)))
        parent->setString(kStringCaption, title);
    else
        parser.pullContent(parent, section);
}

guiTag const kFieldset("fieldset", pullFieldset, kTagNests | kTagBlock);
guiTag const kLegend("legend", pullLegend, kTagNests);

} // namespace
