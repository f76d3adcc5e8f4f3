// foundation/vela-memmgr.h: hooks of the memory manager, and the one function that grows arrays. The accounting
// allocator is not active in this build: operator new and delete go straight to the C library (vela-memmgr-new.cpp).
#pragma once

#include "foundation/vela-error.h"

/// Counts initialisations; the first one clears the accounting. Always returns 1. Any thread.
int MemMgr_Init();
void MemMgr_ShutDown();
/// Whether the accounting allocator is active: 0.
int MemMgr_IsVELAMemoryManagerInUse();

/// Nothing to tell without accounting; the last two say so through Debug_Print().
void MemMgr_PrintMemUsage();
void MemMgr_CheckForLeaks();
void memMgr_DumpMemUsage();
void MemMgr_VerifyIntegrity();

/// Grows `*array`, a block of `*capacity` elements from malloc (null when there is none yet), to `needed` elements,
/// rounded up to a multiple of `granule`. New elements are zero; elements are moved as bytes. Nothing happens when the
/// capacity suffices. Throws velaError 22 when there is no such capacity (a granule of 0, or a multiple beyond 32 bits)
/// and 12 when there is no memory; the array is then as it was. The caller frees the block with free().
void MemReallocArrayFunction(void** array, unsigned int elementSize, unsigned int* capacity, unsigned int needed,
                             unsigned int granule);

/// For tests, in builds with assertions: the next `count` allocations of this library succeed, and the one behind them
/// fails as if there were no memory. It is one alone; a negative count is for none. All threads' allocations count.
void MemMgr_FailAfter(long count);
/// Whether the allocation that was to fail has been reached.
int MemMgr_HasFailed();
