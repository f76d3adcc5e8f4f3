// bench/pageview-qt.h: the window in which the peers show their pages: a widget that scrolls in the toolkit's usual
// way, by moving pixels and painting the strip that appears.
#pragma once

#include "bench/pageengine.h"

#include <functional>

#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QWidget>
#include <QWindow>

/// Waits for the window manager, before which nothing is painted.
inline void waitUntilExposed(QWidget& widget)
{
    while (!widget.windowHandle()->isExposed())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    QCoreApplication::processEvents();
}

/// Calls `paint` with a painter and the visible part of the page, in page coordinates.
class PeerWidget : public QWidget
{
public:
    using Paint = std::function<void(QPainter&, QRect const&)>;

    explicit PeerWidget(Paint paint) : m_paint(std::move(paint))
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        resize(kPageWidth, kPageHeight);
    }

    void scrollTo(int y)
    {
        int const by = m_top - y;
        m_top = y;
        if (std::abs(by) < height())
            scroll(0, by);
        else
            update();
        QCoreApplication::processEvents();
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        QPainter painter(this);
        painter.fillRect(event->rect(), Qt::white);
        painter.translate(0, -m_top);
        m_paint(painter, event->rect().translated(0, m_top));
    }

private:
    Paint m_paint;
    int m_top = 0;
};

/// Shows the layout of an engine.
class PeerView : public PageView
{
public:
    PeerView(PageEngine& engine, PeerWidget::Paint paint) : m_engine(engine), m_widget(std::move(paint)) {}

    void show(std::string const& page) override
    {
        m_engine.take(page);
        m_engine.load(kPageWidth);
        m_widget.show();
        waitUntilExposed(m_widget);
    }
    int range() override { return m_engine.height() - kPageHeight; }
    void scrollTo(int y) override { m_widget.scrollTo(y); }
    void repaint() override { m_widget.repaint(); }

private:
    PageEngine& m_engine;
    PeerWidget m_widget;
};
