// bench/bareline.h: the peer for calls between the script thread and the GUI thread: two plain objects of the toolkit
// that post events to each other.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QObject>

/// The events that the two objects post.
inline constexpr auto kBall = static_cast<QEvent::Type>(QEvent::User + 500);
inline constexpr auto kPlay = static_cast<QEvent::Type>(QEvent::User + 501); // asks the other object to start all trips
inline constexpr auto kEnd = static_cast<QEvent::Type>(QEvent::User + 502);  // the answer after the last trip

/// Sends every ball back, or sends balls and waits for each to come back.
class Peer : public QObject
{
public:
    /// `trips`: the number of balls in one game.
    explicit Peer(int trips) : m_tripCount(trips) {}

    Peer* other = nullptr; // not owned

    bool event(QEvent* event) override
    {
        switch (static_cast<int>(event->type())) {
        case kBall:
            ++m_arrived;
            if (m_answers)
                send(kBall);
            return true;
        case kPlay:
            playTrips();
            send(kEnd);
            return true;
        case kEnd:
            m_ended = true;
            return true;
        default:
            return QObject::event(event);
        }
    }

    void playTrips()
    {
        m_answers = false;
        for (m_arrived = 0; m_arrived < m_tripCount;) {
            int const before = m_arrived;
            send(kBall);
            waitUntil([&] { return m_arrived > before; });
        }
        m_answers = true;
    }

    void letOtherPlay()
    {
        m_ended = false;
        send(kPlay);
        waitUntil([this] { return m_ended; });
    }

private:
    void send(QEvent::Type type) { QCoreApplication::postEvent(other, new QEvent(type)); }

    template <class Condition>
    static void waitUntil(Condition condition)
    {
        QEventLoop loop;
        while (!condition())
            loop.processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
    }

    int const m_tripCount;
    int m_arrived = 0;
    bool m_answers = true;
    bool m_ended = false;
};
