// controls/guiwidgetslider.cpp: see guiwidgetslider.h.
#include "controls/guiwidgetslider.h"

#include "controls/guieventscope.h"

#include <QKeyEvent>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

guiWidgetSlider::guiWidgetSlider(QWidget* parent, guiNumberRange const& range)
    : QSlider(Qt::Horizontal, parent), m_range(range)
{
    constexpr double kMostSteps = 1e9;
    constexpr int kPages = 10;
    int const steps = static_cast<int>(std::clamp((*range.most - *range.least) / range.step, 0.0, kMostSteps));
    setFocusPolicy(Qt::StrongFocus);
    setRange(0, steps);
    setPageStep(std::max(1, steps / kPages));
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!isSliderDown())
            report();
    });
    connect(this, &QSlider::sliderReleased, this, [this] { report(); });
}

QString guiWidgetSlider::value() const
{
    double const number = *m_range.least + QSlider::value() * m_range.step;
    int const decimals =
        std::max(guiDecimalsOf(guiNumberText(m_range.step)), guiDecimalsOf(guiNumberText(*m_range.least)));
    return guiNumberText(QString::number(number, 'f', decimals).toDouble());
}

/// The step that is nearest; the middle for what is no number.
void guiWidgetSlider::showValue(QString const& value)
{
    double const middle = (*m_range.least + *m_range.most) / 2;
    double const number = m_range.limited(guiReadNumber(value).value_or(middle));
    setValue(static_cast<int>(std::lround((number - *m_range.least) / m_range.step)));
}

void guiWidgetSlider::keyPressEvent(QKeyEvent* event)
{
    guiEventScope scope;
    if (isKeyUsed(event->key()))
        event->accept();
    else
        QSlider::keyPressEvent(event);
}

void guiWidgetSlider::wheelEvent(QWheelEvent* event)
{
    if (hasFocus())
        QSlider::wheelEvent(event);
    else
        event->ignore();
}
