// foundation/vela-memmgr.cpp: see vela-memmgr.h.

#include "foundation/vela-memmgr.h"

#include "foundation/vela-alloc.h"
#include "foundation/vela-debug.h"
#include "foundation/vela-error.h"

#include <atomic>
#include <cassert>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <mutex>

namespace {

std::mutex accountingLock;
unsigned int initialisations = 0;
unsigned char accounting[16384];
unsigned int accountedBlocks = 0;

} // namespace

int MemMgr_Init()
{
    std::lock_guard<std::mutex> const lock(accountingLock);
    if (initialisations++ == 0) {
        std::memset(accounting, 0, sizeof accounting);
        accountedBlocks = 0;
    }
    return 1;
}

void MemMgr_ShutDown()
{
    std::lock_guard<std::mutex> const lock(accountingLock);
    if (initialisations)
        --initialisations;
}

int MemMgr_IsVELAMemoryManagerInUse() { return 0; }
void MemMgr_PrintMemUsage() {}
void MemMgr_CheckForLeaks() {}

void memMgr_DumpMemUsage()
{
    Debug_Print("The memory manager is not active.  The attempt to print current usage failed.");
}

void MemMgr_VerifyIntegrity()
{
    Debug_Print("The memory manager is not active.  The attempt to verify heap integrity failed.");
}

namespace {

/// `needed` rounded up to a multiple of `granule`; 0 if `granule` is 0 or the result does not fit into 32 bits.
unsigned int roundedUp(unsigned int needed, unsigned int granule)
{
    if (granule == 0)
        return 0;
    uint64_t const rounded = (uint64_t{needed} + granule - 1) / granule * granule;
    assert(rounded >= needed && rounded % granule == 0);
    return rounded > UINT32_MAX ? 0 : static_cast<unsigned int>(rounded);
}

} // namespace

void MemReallocArrayFunction(void** array, unsigned int elementSize, unsigned int* capacity, unsigned int needed,
                             unsigned int granule)
{
    if (needed <= *capacity)
        return;
    unsigned int const newCapacity = roundedUp(needed, granule);
    if (newCapacity == 0)
        throw velaError(EINVAL);
    uint64_t const oldBytes = *array ? uint64_t{*capacity} * elementSize : 0;
    uint64_t const newBytes = uint64_t{newCapacity} * elementSize;
    void* block = newBytes <= PTRDIFF_MAX ? velaCalloc(newCapacity, elementSize ? elementSize : 1) : nullptr;
    if (!block)
        throw velaError(ENOMEM);
    assert(oldBytes <= newBytes);
    if (oldBytes)
        std::memcpy(block, *array, oldBytes);
    std::free(*array);
    *array = block;
    *capacity = newCapacity;
}

#ifdef NDEBUG

void MemMgr_FailAfter(long) {}
int MemMgr_HasFailed() { return 0; }

#else

namespace {

std::atomic<long> allocationsLeft{-1};
std::atomic<bool> hasFailed{false};

} // namespace

void MemMgr_FailAfter(long count)
{
    hasFailed = false;
    allocationsLeft = count;
}

int MemMgr_HasFailed() { return hasFailed; }

bool velaAllocationFails()
{
    if (allocationsLeft.load(std::memory_order_relaxed) < 0 || allocationsLeft.fetch_sub(1) != 0)
        return false;
    hasFailed = true;
    return true;
}

#endif
