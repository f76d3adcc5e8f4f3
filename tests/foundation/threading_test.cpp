// tests/foundation/threading_test.cpp: managed threads, their end callbacks, and the time helpers.

#include "foundation/pmutex.h"
#include "foundation/threading.h"

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

intptr_t doubled(intptr_t argument) { return argument * 2; }

intptr_t resultOf(pthread_t thread)
{
    void* result = nullptr;
    EXPECT_EQ(pthread_join(thread, &result), 0);
    return reinterpret_cast<intptr_t>(result);
}

intptr_t copyMask(intptr_t mask)
{
    pthread_sigmask(SIG_SETMASK, nullptr, reinterpret_cast<sigset_t*>(mask));
    return 0;
}

intptr_t waitForEvent(intptr_t event) { return pevent_wait(reinterpret_cast<pevent*>(event)); }

intptr_t asArgument(void* pointer) { return reinterpret_cast<intptr_t>(pointer); }

/// What the end callbacks wrote, in order.
struct EndLog
{
    std::string order;
    bool ranOnEndingThread = true;
};

struct EndEntry
{
    EndLog* log;
    char letter;
};

void logEnd(void* data, pthread_t thread)
{
    auto const* entry = static_cast<EndEntry*>(data);
    entry->log->order += entry->letter;
    if (!pthread_equal(thread, pthread_self()))
        entry->log->ranOnEndingThread = false;
}

/// A thread that runs until it is released.
struct HeldThread
{
    pevent* event = pevent_create();
    pthread_t thread = pthread_create_managed(waitForEvent, asArgument(event));

    void end()
    {
        pevent_set(event);
        EXPECT_EQ(resultOf(thread), 0);
        pevent_destroy(event);
    }
};

/// Attributes with a stack too large for any address space, so that no thread can be created.
struct ImpossibleAttributes
{
    pthread_attr_t attributes;
    ImpossibleAttributes()
    {
        pthread_attr_init(&attributes);
        EXPECT_EQ(pthread_attr_setstacksize(&attributes, size_t{1} << 60), 0);
    }
    ~ImpossibleAttributes() { pthread_attr_destroy(&attributes); }
};

} // namespace

TEST(ManagedThreads, ArgumentAndResultHaveTheSizeOfAPointer)
{
    intptr_t const large = intptr_t{1} << 40;
    pthread_t const thread = pthread_create_managed(doubled, large);
    ASSERT_NE(thread, kNoThread);
    EXPECT_EQ(resultOf(thread), large * 2);
    EXPECT_EQ(pthread_create_managed(nullptr, 0), static_cast<pthread_t>(-1));
}

TEST(ManagedThreads, AttributesArePassedThrough)
{
    pthread_attr_t attributes;
    pthread_attr_init(&attributes);
    pthread_attr_setstacksize(&attributes, size_t{4} << 20);
    pthread_t const thread = pthread_create_managed_with_attr(&attributes, doubled, 21);
    pthread_attr_destroy(&attributes);
    EXPECT_EQ(resultOf(thread), 42);
}

TEST(ManagedThreads, ExactlyTheNamedSignalsStartBlocked)
{
    sigset_t callerBefore;
    sigset_t callerAfter;
    sigset_t inThread;
    pthread_sigmask(SIG_SETMASK, nullptr, &callerBefore);
    resultOf(pthread_create_managed(copyMask, asArgument(&inThread)));
    pthread_sigmask(SIG_SETMASK, nullptr, &callerAfter);
    // 19 is SIGSTOP, which can not be blocked.
    std::vector<int> const blocked{1, 10, 12, 13, 14, 17, 20, 21, 22, 29};
    for (int number = 1; number < 32; ++number) {
        bool const named = std::find(blocked.begin(), blocked.end(), number) != blocked.end();
        EXPECT_EQ(sigismember(&inThread, number) == 1, named || sigismember(&callerBefore, number) == 1) << number;
        EXPECT_EQ(sigismember(&callerAfter, number), sigismember(&callerBefore, number)) << number;
    }
}

TEST(ManagedThreads, TheTableGrowsBy32SlotsAndReusesTheLowest)
{
    ManagedThreadTable const before = pthread_managed_table();
    std::vector<HeldThread> threads(40);
    ManagedThreadTable const full = pthread_managed_table();
    EXPECT_EQ(full.inUse, before.inUse + 40);
    EXPECT_EQ(full.slotCount % 32, 0u);
    EXPECT_GE(full.slotCount, 64u);
    EXPECT_EQ(full.freeHint, before.inUse + 40);
    threads[3].end();
    EXPECT_EQ(pthread_managed_table().freeHint, before.inUse + 3);
    threads[7].end();
    EXPECT_EQ(pthread_managed_table().freeHint, before.inUse + 3);
    threads[3] = HeldThread();
    EXPECT_EQ(pthread_managed_table().freeHint, before.inUse + 4);
    threads[7] = HeldThread();
    EXPECT_EQ(pthread_managed_table().freeHint, before.inUse + 8);
    for (HeldThread& thread : threads)
        thread.end();
    EXPECT_EQ(pthread_managed_table().inUse, before.inUse);
}

