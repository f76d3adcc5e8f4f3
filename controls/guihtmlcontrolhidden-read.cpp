// controls/guihtmlcontrolhidden-read.cpp: reads hidden fields.
#include "controls/guihtmlcontrolhidden.h"
#include "controls/guihtmlread.h"

namespace {

void pullInputHidden(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* hidden = new guiHtmlControlHidden;
    parser.appendGuiHtml(parent, hidden);
    guiHtmlParser::pullName(hidden, section);
    hidden->initText(guiHtmlParser::pullData(section, "value"));
}

guiInputType const kHidden("hidden", pullInputHidden);

} // namespace
