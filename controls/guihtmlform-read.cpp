// controls/guihtmlform-read.cpp: reads forms.
#include "controls/guihtmlform.h"
#include "page/guihtmlparser.h"
#include "page/guitagtable.h"

namespace {

void pullTableForm(guiHtmlParser& parser, guiHtmlForm* form, mlSection* section)
{
    form->setAction(guiHtmlParser::pullAttr(section, "action"));
    parser.pullTableCell(form, section);
}

void pullForm(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* form = new guiHtmlForm;
    parser.appendBlock(parent, form);
    pullTableForm(parser, form, section);
}

guiTag const kForm("form", pullForm, kTagNests);

} // namespace
