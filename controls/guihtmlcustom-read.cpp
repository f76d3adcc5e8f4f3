// controls/guihtmlcustom-read.cpp: reads `object` elements: those of the classes that are known by name, and all
// others, which stand for script's own.
#include "controls/guihtmlcustom.h"
#include "controls/guihtmlread.h"

namespace {

void pullObjectParams(guiHtmlCustom* custom, mlSection* section)
{
    guiElementWalk walk(section, {"param"});
    while (mlSection* param = walk.next())
        custom->setParam(guiHtmlParser::pullAttr(param, "name"), guiHtmlParser::pullAttr(param, "value"));
}

void pullCustom(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* custom = new guiHtmlCustom;
    pullControl(parser, parent, custom, section);
    guiHtmlParser::pullObjectAlignment(custom, section);
    guiHtmlParser::pullBackground(custom, section);
    guiHtmlParser::pullBorder(custom, section);
    custom->setCompName(guiHtmlParser::pullAttr(section, "classid"));
    pullObjectParams(custom, section);
}

void pullObject(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiTagTable::entry const* known = guiObjectClasses().find(guiHtmlParser::pullAttr(section, "classid"));
    (known ? known->read : pullCustom)(parser, parent, section);
}

guiTag const kObject("object", pullObject, kTagBlock);

} // namespace
