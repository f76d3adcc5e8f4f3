// controls/guihtmlcontrolgauge-read.cpp: reads bars of progress and meters.
#include "controls/guihtmlcontrolgauge.h"
#include "controls/guihtmlread.h"
#include "controls/guinumbertext.h"
#include "foundation/vela-qt.h"

#include <algorithm>

namespace {

std::optional<double> pullNumber(mlSection* section, char const* name)
{
    return guiReadNumber(sstoq(guiHtmlParser::pullAttr(section, name, "")));
}

void pullGauge(guiHtmlParser& parser, guiHtml* parent, mlSection* section, guiGaugeShape const& shape)
{
    auto* const gauge = pullControl<guiHtmlControlGauge>(parser, parent, section);
    gauge->initText(guiHtmlParser::pullAttr(section, "value", ""));
    gauge->init(shape);
}

void pullProgress(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiGaugeShape shape;
    double const most = pullNumber(section, "max").value_or(1);
    shape.most = most > 0 ? most : 1;
    pullGauge(parser, parent, section, shape);
}

/// Limits that contradict each other are moved to those that come first.
void pullMeter(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    guiGaugeShape shape;
    shape.isMeter = true;
    shape.least = pullNumber(section, "min").value_or(0);
    shape.most = std::max(shape.least, pullNumber(section, "max").value_or(std::max(1.0, shape.least)));
    shape.low = std::clamp(pullNumber(section, "low").value_or(shape.least), shape.least, shape.most);
    shape.high = std::clamp(pullNumber(section, "high").value_or(shape.most), shape.low, shape.most);
    double const middle = (shape.least + shape.most) / 2;
    shape.best = std::clamp(pullNumber(section, "optimum").value_or(middle), shape.least, shape.most);
    pullGauge(parser, parent, section, shape);
}

guiTag const kProgress("progress", pullProgress, kTagFollowed);
guiTag const kMeter("meter", pullMeter, kTagFollowed);

} // namespace
