// controls/guihtmlcontrolgauge.cpp: see guihtmlcontrolgauge.h.
#include "controls/guihtmlcontrolgauge.h"

#include "controls/guinumbertext.h"

guiHtml& guiHtmlControlGauge::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto const* gauge = dynamic_cast<guiHtmlControlGauge const*>(&other))
        m_shape = gauge->m_shape;
    return *this;
}

guiHtml* guiHtmlControlGauge::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

int guiHtmlControlGauge::getPreferredWidth()
{
    constexpr int kWidth = 160;
    return hasWindow() ? scaled(kWidth) : 0;
}

int guiHtmlControlGauge::getHeightEstimate(unsigned long) { return hasWindow() ? lineSpacing() : 0; }

guiValueWidget* guiHtmlControlGauge::makeWidget(QWidget* parent) { return new guiWidgetGauge(parent, m_shape); }

std::optional<QString> guiHtmlControlGauge::valueOf(QString const& text) const
{
    if (text.isEmpty())
        return text;
    std::optional<double> const number = guiReadNumber(text);
    return number ? std::optional(guiNumberText(*number)) : std::nullopt;
}
