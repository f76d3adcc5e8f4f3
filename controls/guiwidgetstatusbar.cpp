// controls/guiwidgetstatusbar.cpp: see guiwidgetstatusbar.h.
#include "controls/guiwidgetstatusbar.h"

#include <QFontMetrics>
#include <QPainter>

namespace {

// Pixels beside the text, and above and below it together.
constexpr int kBeside = 8;
constexpr int kAround = 8;

} // namespace

guiWidgetStatusBar::guiWidgetStatusBar(QWidget* parent) : QWidget(parent)
{
    setAutoFillBackground(true);
    setAccessibleDescription(QStringLiteral("status"));
}

void guiWidgetStatusBar::setText(QString const& text)
{
    m_text = text;
    setAccessibleName(text);
    update();
}

QSize guiWidgetStatusBar::sizeHint() const { return {0, fontMetrics().height() + kAround}; }

void guiWidgetStatusBar::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    painter.drawLine(0, 0, width(), 0);
    QRect const room = rect().adjusted(kBeside, 1, -kBeside, 0);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(room, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_text, Qt::ElideRight, room.width()));
}
