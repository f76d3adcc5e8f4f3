// controls/guihtmlcontrolmoment.cpp: see guihtmlcontrolmoment.h.
#include "controls/guihtmlcontrolmoment.h"

#include "controls/guiowntexts.h"
#include "controls/guiplaceholder.h"
#include "foundation/vela-qt.h"

#include <QDate>

guiHtml& guiHtmlControlMoment::operator=(guiHtml& other)
{
    guiHtmlControl::operator=(other);
    if (auto const* moment = dynamic_cast<guiHtmlControlMoment const*>(&other)) {
        m_shape = moment->m_shape;
        m_isReadOnly = moment->m_isReadOnly;
    }
    return *this;
}

guiHtml* guiHtmlControlMoment::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlControlMoment::init(guiMomentShape const& shape, bool isReadOnly)
{
    m_shape = shape;
    m_shape.least = guiReadMoment(shape.least, shape.isDate).value_or(QString());
    m_shape.most = guiReadMoment(shape.most, shape.isDate).value_or(QString());
    m_isReadOnly = isReadOnly;
}

int guiHtmlControlMoment::getPreferredWidth()
{
    constexpr int kAroundText = 16;
    constexpr int kButton = 24;
    if (!hasWindow())
        return 0;
    return textWidth(m_shape.isDate ? "0000-00-00" : "00:00:00") + scaled(kAroundText) +
           (m_shape.isDate ? scaled(kButton) : 0);
}

int guiHtmlControlMoment::getHeightEstimate(unsigned long)
{
    constexpr int kAroundText = 6;
    return hasWindow() ? lineSpacing() + scaled(kAroundText) : 0;
}

/// An empty field says how a value is written.
guiValueWidget* guiHtmlControlMoment::makeWidget(QWidget* parent)
{
    auto* const field = new guiWidgetMoment(parent, m_shape);
    field->setReadOnly(m_isReadOnly);
    guiShowPlaceholder(field, guiMomentFormat(m_shape.isDate).toLower());
    return field;
}

std::optional<QString> guiHtmlControlMoment::valueOf(QString const& text) const
{
    return text.isEmpty() ? std::optional(text) : guiReadMoment(text, m_shape.isDate);
}

/// Days and times of the form's way of writing are ordered as texts.
sstring guiHtmlControlMoment::findMistake()
{
    QString const text = sstoq(getText());
    if (m_isReadOnly)
        return {};
    if (text.isEmpty())
        return guiHtmlControl::findMistake();
    if (!guiReadMoment(text, m_shape.isDate))
        return qtoss(m_shape.isDate ? guiOwnText("This is no date.") : guiOwnText("This is no time."));
    auto const shown = [this](QString const& moment) {
        return m_shape.isDate ? QDate::fromString(moment, Qt::ISODate).toString(guiMomentFormat(true)) : moment;
    };
    if (!m_shape.least.isEmpty() && text < m_shape.least)
        return qtoss(guiOwnText("This must not be before %1.").arg(shown(m_shape.least)));
    if (!m_shape.most.isEmpty() && text > m_shape.most)
        return qtoss(guiOwnText("This must not be after %1.").arg(shown(m_shape.most)));
    return guiHtmlControl::findMistake();
}
