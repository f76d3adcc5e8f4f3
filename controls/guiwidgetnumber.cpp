// controls/guiwidgetnumber.cpp: see guiwidgetnumber.h.
#include "controls/guiwidgetnumber.h"

#include "controls/guieventscope.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QLocale>
#include <QRegularExpression>
#include <QWheelEvent>
#include <algorithm>

guiWidgetNumber::guiWidgetNumber(QWidget* parent, guiNumberRange const& range)
    : QAbstractSpinBox(parent), m_range(range)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_NoSystemBackground);
    connect(lineEdit(), &QLineEdit::textChanged, this, [this] { report(); });
}

QString guiWidgetNumber::value() const
{
    return lineEdit()->text().replace(QLocale().decimalPoint(), QStringLiteral("."));
}

void guiWidgetNumber::showValue(QString const& value)
{
    QString shown = value;
    lineEdit()->setText(guiReadNumber(value) ? shown.replace(u'.', QLocale().decimalPoint()) : shown);
}

/// An empty field goes to where the range begins. Decimals are those of the step, or as many as stand there.
void guiWidgetNumber::stepBy(int steps)
{
    guiEventScope scope;
    QString const text = value();
    std::optional<double> const number = guiReadNumber(text);
    double const next = number ? *number + steps * m_range.step : m_range.least.value_or(0);
    int const decimals = std::max(guiDecimalsOf(text), guiDecimalsOf(guiNumberText(m_range.step)));
    double const limited = m_range.limited(next);
    showValue(limited == next ? QString::number(next, 'f', decimals) : guiNumberText(limited));
    selectAll();
}

/// What may become a number.
QValidator::State guiWidgetNumber::validate(QString& text, int&) const
{
    static auto const& shape = *new QRegularExpression(QStringLiteral("^\\s*[-+]?\\d*(\\.\\d*)?([eE][-+]?\\d*)?\\s*$"));
    QString plain = text;
    return shape.match(plain.replace(QLocale().decimalPoint(), QStringLiteral("."))).hasMatch() ? QValidator::Acceptable
                                                                                                : QValidator::Invalid;
}

QAbstractSpinBox::StepEnabled guiWidgetNumber::stepEnabled() const
{
    if (isReadOnly())
        return StepNone;
    std::optional<double> const number = guiReadNumber(value());
    bool const isLowest = number && m_range.least && *number <= *m_range.least;
    bool const isHighest = number && m_range.most && *number >= *m_range.most;
    return (isLowest ? StepNone : StepDownEnabled) | (isHighest ? StepNone : StepUpEnabled);
}

void guiWidgetNumber::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (isKeyUsed(event->key()))
        event->accept();
    else
        QAbstractSpinBox::keyPressEvent(event);
}

void guiWidgetNumber::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QAbstractSpinBox::wheelEvent(event);
    else
        event->ignore();
}
