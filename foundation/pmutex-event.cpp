// foundation/pmutex-event.cpp: the auto-reset event of pmutex.h.
//
// A set hands exactly one release to the threads that wait; each return of a wait takes exactly one. So none is lost
// when a wait times out in the moment it is let go, and a condition variable that wakes for no reason lets nobody
// through.

#include "foundation/pmutex-p.h"

#include <cassert>
#include <cerrno>
#include <new>

namespace {

class Locked
{
public:
    explicit Locked(pevent* event) : m_mutex(&event->mutex) { pthread_mutex_lock(m_mutex); }
    Locked(Locked const&) = delete;
    Locked& operator=(Locked const&) = delete;
    /// The last touch of the event: who was let go may destroy it from here on.
    ~Locked() { pthread_mutex_unlock(m_mutex); }

private:
    pthread_mutex_t* m_mutex;
};

int waitUntil(pevent* event, timespec const* deadline)
{
    return deadline ? pthread_cond_timedwait(&event->condition, &event->mutex, deadline)
                    : pthread_cond_wait(&event->condition, &event->mutex);
}

int waitFor(pevent* event, timespec const* deadline)
{
    const Locked lock(event);
    assert(!event->signalled || event->waiters == 0); // a set goes to who waits, or stays until somebody does
    if (event->signalled) {
        event->signalled = 0;
        return 0;
    }
    ++event->waiters;
    int result = 0;
    do
        result = waitUntil(event, deadline);
    while (result == 0 && event->released == 0);
    if (event->released) {
        --event->released;
        return 0;
    }
    assert(event->waiters > 0);
    --event->waiters;
    return result;
}

} // namespace

pevent* pevent_create()
{
    auto* event = new (std::nothrow) pevent{};
    if (!event)
        return nullptr;
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_ADAPTIVE_NP);
    pthread_mutex_init(&event->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    pthread_cond_init(&event->condition, nullptr);
    return event;
}

void pevent_destroy(pevent* event)
{
    if (!event)
        return;
    assert(event->waiters == 0 && event->released == 0);
    pthread_cond_destroy(&event->condition);
    pthread_mutex_destroy(&event->mutex);
    delete event;
}

int pevent_set(pevent* event)
{
    const Locked lock(event);
    if (event->waiters == 0) {
        event->signalled = 1;
        return 0;
    }
    assert(!event->signalled);
    --event->waiters;
    ++event->released;
    return pthread_cond_signal(&event->condition);
}

int pevent_setall(pevent* event)
{
    const Locked lock(event);
    if (event->waiters == 0) {
        event->signalled = 1;
        return 0;
    }
    assert(!event->signalled);
    event->released += event->waiters;
    event->waiters = 0;
    return pthread_cond_broadcast(&event->condition);
}

int pevent_reset(pevent* event)
{
    const Locked lock(event);
    event->signalled = 0;
    return 0;
}

int pevent_wait(pevent* event) { return waitFor(event, nullptr); }

int pevent_wait_timeout(pevent* event, int milliseconds)
{
    if (milliseconds < 0)
        return pevent_wait(event);
    const timespec deadline{std::time(nullptr) + milliseconds / 1000, 0};
    return pevent_wait_timeout_ts(event, &deadline);
}

int pevent_wait_timeout_ts(pevent* event, timespec const* deadline) { return waitFor(event, deadline); }
