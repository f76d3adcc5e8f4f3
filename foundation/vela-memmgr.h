// foundation/vela-memmgr.h: the memory manager's functions and the growth of arrays. Allocations are not accounted for:
// the operators new and delete call the C library directly (vela-memmgr-new.cpp).
#pragma once

#include "foundation/vela-error.h"

/// Counts initialisations; the first one clears the accounting. Returns 1. Any thread.
int MemMgr_Init();
void MemMgr_ShutDown();
/// Whether allocations are accounted for; always 0.
int MemMgr_IsVELAMemoryManagerInUse();

/// Without accounting there is nothing to report; the last two say so through Debug_Print().
void MemMgr_PrintMemUsage();
void MemMgr_CheckForLeaks();
void memMgr_DumpMemUsage();
void MemMgr_VerifyIntegrity();

/// Grows `*array`, a block of `*capacity` elements from malloc() or null, to at least `needed` elements, rounded up to
/// a multiple of `granule`. Elements are moved as bytes; new ones are zero. Does nothing if the capacity suffices.
/// Throws velaError 22 if `granule` is 0 or the capacity does not fit into 32 bits, and 12 when out of memory; the
/// array then stays unchanged. The caller frees the block with free().
void MemReallocArrayFunction(void** array, unsigned int elementSize, unsigned int* capacity, unsigned int needed,
                             unsigned int granule);

/// For tests, in builds with assertions: after `count` more allocations of this library, on any thread, one fails as if
/// memory had run out. A negative count switches this off.
void MemMgr_FailAfter(long count);
/// Whether that allocation has failed.
int MemMgr_HasFailed();