TEST(ManagedThreads, AFailedStartLosesItsSlot)
{
    ManagedThreadTable const before = pthread_managed_table();
    ImpossibleAttributes const impossible;
    sigset_t maskBefore;
    sigset_t maskAfter;
    pthread_sigmask(SIG_SETMASK, nullptr, &maskBefore);
    EXPECT_EQ(pthread_create_managed_with_attr(&impossible.attributes, doubled, 1), static_cast<pthread_t>(-1));
    pthread_sigmask(SIG_SETMASK, nullptr, &maskAfter);
    EXPECT_EQ(std::memcmp(&maskBefore, &maskAfter, sizeof(unsigned long)), 0);
    ManagedThreadTable const after = pthread_managed_table();
    EXPECT_EQ(after.inUse, before.inUse + 1);
    EXPECT_EQ(after.freeHint, before.inUse); // the index of the lost slot
    HeldThread next;
    EXPECT_EQ(pthread_managed_table().freeHint, before.inUse + 2);
    next.end();
    EXPECT_EQ(pthread_managed_table().inUse, before.inUse + 1);
}

TEST(ManagedThreads, EndCallbacksRunByPriorityThenByRegistration)
{
    EndLog log;
    EndLog otherLog;
    EndEntry entries[] = {{&log, 'a'}, {&log, 'b'}, {&log, 'c'}, {&log, 'd'}, {&otherLog, 'x'}, {&log, 'e'}};
    HeldThread thread;
    HeldThread other;
    EXPECT_EQ(pthread_ondestroy(thread.thread, logEnd, &entries[0], 5), 1);
    EXPECT_EQ(pthread_ondestroy(thread.thread, logEnd, &entries[1], -1), 1);
    EXPECT_EQ(pthread_ondestroy(thread.thread, logEnd, &entries[2], 5), 1);
    EXPECT_EQ(pthread_ondestroy(thread.thread, logEnd, &entries[3], 0), 1);
    EXPECT_EQ(pthread_ondestroy(other.thread, logEnd, &entries[4], 0), 1);
    EXPECT_EQ(pthread_ondestroy(thread.thread, logEnd, &entries[5], -1), 1);
    EXPECT_EQ(pthread_ondestroy(thread.thread, nullptr, nullptr, 0), 0);
    thread.end();
    EXPECT_EQ(log.order, "bedac");
    EXPECT_TRUE(log.ranOnEndingThread);
    EXPECT_EQ(otherLog.order, "");
    other.end();
    EXPECT_EQ(otherLog.order, "x");
}

TEST(ManagedThreads, EndCallbacksOfManyThreadsKeepTheirOrder)
{
    EndLog log;
    std::vector<EndEntry> entries;
    for (char letter = 'a'; letter <= 'j'; ++letter)
        entries.push_back({&log, letter});
    // More than one granule of records, in several rounds, so that inactive ones are used again.
    for (int round = 0; round < 8; ++round) {
        HeldThread thread;
        for (int i = 9; i >= 0; --i)
            pthread_ondestroy(thread.thread, logEnd, &entries[static_cast<size_t>(i)], i);
        HeldThread bystander;
        log.order.clear();
        thread.end();
        EXPECT_EQ(log.order, "abcdefghij") << round;
        bystander.end();
    }
}

TEST(Time, TheMillisecondCounterWrapsEvery4290000Seconds)
{
    EXPECT_EQ(millicountAt(4289999, 999999), 4289999999u);
    EXPECT_EQ(millicountAt(4290000, 0), 0u);
    EXPECT_EQ(millicountAt(4290000ul * 400 + 7, 250999), 7250u);
}

TEST(Time, TheCountersAgreeOnTheTime)
{
    unsigned long seconds = 0;
    unsigned long microseconds = 1000000;
    gettimecounts(&seconds, nullptr);
    gettimecounts(nullptr, &microseconds);
    gettimecounts(nullptr, nullptr);
    EXPECT_LT(microseconds, 1000000u);
    EXPECT_LE(getsecondcount() - seconds, 1u);
    EXPECT_LE(getmillicount() - millicountAt(seconds, 0), 2500u);
    EXPECT_NEAR(static_cast<double>(getsecondcount()), static_cast<double>(std::time(nullptr)), 1.0);
}

TEST(Time, SleepingTakesAtLeastTheTime)
{
    timespec before{};
    timespec after{};
    clock_gettime(CLOCK_MONOTONIC, &before);
    millisleep(30);
    clock_gettime(CLOCK_MONOTONIC, &after);
    long const elapsedMs = (after.tv_sec - before.tv_sec) * 1000 + (after.tv_nsec - before.tv_nsec) / 1000000;
    EXPECT_GE(elapsedMs, 29);
    EXPECT_LT(elapsedMs, 5000);
}

TEST(Random, EqualSeedsGiveEqualSequences)
{
    unsigned int first = 42;
    unsigned int second = 42;
    for (int i = 0; i < 5; ++i) {
        int const number = random_next(&first);
        EXPECT_EQ(number, random_next(&second));
        EXPECT_GE(number, 0);
    }
    EXPECT_NE(first, 42u);
    random_init(7);
    int const drawn = std::rand();
    random_init(7);
    EXPECT_EQ(std::rand(), drawn);
}
