// foundation/threading.h: managed threads, which are listed in a table of the process so that callbacks can be
// registered for their end; time and random numbers.
#pragma once

#include <cstdint>

#include <pthread.h>

/// The function that a managed thread runs.
using ManagedRoutine = intptr_t (*)(intptr_t argument);
/// Called on the ending thread while the table is locked: it must neither create managed threads nor register
/// callbacks.
using OnDestroyCallback = void (*)(void* data, pthread_t thread);

/// Returned instead of a thread id when no thread could be created.
constexpr pthread_t kNoThread = static_cast<pthread_t>(-1);

/// Starts a joinable thread with SIGHUP, SIGPIPE, SIGALRM, SIGUSR1, SIGUSR2, SIGCHLD, SIGIO and the signals 19 to 22
/// blocked in it. Returns its id, or kNoThread. pthread_join() gives the routine's result.
pthread_t pthread_create_managed(ManagedRoutine routine, intptr_t argument);
/// The same with attributes for pthread_create(); null for the defaults.
pthread_t pthread_create_managed_with_attr(pthread_attr_t const* attributes, ManagedRoutine routine, intptr_t argument);

/// Registers `callback(data, thread)` for the end of a managed thread. Callbacks of one thread run by ascending
/// priority, those of equal priority in the order of registration. Returns 1, or 0 if `callback` is null or memory has
/// run out.
int pthread_ondestroy(pthread_t thread, OnDestroyCallback callback, void* data, int priority);

/// The state of the thread table, for diagnostics and tests.
struct ManagedThreadTable
{
    unsigned int slotCount; ///< a multiple of 32
    unsigned int inUse;     ///< running threads, and slots lost to failed starts
    unsigned int freeHint;  ///< lowest slot that may be free
};
ManagedThreadTable pthread_managed_table();

/// Sleeps for the whole time, even if signals interrupt it.
void millisleep(unsigned int milliseconds);
/// The time since 1970 in seconds and microseconds; either pointer may be null.
void gettimecounts(unsigned long* seconds, unsigned long* microseconds);
/// Milliseconds since 1970, wrapping to 0 every 4,290,000 seconds.
unsigned int getmillicount();
/// What getmillicount() returns at a given time.
unsigned int millicountAt(unsigned long seconds, unsigned long microseconds);
/// Seconds since 1970.
unsigned long getsecondcount();

/// Seeds the C library's rand().
void random_init(unsigned int seed);
/// The next number, 0 to RAND_MAX, of a sequence whose state the caller keeps.
int random_next(unsigned int* state);
