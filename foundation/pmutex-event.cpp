// foundation/pmutex-event.cpp: the auto-reset event of pmutex.h.
//
// pevent_set() adds one release, and a wait that returns consumes one. A wait that times out just as it is released
// therefore loses nothing, and a spurious wake-up of the condition variable lets nobody through.

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
    /// The last access to the event: the released thread may destroy it as soon as the lock is free.
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
    Locked const lock(event);
    assert(!event->signalled ||
           event->waiters == 0); // a set releases a waiting thread or, without one, stays signalled
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
    Locked const lock(event);
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
    Locked const lock(event);
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
    Locked const lock(event);
    event->signalled = 0;
    return 0;
}

int pevent_wait(pevent* event) { return waitFor(event, nullptr); }

int pevent_wait_timeout(pevent* event, int milliseconds)
{
    if (milliseconds < 0)
        return pevent_wait(event);
    timespec const deadline{std::time(nullptr) + milliseconds / 1000, 0};
    return pevent_wait_timeout_ts(event, &deadline);
}

int pevent_wait_timeout_ts(pevent* event, timespec const* deadline) { return waitFor(event, deadline); }
