// foundation/pmutex.h: locks and events between threads. Opaque handles, made and destroyed in pairs; nothing may be
// destroyed while a thread holds it or waits for it. Functions that lock or wait return 0 for success.
#pragma once

#include <ctime>

/// A fast lock that its owner must not take twice.
struct pmutex;
/// A lock that its owner may take again; it is free after as many releases.
struct rmutex;
/// An auto-reset event: one set lets one wait through, whichever comes first.
struct pevent;

/// Null when there is no memory.
pmutex* pmutex_create();
void pmutex_destroy(pmutex* mutex);
int pmutex_request(pmutex* mutex);
/// 0 when it took the lock, else the reason it did not (EBUSY).
int pmutex_requestNoBlock(pmutex* mutex);
int pmutex_release(pmutex* mutex);
/// Tries once per begun second of the timeout without pausing, then once per second until the timeout is used up. 0
/// when it took the lock, 1 when it did not; 1 without any try for a timeout of 0 or less.
int pmutex_request_timeout(pmutex* mutex, int milliseconds);

rmutex* rmutex_create();
void rmutex_destroy(rmutex* mutex);
int rmutex_request(rmutex* mutex);
/// Waits for ever when `milliseconds` is -1 (or negative). Waits in whole seconds, as pevent_wait_timeout() does. 0
/// when it took the lock, 1 on time-out.
int rmutex_request_timeout(rmutex* mutex, int milliseconds);
/// Does not release what another thread owns, but wakes who waits, to look again. Returns 0.
int rmutex_release(rmutex* mutex);

pevent* pevent_create();
/// Safe as soon as a wait has returned, even while the pevent_set() that ended it has not.
void pevent_destroy(pevent* event);
/// Lets one waiting thread go or, when none waits, the next one to come.
int pevent_set(pevent* event);
/// Lets all waiting threads go or, when none waits, the next one to come.
int pevent_setall(pevent* event);
/// Forgets a set that nobody has waited for.
int pevent_reset(pevent* event);
int pevent_wait(pevent* event);
/// The deadline is the present second plus milliseconds / 1000: below 1,000 it has passed already. Negative waits for
/// ever. 0 when the event was set, else ETIMEDOUT.
int pevent_wait_timeout(pevent* event, int milliseconds);
/// The same with the deadline itself, in CLOCK_REALTIME.
int pevent_wait_timeout_ts(pevent* event, timespec const* deadline);
