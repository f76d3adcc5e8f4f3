// foundation/pmutex.h: locks and events that threads share, as opaque handles. A handle must not be destroyed while a
// thread holds it or waits for it. Functions that lock or wait return 0 for success.
#pragma once

#include <ctime>

/// A fast lock that its owner must not take twice.
struct pmutex;
/// A lock that its owner may take again; it must be released as often as it was taken.
struct rmutex;
/// An auto-reset event: each set releases one wait, whichever comes first.
struct pevent;

/// Null when out of memory.
pmutex* pmutex_create();
void pmutex_destroy(pmutex* mutex);
int pmutex_request(pmutex* mutex);
/// 0 if it took the lock, otherwise the error (EBUSY).
int pmutex_requestNoBlock(pmutex* mutex);
int pmutex_release(pmutex* mutex);
/// Tries once for each second of the timeout, rounded up, without pausing, then once per second until the time is up.
/// Returns 0 if it took the lock, otherwise 1. A timeout of 0 or less returns 1 without trying.
int pmutex_request_timeout(pmutex* mutex, int milliseconds);

rmutex* rmutex_create();
void rmutex_destroy(rmutex* mutex);
int rmutex_request(rmutex* mutex);
/// A negative timeout waits indefinitely; others count whole seconds, as in pevent_wait_timeout(). Returns 0 if it took
/// the lock, 1 on timeout.
int rmutex_request_timeout(rmutex* mutex, int milliseconds);
/// Does nothing to a lock that another thread owns, except that waiting threads check it again. Returns 0.
int rmutex_release(rmutex* mutex);

pevent* pevent_create();
/// Safe as soon as a wait has returned, even if the pevent_set() that released it is still running.
void pevent_destroy(pevent* event);
/// Releases one waiting thread or, if there is none, the next wait.
int pevent_set(pevent* event);
/// Releases all waiting threads or, if there are none, the next wait.
int pevent_setall(pevent* event);
/// Cancels a set that no wait has used yet.
int pevent_reset(pevent* event);
int pevent_wait(pevent* event);
/// The deadline is the start of the current second plus milliseconds / 1000 seconds, so a timeout below 1,000 has
/// already expired. A negative one waits indefinitely. Returns 0 if the event was set, otherwise ETIMEDOUT.
int pevent_wait_timeout(pevent* event, int milliseconds);
/// Waits until a time of CLOCK_REALTIME.
int pevent_wait_timeout_ts(pevent* event, timespec const* deadline);
