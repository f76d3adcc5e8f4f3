// runtime/guiinspectormark.cpp: see guiinspectormark.h. The widget covers the element and the label below or above it.
#include "runtime/guiinspectormark.h"

#include <QPainter>
#include <algorithm>

namespace {

constexpr QColor kFill(31, 111, 235, 44);
constexpr QColor kLine(31, 111, 235);
constexpr QColor kLabelText(255, 255, 255);
constexpr int kLabelPoints = 8;
constexpr int kLabelSpace = 5; // pixels at the sides of the label's text

QFont labelFont()
{
    QFont font;
    font.setPointSize(kLabelPoints);
    return font;
}

QSize labelSize(QString const& text)
{
    QFontMetrics const metrics(labelFont());
    return {metrics.horizontalAdvance(text) + 2 * kLabelSpace, metrics.height() + 2};
}

/// Below the element, or above it, or in it, wherever it is seen.
QRect labelPlace(QRect const& element, QSize size, QRect const& window)
{
    int top = element.bottom() + 1;
    if (top + size.height() > window.height())
        top = element.top() - size.height();
    if (top < 0)
        top = std::max(0, std::min(element.bottom() + 1, window.height()) - size.height());
    int const left = std::clamp(element.left(), 0, std::max(0, window.width() - size.width()));
    return {QPoint(left, top), size};
}

} // namespace

guiInspectorMark::guiInspectorMark(QWidget* window) : QWidget(window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    setFocusPolicy(Qt::NoFocus);
}

void guiInspectorMark::show(QRect const& place, QString const& name)
{
    m_label = QStringLiteral("%1%2 \u00D7 %3")
                  .arg(name.isEmpty() ? name : name + u' ')
                  .arg(place.width())
                  .arg(place.height());
    QRect const all = place.united(labelPlace(place, labelSize(m_label), parentWidget()->rect()));
    m_place = place.translated(-all.topLeft());
    setGeometry(all);
    QWidget::show();
    raise();
    update();
}

void guiInspectorMark::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(m_place, kFill);
    painter.setPen(kLine);
    painter.drawRect(m_place.adjusted(0, 0, -1, -1));
    QRect const inWindow = m_place.translated(pos());
    QRect const label = labelPlace(inWindow, labelSize(m_label), parentWidget()->rect()).translated(-pos());
    painter.fillRect(label, kLine);
    painter.setFont(labelFont());
    painter.setPen(kLabelText);
    painter.drawText(label, Qt::AlignCenter, m_label);
}
