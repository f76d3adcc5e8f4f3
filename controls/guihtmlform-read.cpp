// controls/guihtmlform-read.cpp: reads forms.
#include "controls/guihtmlform.h"
#include "page/guihtmlparser.h"
#include "page/guitagtable.h"

namespace {

void pullTableForm(guiHtmlParser& parser, guiHtmlForm* form, mlSection* section)
{
    guiHtmlParser::pullString(form, section, "src", kStringSource);
    form->setAction(guiHtmlParser::pullAttr(section, "action"));
    guiHtmlParser::pullObjectAlignment(form, section);
    guiHtmlParser::pullBackground(form, section);
    guiHtmlParser::pullRestrict(form, section);
    guiHtmlParser::pullBorder(form, section);
    guiHtmlParser::pullMouseEvents(form, section);
    guiHtmlParser::pullName(form, section);
    parser.keepPlace(form, section);
    parser.pullContent(form, section);
}

void pullForm(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* form = new guiHtmlForm;
    parser.appendBlock(parent, form);
    pullTableForm(parser, form, section);
}

guiTag const kForm("form", pullForm, kTagNests);

} // namespace
