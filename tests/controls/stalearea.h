// tests/controls/stalearea.h: compares what a window shows with what a fresh paint of it would show.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QScreen>
#include <QWidget>
#include <string>

/// What the window shows, without painting anything anew.
inline QImage shown(QWidget* widget)
{
    return widget->screen()->grabWindow(widget->winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

inline QImage fresh(QWidget* widget) { return widget->grab().toImage().convertToFormat(QImage::Format_RGB32); }

/// "" when the screen shows what a fresh paint would, else where it does not.
inline std::string staleArea(QWidget* widget)
{
    QImage now = shown(widget);
    QImage wanted = fresh(widget);
    QRect stale;
    for (int y = 0; y < wanted.height(); ++y)
        for (int x = 0; x < wanted.width(); ++x)
            if (!now.valid(x, y) || now.pixel(x, y) != wanted.pixel(x, y))
                stale |= QRect(x, y, 1, 1);
    return stale.isEmpty() ? ""
                           : std::to_string(stale.width()) + "x" + std::to_string(stale.height()) + " at (" +
                                 std::to_string(stale.left()) + "," + std::to_string(stale.top()) + ")";
}
