// foundation/pmutex-p.h: what the handles of pmutex.h point to. Not part of the public interface.
#pragma once

#include "foundation/pmutex.h"

#include <pthread.h>

struct pmutex
{
    pthread_mutex_t mutex; ///< adaptive: spins a little before it sleeps
};

struct pevent
{
    int signalled;         ///< 1 when a set waits for somebody to come
    unsigned int waiters;  ///< threads that wait and were not let go yet
    pthread_mutex_t mutex; ///< guards the other fields
    pthread_cond_t condition;
    unsigned int released; ///< threads that were let go and have not returned yet
};

struct rmutex
{
    pmutex* guard;     ///< protects owner and count; held only briefly
    pmutex* ownership; ///< locked while count is not 0
    pevent* wakeUp;    ///< set by every release
    pthread_t owner;   ///< meaningful while count is not 0
    unsigned int count;
};
