// bench/bareline.h: the peer of what crosses between the script thread and the GUI thread: two bare objects of the
// toolkit that post events to each other.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QObject>

/// What the two ends of the peer's line send to each other.
inline constexpr auto kBall = QEvent::Type(QEvent::User + 500);
inline constexpr auto kPlay = QEvent::Type(QEvent::User + 501); // asks the other end to play all trips
inline constexpr auto kEnd = QEvent::Type(QEvent::User + 502);  // the answer, when it has

/// One end of the peer's line: an object that sends every ball back, or waits for each to come back.
class Peer : public QObject
{
public:
    /// `trips`: how many there are in one game.
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
