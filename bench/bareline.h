// bench/bareline.h: the peer of what crosses between the script thread and the GUI thread: two bare objects of the
// toolkit that post events to each other.
#pragma once

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QObject>

/// What the two ends of the peer's line send to each other.
inline constexpr auto ball = QEvent::Type(QEvent::User + 500);
inline constexpr auto play = QEvent::Type(QEvent::User + 501); // asks the other end to play all trips
inline constexpr auto end = QEvent::Type(QEvent::User + 502);  // the answer, when it has

/// One end of the peer's line: an object that sends every ball back, or waits for each to come back.
class Peer : public QObject
{
public:
    /// `trips`: how many there are in one game.
    explicit Peer(int trips) : tripCount(trips) {}

    Peer* other = nullptr; // not owned

    bool event(QEvent* event) override
    {
        switch (static_cast<int>(event->type())) {
        case ball:
            ++arrived;
            if (answers)
                send(ball);
            return true;
        case play:
            playTrips();
            send(end);
            return true;
        case end:
            ended = true;
            return true;
        default:
            return QObject::event(event);
        }
    }

    void playTrips()
    {
        answers = false;
        for (arrived = 0; arrived < tripCount;) {
            int const before = arrived;
            send(ball);
            waitUntil([&] { return arrived > before; });
        }
        answers = true;
    }

    void letOtherPlay()
    {
        ended = false;
        send(play);
        waitUntil([this] { return ended; });
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

    int const tripCount;
    int arrived = 0;
    bool answers = true;
    bool ended = false;
};
