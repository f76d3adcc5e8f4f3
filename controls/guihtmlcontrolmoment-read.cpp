// controls/guihtmlcontrolmoment-read.cpp: reads fields for days and times of day.
#include "controls/guihtmlcontrolmoment.h"
#include "controls/guihtmlread.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

namespace {

void pullInputMoment(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* const control = pullControl<guiHtmlControlMoment>(parser, parent, section);
    guiMomentShape shape;
    shape.isDate = guiIsWord(guiHtmlParser::pullAttr(section, "type"), "date");
    shape.least = sstoq(guiHtmlParser::pullAttr(section, "min", ""));
    shape.most = sstoq(guiHtmlParser::pullAttr(section, "max", ""));
    control->initText(guiHtmlParser::pullData(section, "value"));
    control->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    control->init(shape, guiHtmlParser::hasAttr(section, "readonly"));
    pullRules(parser, control, section);
}

guiInputType const kDate("date", pullInputMoment);
guiInputType const kTime("time", pullInputMoment);

} // namespace
