// foundation/threading.h: threads that are entered in one table of the process, so that others can ask for a call when
// one of them ends; and the time and random helpers.
#pragma once

#include <cstdint>

#include <pthread.h>

/// What a managed thread runs; argument and result have the size of a pointer.
typedef intptr_t (*ManagedRoutine)(intptr_t argument);
/// Runs on the ending thread, while the table is locked: it must neither create managed threads nor register callbacks.
typedef void (*OnDestroyCallback)(void* data, pthread_t thread);

/// What stands for a thread id when no thread could be created.
constexpr pthread_t kNoThread = static_cast<pthread_t>(-1);

/// Starts a joinable thread with SIGHUP, SIGPIPE, SIGALRM, SIGUSR1, SIGUSR2, SIGCHLD, SIGIO and the signals 19 to 22
/// blocked; the caller's own mask stays. Returns its id, or kNoThread. The result of the routine is what pthread_join()
/// reports.
pthread_t pthread_create_managed(ManagedRoutine routine, intptr_t argument);
/// The same with attributes for pthread_create(), null for none.
pthread_t pthread_create_managed_with_attr(pthread_attr_t const* attributes, ManagedRoutine routine, intptr_t argument);

/// Has `callback(data, thread)` called when that managed thread ends. Callbacks of one thread run by ascending
/// priority, equal ones in the order of registration. Returns 1, or 0 when there is no memory or callback.
int pthread_ondestroy(pthread_t thread, OnDestroyCallback callback, void* data, int priority);

/// How the thread table is filled at this moment, for diagnostics and tests.
struct ManagedThreadTable
{
    unsigned int slotCount; ///< a multiple of 32
    unsigned int inUse;     ///< running threads, and slots lost to failed starts
    unsigned int freeHint;  ///< lowest slot that may be free
};
ManagedThreadTable pthread_managed_table();

/// Sleeps that long, also when a signal interrupts.
void millisleep(unsigned int milliseconds);
/// Time since 1970 in two parts; either pointer may be null.
void gettimecounts(unsigned long* seconds, unsigned long* microseconds);
/// Milliseconds that wrap to 0 every 4,290,000 seconds.
unsigned int getmillicount();
/// The value of getmillicount() at a given time.
unsigned int millicountAt(unsigned long seconds, unsigned long microseconds);
/// Seconds since 1970.
unsigned long getsecondcount();

/// Seeds the C library's rand().
void random_init(unsigned int seed);
/// Next number, 0 to RAND_MAX, of the sequence whose state the caller keeps.
int random_next(unsigned int* state);
