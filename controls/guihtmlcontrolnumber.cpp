// controls/guihtmlcontrolnumber.cpp: see guihtmlcontrolnumber.h.
#include "controls/guihtmlcontrolnumber.h"

#include "controls/guiowntexts.h"
#include "controls/guiplaceholder.h"
#include "controls/guiwidgetnumber.h"
#include "controls/guiwidgetslider.h"
#include "foundation/vela-qt.h"

#include <QLineEdit>
#include <QLocale>
#include <algorithm>
#include <cmath>

namespace {

QString shown(double number) { return guiNumberText(number).replace(u'.', QLocale().decimalPoint()); }

void completeRange(guiNumberRange& range)
{
    constexpr double kLength = 100;
    if (!range.least)
        range.least = range.most ? std::min(0.0, *range.most) : 0;
    if (!range.most || *range.most < *range.least)
        range.most = range.most ? *range.least : std::max(kLength, *range.least);
}

} // namespace

guiHtml& guiHtmlControlNumber::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto const* number = dynamic_cast<guiHtmlControlNumber const*>(&other))
        m_shape = number->m_shape;
    return *this;
}

guiHtml* guiHtmlControlNumber::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlNumber::init(numberShape const& shape)
{
    m_shape = shape;
    if (!shape.isSlider)
        return;
    completeRange(m_shape.range);
    guiNumberRange const& range = m_shape.range;
    double const middle = (*range.least + *range.most) / 2;
    m_content.text = qtoss(nearest(guiReadNumber(sstoq(m_content.text)).value_or(middle)));
}

int guiHtmlControlNumber::getPreferredWidth()
{
    constexpr int kSliderWidth = 160;
    constexpr int kAroundText = 8;
    constexpr int kArrows = 18;
    if (!hasWindow())
        return 0;
    if (m_shape.isSlider)
        return scaled(kSliderWidth);
    return clampLength(std::int64_t{m_shape.size} * textWidth("X") + scaled(kAroundText + kArrows));
}

int guiHtmlControlNumber::getHeightEstimate(unsigned long)
{
    constexpr int kAroundText = 6;
    return hasWindow() ? lineSpacing() + scaled(kAroundText) : 0;
}

guiValueWidget* guiHtmlControlNumber::makeWidget(QWidget* parent)
{
    if (m_shape.isSlider)
        return new guiWidgetSlider(parent, m_shape.range);
    auto* const field = new guiWidgetNumber(parent, m_shape.range);
    field->setReadOnly(m_shape.isReadOnly);
    guiShowPlaceholder(field->edit(), sstoq(m_shape.placeholder));
    return field;
}

/// The number of a slider that is nearest.
QString guiHtmlControlNumber::nearest(double number) const
{
    guiNumberRange const& range = m_shape.range;
    double const steps = std::min(std::round((range.limited(number) - *range.least) / range.step),
                                  std::floor((*range.most - *range.least) / range.step));
    int const decimals = std::max(guiDecimalsOf(guiNumberText(range.step)), guiDecimalsOf(guiNumberText(*range.least)));
    return guiNumberText(QString::number(*range.least + steps * range.step, 'f', decimals).toDouble());
}

std::optional<QString> guiHtmlControlNumber::valueOf(QString const& text) const
{
    if (text.isEmpty() && !m_shape.isSlider)
        return text;
    std::optional<double> const number = guiReadNumber(text);
    if (!number)
        return std::nullopt;
    return m_shape.isSlider ? nearest(*number) : text.trimmed();
}

/// What is no number may have the decimal sign of the user's language in it.
QString guiHtmlControlNumber::asShown(QString const& value) const
{
    QString text = value;
    return guiReadNumber(value) ? text : text.replace(QLocale().decimalPoint(), QStringLiteral("."));
}

sstring guiHtmlControlNumber::findMistake()
{
    QString const text = sstoq(getText());
    if (m_shape.isReadOnly)
        return {};
    if (text.isEmpty())
        return guiHtmlControl::findMistake();
    std::optional<double> const number = guiReadNumber(text);
    if (!number)
        return qtoss(guiOwnText("This is no number."));
    guiNumberRange const& range = m_shape.range;
    if (range.least && *number < *range.least)
        return qtoss(guiOwnText("This has to be at least %1.").arg(shown(*range.least)));
    if (range.most && *number > *range.most)
        return qtoss(guiOwnText("This has to be at most %1.").arg(shown(*range.most)));
    return guiHtmlControl::findMistake();
}
