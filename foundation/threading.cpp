// foundation/threading.cpp: the tables of managed threads and of their callbacks. Time and random numbers are in
// threading-time.cpp.

#include "foundation/threading.h"

#include "foundation/pmutex.h"
#include "foundation/vela-error.h"
#include "foundation/vela-memmgr.h"

#include <algorithm>
#include <cassert>
#include <csignal>

namespace {

constexpr unsigned int kGranule = 32;

struct ThreadSlot
{
    int inUse; ///< stays set after a failed start; the slot is then never used again
    pthread_t thread;
    ManagedRoutine routine;
    intptr_t argument;
};

struct OnDestroyRecord
{
    int active;
    pthread_t thread;
    OnDestroyCallback callback;
    void* data;
    int priority;
};

/// Guarded by tableLock(). Both tables live as long as the process.
ThreadSlot* slots = nullptr;
unsigned int slotCount = 0;
unsigned int freeHint = 0;          // no slot below this index is free
OnDestroyRecord* records = nullptr; // the active ones sorted by ascending priority
unsigned int recordCount = 0;

pmutex* tableLock()
{
    static pmutex* const lock = pmutex_create();
    return lock;
}

class TableLocked
{
public:
    TableLocked()
    {
        assert(tableLock());
        pmutex_request(tableLock());
    }
    TableLocked(TableLocked const&) = delete;
    TableLocked& operator=(TableLocked const&) = delete;
    ~TableLocked() { pmutex_release(tableLock()); }
};

/// Blocks the signals that the main thread handles, and restores the caller's mask at the end.
class SignalsBlocked
{
public:
    SignalsBlocked()
    {
        sigset_t blocked;
        sigemptyset(&blocked);
        for (int number : {SIGHUP, SIGPIPE, SIGALRM, SIGUSR1, SIGUSR2, SIGCHLD, SIGIO, 19, 20, 21, 22})
            sigaddset(&blocked, number);
        m_isBlocking = pthread_sigmask(SIG_BLOCK, &blocked, &m_previous) == 0;
    }
    SignalsBlocked(SignalsBlocked const&) = delete;
    SignalsBlocked& operator=(SignalsBlocked const&) = delete;
    ~SignalsBlocked()
    {
        if (m_isBlocking)
            pthread_sigmask(SIG_SETMASK, &m_previous, nullptr);
    }

    bool isBlocking() const { return m_isBlocking; }

private:
    bool m_isBlocking = false;
    sigset_t m_previous = {};
};

template <class Element>
void ensureCount(Element*& array, unsigned int& count, unsigned int needed)
{
    void* block = array;
    MemReallocArrayFunction(&block, sizeof(Element), &count, needed, kGranule);
    array = static_cast<Element*>(block);
}

unsigned int takeFreeSlot()
{
    assert(freeHint <= slotCount);
    assert(std::all_of(slots, slots + freeHint, [](ThreadSlot const& slot) { return slot.inUse; }));
    unsigned int index = freeHint;
    while (index < slotCount && slots[index].inUse)
        ++index;
    ensureCount(slots, slotCount, index + 1);
    slots[index].inUse = 1;
    return index;
}

void runOnDestroyRecords(pthread_t thread)
{
    for (unsigned int i = 0; i < recordCount; ++i) {
        if (!records[i].active || !pthread_equal(records[i].thread, thread))
            continue;
        records[i].active = 0;
        records[i].callback(records[i].data, thread);
    }
}

ThreadSlot slotAt(uintptr_t index)
{
    TableLocked const lock;
    assert(index < slotCount && slots[index].inUse);
    return slots[index];
}

void endThread(uintptr_t index)
{
    TableLocked const lock;
    assert(slots[index].inUse && pthread_equal(slots[index].thread, pthread_self()));
    runOnDestroyRecords(pthread_self());
    slots[index] = ThreadSlot{};
    freeHint = std::min(freeHint, static_cast<unsigned int>(index));
}

void* runManaged(void* slotIndex)
{
    auto const index = reinterpret_cast<uintptr_t>(slotIndex);
    ThreadSlot const slot = slotAt(index);
    intptr_t const result = slot.routine(slot.argument);
    endThread(index);
    return reinterpret_cast<void*>(result);
}

/// The caller holds the table's lock.
pthread_t startInSlot(unsigned int index, pthread_attr_t const* attributes, ManagedRoutine routine, intptr_t argument)
{
    ThreadSlot& slot = slots[index];
    slot.routine = routine;
    slot.argument = argument;
    void* slotIndex = reinterpret_cast<void*>(uintptr_t{index});
    if (pthread_create(&slot.thread, attributes, runManaged, slotIndex) != 0) {
        freeHint = index;
        return kNoThread;
    }
    freeHint = index + 1;
    return slot.thread;
}

} // namespace

pthread_t pthread_create_managed(ManagedRoutine routine, intptr_t argument)
{
    return pthread_create_managed_with_attr(nullptr, routine, argument);
}

pthread_t pthread_create_managed_with_attr(pthread_attr_t const* attributes, ManagedRoutine routine, intptr_t argument)
{
    SignalsBlocked const signals;
    if (!signals.isBlocking() || !routine || !tableLock())
        return kNoThread;
    TableLocked const lock;
    try {
        return startInSlot(takeFreeSlot(), attributes, routine, argument);
    } catch (velaError const&) {
        return kNoThread;
    }
}

namespace {

/// The index after the last active record whose priority does not exceed the given one.
unsigned int insertionPoint(int priority)
{
    for (unsigned int i = recordCount; i-- > 0;)
        if (records[i].active && records[i].priority <= priority)
            return i + 1;
    return 0;
}

/// Makes room at `at` by shifting the records up, into the first inactive record or a new one.
void openRecord(unsigned int at)
{
    assert(at <= recordCount);
    unsigned int hole = at;
    while (hole < recordCount && records[hole].active)
        ++hole;
    ensureCount(records, recordCount, hole + 1);
    assert(hole < recordCount && !records[hole].active);
    std::move_backward(records + at, records + hole, records + hole + 1);
}

} // namespace

int pthread_ondestroy(pthread_t thread, OnDestroyCallback callback, void* data, int priority)
{
    if (!callback || !tableLock())
        return 0;
    TableLocked const lock;
    try {
        unsigned int const at = insertionPoint(priority);
        openRecord(at);
        records[at] = OnDestroyRecord{1, thread, callback, data, priority};
        return 1;
    } catch (velaError const&) {
        return 0;
    }
}

ManagedThreadTable pthread_managed_table()
{
    TableLocked const lock;
    auto const inUse = std::count_if(slots, slots + slotCount, [](ThreadSlot const& slot) { return slot.inUse; });
    return {slotCount, static_cast<unsigned int>(inUse), freeHint};
}
