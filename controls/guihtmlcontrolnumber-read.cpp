// controls/guihtmlcontrolnumber-read.cpp: reads fields for numbers and sliders.
#include "controls/guihtmlcontrolnumber.h"
#include "controls/guihtmlread.h"
#include "foundation/vela-qt.h"
#include "page/guinumbers.h"

namespace {

guiNumberRange pullRange(mlSection* section)
{
    auto const number = [section](char const* name) {
        return guiReadNumber(sstoq(guiHtmlParser::pullAttr(section, name, "")));
    };
    guiNumberRange range;
    range.least = number("min");
    range.most = number("max");
    double const step = number("step").value_or(1);
    range.step = step > 0 ? step : 1;
    return range;
}

void pullInputNumber(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* const control = pullControl<guiHtmlControlNumber>(parser, parent, section);
    control->initText(guiHtmlParser::pullData(section, "value"));
    control->setAction(guiHtmlParser::pullAttr(section, "onchange"));
    guiHtmlControlNumber::numberShape shape;
    shape.range = pullRange(section);
    shape.size = guiCountOrDefault(guiHtmlParser::pullAttr(section, "size"), shape.size);
    shape.isSlider = guiIsWord(guiHtmlParser::pullAttr(section, "type"), "range");
    shape.isReadOnly = guiHtmlParser::hasAttr(section, "readonly");
    shape.placeholder = guiHtmlParser::pullData(section, "placeholder");
    control->init(shape);
    pullRules(parser, control, section);
}

guiInputType const kNumber("number", pullInputNumber);
guiInputType const kRange("range", pullInputNumber);

} // namespace
