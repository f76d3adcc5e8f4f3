// foundation/pmutex-p.h: what the handles of pmutex.h point to. Internal.
#pragma once

#include "foundation/pmutex.h"

#include <pthread.h>

struct pmutex
{
    pthread_mutex_t mutex; ///< adaptive: spins briefly before it sleeps
};

struct pevent
{
    int signalled;         ///< 1: set while nobody waited; the next wait returns at once
    unsigned int waiters;  ///< threads that wait and have not been released
    pthread_mutex_t mutex; ///< guards the other fields
    pthread_cond_t condition;
    unsigned int released; ///< threads that have been released but have not returned
};

struct rmutex
{
    pmutex* guard;     ///< guards owner and count; held only briefly
    pmutex* ownership; ///< locked while count is not 0
    pevent* wakeUp;    ///< signalled by every release
    pthread_t owner;   ///< valid while count is not 0
    unsigned int count;
};
