// bench/clicks.h: clicks the link of bench/click-page.html, each time as soon as the last click has been handled. Used
// with both hosts; needs only the toolkit.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>

inline constexpr char kClickPage[] = "click-page.html";
inline constexpr char kClickWindow[] = "Click";

namespace clicks {

inline void send(QWidget* window, QEvent::Type type, QPoint at, Qt::MouseButtons held)
{
    Qt::MouseButton const button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
    QMouseEvent event(type, at, window->mapToGlobal(at), button, held, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &event);
}

inline QWidget* findWindow(std::string const& title)
{
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->isVisible() && window->windowTitle().toStdString() == title)
            return window;
    return nullptr;
}

/// A point at which the pointer becomes a hand. After a click it stays an arrow until it has left the link.
inline std::optional<QPoint> findLink(QWidget* window)
{
    send(window, QEvent::MouseMove, QPoint(window->width() - 1, window->height() - 1), Qt::NoButton);
    for (int y = 2; y < window->height(); y += 4) {
        QPoint const at(20, y);
        send(window, QEvent::MouseMove, at, Qt::NoButton);
        if (window->cursor().shape() == Qt::PointingHandCursor)
            return at;
    }
    return std::nullopt;
}

/// Clicks `count` times. Returns the seconds, or -1 if there is no such window or link. GUI thread.
inline double perform(std::string const& title, int count)
{
    QWidget* const window = findWindow(title);
    std::optional<QPoint> const link = window ? findLink(window) : std::nullopt;
    if (!link)
        return -1;
    auto const start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        send(window, QEvent::MouseButtonPress, *link, Qt::LeftButton); // returns after the handler
        send(window, QEvent::MouseButtonRelease, *link, Qt::NoButton);
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace clicks

/// Lets the GUI thread click the link of the window with this title `count` times and call `done` there with the
/// seconds, or -1 if there is nothing to click. Any thread, after the first window has been made.
inline void clickLater(std::string const& title, int count, std::function<void(double)> done)
{
    auto const work = [title, count, done = std::move(done)] { done(clicks::perform(title, count)); };
    QMetaObject::invokeMethod(qApp, work, Qt::QueuedConnection);
}
