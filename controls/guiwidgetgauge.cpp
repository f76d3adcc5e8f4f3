// controls/guiwidgetgauge.cpp: see guiwidgetgauge.h.
#include "controls/guiwidgetgauge.h"

#include "controls/guinumbertext.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

namespace {

constexpr int kSteps = 10'000; // of a full bar

bool isDark(QPalette const& palette) { return palette.color(QPalette::Window).lightness() < 128; }

QColor colorOf(guiGaugeState state, bool isDark)
{
    switch (state) {
    case guiGaugeState::kGood:
        return QColor::fromRgb(isDark ? 0xFF4CB86A : 0xFF2E9E4F);
    case guiGaugeState::kFair:
        return QColor::fromRgb(isDark ? 0xFFE0B040 : 0xFFD99A00);
    case guiGaugeState::kPoor:
        return QColor::fromRgb(isDark ? 0xFFE57373 : 0xFFC62828);
    }
    return {};
}

} // namespace

guiGaugeState guiStateOf(guiGaugeShape const& shape, double number)
{
    auto const part = [&](double of) { return of < shape.low ? 0 : of > shape.high ? 2 : 1; };
    int const best = part(shape.best);
    int const distance = std::abs(part(number) - best);
    if (distance == 0)
        return guiGaugeState::kGood;
    return distance == 1 ? guiGaugeState::kFair : guiGaugeState::kPoor;
}

guiWidgetGauge::guiWidgetGauge(QWidget* parent, guiGaugeShape const& shape) : QProgressBar(parent), m_shape(shape)
{
    setFocusPolicy(Qt::NoFocus);
    setTextVisible(false);
    setRange(0, kSteps);
}

double guiWidgetGauge::fullness() const
{
    double const length = m_shape.most - m_shape.least;
    double const number = guiReadNumber(m_value).value_or(m_shape.least);
    return length > 0 ? std::clamp((number - m_shape.least) / length, 0.0, 1.0) : 0;
}

void guiWidgetGauge::showValue(QString const& value)
{
    m_value = value;
    bool const isEndless = !m_shape.isMeter && !guiReadNumber(value);
    setRange(0, isEndless ? 0 : kSteps);
    if (!isEndless)
        setValue(static_cast<int>(fullness() * kSteps));
    update();
}

void guiWidgetGauge::paintEvent(QPaintEvent* event)
{
    if (!m_shape.isMeter) {
        QProgressBar::paintEvent(event);
        return;
    }
    constexpr qreal kRadius = 3;
    QRectF const bar = QRectF(rect()).adjusted(0.5, 1.5, -0.5, -1.5);
    QPainterPath outline;
    outline.addRoundedRect(bar, kRadius, kRadius);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(outline, palette().color(QPalette::Base));
    QRectF full = bar;
    full.setWidth(bar.width() * fullness());
    guiGaugeState const state = guiStateOf(m_shape, guiReadNumber(m_value).value_or(m_shape.least));
    painter.setClipRect(full);
    painter.fillPath(outline, colorOf(state, isDark(palette())));
    painter.setClipping(false);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawPath(outline);
}
