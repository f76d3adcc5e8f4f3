// controls/guihtmlcustom-read.cpp: reads the element `object`, whose attribute `classid` chooses the reader. A class
// that nobody has registered is a component in script.
#include "controls/guihtmlcustom.h"
#include "controls/guihtmlread.h"
#include "foundation/vela-mlparser.h"

namespace {

void pullObjectParams(guiHtmlParser& parser, guiHtmlCustom* custom, mlSection* section)
{
    guiElementWalk walk(parser, section, {"param"});
    while (mlSection* param = walk.next())
        custom->initParam(guiHtmlParser::pullData(param, "name"), guiHtmlParser::pullData(param, "value"));
}

void pullCustom(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* custom = pullControl<guiHtmlCustom>(parser, parent, section);
    guiHtmlParser::pullObjectAlignment(custom, section);
    guiHtmlParser::pullBackground(custom, section);
    guiHtmlParser::pullBorder(custom, section);
    if (section->findAttr("title"))
        custom->initTip(guiHtmlParser::pullData(section, "title"));
    parser.keepPlace(custom, section, {"classid", "background"});
    custom->initCompName(guiHtmlParser::pullAttr(section, "classid"));
    pullObjectParams(parser, custom, section);
}

void pullObject(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiTagTable::entry const* known = guiObjectClasses().find(guiHtmlParser::pullAttr(section, "classid"));
    (known ? known->read : pullCustom)(parser, parent, section);
}

guiTag const kObject("object", pullObject, kTagBlock);

} // namespace
