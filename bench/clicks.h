// bench/clicks.h: a user who clicks the link of bench/click-page.html, as fast as it is answered. Shared by the
// programs of both hosts; only the toolkit is needed.
#pragma once

#include <QApplication>
#include <QMouseEvent>
#include <QWidget>
#include <chrono>
#include <functional>
#include <optional>
#include <string>

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

/// A point where the pointer becomes a hand. After a click it is an arrow until it has left the link.
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

/// Clicks `count` times; seconds, or -1 when there is no such window or link. GUI thread.
inline double perform(std::string const& title, int count)
{
    QWidget* const window = findWindow(title);
    std::optional<QPoint> const link = window ? findLink(window) : std::nullopt;
    if (!link)
        return -1;
    auto const start = std::chrono::steady_clock::now();
    for (int i = 0; i < count; ++i) {
        send(window, QEvent::MouseButtonPress, *link, Qt::LeftButton); // returns when the handler has
        send(window, QEvent::MouseButtonRelease, *link, Qt::NoButton);
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

} // namespace clicks

/// Has the GUI thread click the link of the window of this title `count` times; `done` is called there with the seconds
/// that it took, -1 when there was nothing to click. Any thread, after the first window was made.
inline void clickLater(std::string const& title, int count, std::function<void(double)> done)
{
    auto const work = [title, count, done = std::move(done)] { done(clicks::perform(title, count)); };
    QMetaObject::invokeMethod(qApp, work, Qt::QueuedConnection);
}
