// foundation/pmutex.cpp: see pmutex.h. The event is in pmutex-event.cpp.

#include "foundation/pmutex-p.h"
#include "foundation/threading.h"

#include <cassert>
#include <cerrno>
#include <new>

namespace {

constexpr int kMillisecondsPerTry = 1000;

} // namespace

pmutex* pmutex_create()
{
    auto* mutex = new (std::nothrow) pmutex;
    if (!mutex)
        return nullptr;
    pthread_mutexattr_t attributes;
    pthread_mutexattr_init(&attributes);
    pthread_mutexattr_settype(&attributes, PTHREAD_MUTEX_ADAPTIVE_NP);
    pthread_mutex_init(&mutex->mutex, &attributes);
    pthread_mutexattr_destroy(&attributes);
    return mutex;
}

void pmutex_destroy(pmutex* mutex)
{
    if (!mutex)
        return;
    [[maybe_unused]] int const error = pthread_mutex_destroy(&mutex->mutex);
    assert(!error); // a thread still holds it
    delete mutex;
}

int pmutex_request(pmutex* mutex) { return pthread_mutex_lock(&mutex->mutex); }
int pmutex_requestNoBlock(pmutex* mutex) { return pthread_mutex_trylock(&mutex->mutex); }
int pmutex_release(pmutex* mutex) { return pthread_mutex_unlock(&mutex->mutex); }

int pmutex_request_timeout(pmutex* mutex, int milliseconds)
{
    if (milliseconds <= 0)
        return 1;
    for (int left = milliseconds; left > 0; left -= kMillisecondsPerTry)
        if (pmutex_requestNoBlock(mutex) == 0)
            return 0;
    for (int left = milliseconds; left > 0; left -= kMillisecondsPerTry) {
        millisleep(kMillisecondsPerTry);
        if (pmutex_requestNoBlock(mutex) == 0)
            return 0;
    }
    return 1;
}

rmutex* rmutex_create()
{
    auto* mutex = new (std::nothrow) rmutex{};
    if (!mutex)
        return nullptr;
    mutex->guard = pmutex_create();
    mutex->ownership = pmutex_create();
    mutex->wakeUp = pevent_create();
    if (mutex->guard && mutex->ownership && mutex->wakeUp)
        return mutex;
    rmutex_destroy(mutex);
    return nullptr;
}

void rmutex_destroy(rmutex* mutex)
{
    if (!mutex)
        return;
    assert(mutex->count == 0);
    pevent_destroy(mutex->wakeUp);
    pmutex_destroy(mutex->ownership);
    pmutex_destroy(mutex->guard);
    delete mutex;
}

namespace {

bool ownedByCaller(rmutex const* mutex) { return mutex->count && pthread_equal(mutex->owner, pthread_self()); }

/// Takes the lock if it is free or already the caller's. The caller holds the guard. Never blocks on `ownership`, whose
/// owner acquires the guard while holding it.
bool takeGuarded(rmutex* mutex)
{
    if (ownedByCaller(mutex)) {
        ++mutex->count;
        return true;
    }
    if (mutex->count)
        return false;
    [[maybe_unused]] int const error = pmutex_requestNoBlock(mutex->ownership);
    assert(!error); // it is only ever locked while count is not 0
    mutex->owner = pthread_self();
    mutex->count = 1;
    return true;
}

/// Tries again after each wake-up, and a last time after the deadline. A null deadline never passes.
int requestUntil(rmutex* mutex, timespec const* deadline)
{
    bool late = false;
    for (;;) {
        pmutex_request(mutex->guard);
        bool const taken = takeGuarded(mutex);
        pmutex_release(mutex->guard);
        if (taken)
            return 0;
        if (late)
            return 1;
        late = deadline ? pevent_wait_timeout_ts(mutex->wakeUp, deadline) != 0 : pevent_wait(mutex->wakeUp) != 0;
    }
}

} // namespace

int rmutex_request(rmutex* mutex) { return rmutex_request_timeout(mutex, -1); }

int rmutex_request_timeout(rmutex* mutex, int milliseconds)
{
    if (milliseconds < 0)
        return requestUntil(mutex, nullptr);
    timespec const deadline{std::time(nullptr) + milliseconds / 1000, 0};
    return requestUntil(mutex, &deadline);
}

int rmutex_release(rmutex* mutex)
{
    pmutex_request(mutex->guard);
    if (ownedByCaller(mutex) && --mutex->count == 0)
        pmutex_release(mutex->ownership);
    // While the guard is held: as soon as it is free the next owner may destroy the lock.
    pevent_setall(mutex->wakeUp);
    pmutex_release(mutex->guard);
    return 0;
}
