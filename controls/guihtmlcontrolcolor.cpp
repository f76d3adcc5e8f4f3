// controls/guihtmlcontrolcolor.cpp: see guihtmlcontrolcolor.h; and its reader.
#include "controls/guihtmlcontrolcolor.h"

#include "controls/guihtmlread.h"
#include "controls/guiwidgetcolor.h"
#include "foundation/vela-qt.h"
#include "page/guicolor.h"

guiHtml* guiHtmlControlColor::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlColor::init(sstring const& color)
{
    initText(qtoss(valueOf(sstoq(color)).value_or(QStringLiteral("#000000"))));
}

int guiHtmlControlColor::getPreferredWidth()
{
    constexpr int kWidth = 52;
    return hasWindow() ? scaled(kWidth) : 0;
}

int guiHtmlControlColor::getHeightEstimate(unsigned long)
{
    constexpr int kAroundLabel = 8;
    return hasWindow() ? lineSpacing() + scaled(kAroundLabel) : 0;
}

guiValueWidget* guiHtmlControlColor::makeWidget(QWidget* parent) { return new guiWidgetColor(parent); }

std::optional<QString> guiHtmlControlColor::valueOf(QString const& text) const
{
    guiColor color;
    if (!guiHtmlParser::readColor(qtoss(text), &color))
        return std::nullopt;
    return toQColor(color).name().toUpper();
}

namespace {

void pullInputColor(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    auto* const control = pullControl<guiHtmlControlColor>(parser, parent, section);
    control->init(guiHtmlParser::pullData(section, "value"));
    control->setAction(guiHtmlParser::pullAttr(section, "onchange"));
}

guiInputType const kColor("color", pullInputColor);

} // namespace
