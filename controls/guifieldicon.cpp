// controls/guifieldicon.cpp: see guifieldicon.h. Each is drawn on a square of 16 by 16.
#include "controls/guifieldicon.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace {

constexpr qreal kSide = 16;

void drawEye(QPainter& painter, bool isClosed)
{
    QPainterPath lids(QPointF(1.5, 8));
    lids.quadTo(8, 0.5, 14.5, 8);
    lids.quadTo(8, 15.5, 1.5, 8);
    painter.drawPath(lids);
    painter.drawEllipse(QPointF(8, 8), 2.2, 2.2);
    if (isClosed)
        painter.drawLine(QPointF(3, 13.5), QPointF(13, 2.5));
}

void drawFolder(QPainter& painter)
{
    painter.drawPolygon(QPolygonF({{1.5, 3.5}, {6.5, 3.5}, {8, 5.5}, {14.5, 5.5}, {14.5, 12.5}, {1.5, 12.5}}));
    painter.drawLine(QPointF(1.5, 7.5), QPointF(14.5, 7.5));
}

void drawCalendar(QPainter& painter)
{
    painter.drawRect(QRectF(2.5, 3.5, 11, 10));
    painter.drawLine(QPointF(2.5, 6.5), QPointF(13.5, 6.5));
    for (qreal x : {5.5, 10.5})
        painter.drawLine(QPointF(x, 1.5), QPointF(x, 4.5));
    for (qreal x : {5.0, 7.2, 9.4})
        painter.fillRect(QRectF(x, 8.6, 1.4, 1.4), painter.pen().color());
    painter.fillRect(QRectF(5, 10.8, 1.4, 1.4), painter.pen().color());
}

void draw(QPainter& painter, guiFieldIcon drawing)
{
    switch (drawing) {
    case guiFieldIcon::kEye:
    case guiFieldIcon::kClosedEye:
        return drawEye(painter, drawing == guiFieldIcon::kClosedEye);
    case guiFieldIcon::kFolder:
        return drawFolder(painter);
    case guiFieldIcon::kCalendar:
        return drawCalendar(painter);
    }
}

/// Draws when it is shown, so that it follows the palette.
class fieldIconEngine : public QIconEngine
{
public:
    explicit fieldIconEngine(guiFieldIcon drawing) : m_drawing(drawing) {}

    QIconEngine* clone() const override { return new fieldIconEngine(m_drawing); }

    void paint(QPainter* painter, QRect const& rect, QIcon::Mode mode, QIcon::State) override
    {
        auto const group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QColor ink = QGuiApplication::palette().color(group, QPalette::Text);
        ink.setAlphaF(0.75F); // beside the text, not before it
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kSide, rect.height() / kSide);
        painter->setPen(QPen(ink, 1.1));
        painter->setBrush(Qt::NoBrush);
        draw(*painter, m_drawing);
        painter->restore();
    }

    QPixmap pixmap(QSize const& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }

private:
    guiFieldIcon m_drawing;
};

} // namespace

QIcon guiIconOf(guiFieldIcon drawing) { return QIcon(new fieldIconEngine(drawing)); }
