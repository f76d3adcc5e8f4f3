// tests/foundation/pmutex_test.cpp: locks and events between threads.

#include "foundation/pmutex.h"
#include "foundation/threading.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Clock = std::chrono::steady_clock;

long elapsedMs(Clock::time_point since)
{
    return static_cast<long>(std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - since).count());
}

/// Runs a function on another thread and returns its result.
template <class Call>
int elsewhere(Call call)
{
    int result = -1;
    std::thread([&] { result = call(); }).join();
    return result;
}

} // namespace

TEST(Mutex, TryingTakesItOrReportsThatItIsBusy)
{
    pmutex* mutex = pmutex_create();
    EXPECT_EQ(pmutex_requestNoBlock(mutex), 0);
    EXPECT_EQ(pmutex_requestNoBlock(mutex), EBUSY); // not recursive
    EXPECT_EQ(elsewhere([=] { return pmutex_requestNoBlock(mutex); }), EBUSY);
    EXPECT_EQ(pmutex_release(mutex), 0);
    EXPECT_EQ(pmutex_request(mutex), 0);
    EXPECT_EQ(pmutex_release(mutex), 0);
    pmutex_destroy(mutex);
    pmutex_destroy(nullptr);
}

TEST(Mutex, ATimeoutOfZeroOrLessFailsWithoutATry)
{
    pmutex* mutex = pmutex_create();
    EXPECT_EQ(pmutex_request_timeout(mutex, 0), 1);
    EXPECT_EQ(pmutex_request_timeout(mutex, -1), 1);
    EXPECT_EQ(pmutex_request_timeout(mutex, 1), 0);
    EXPECT_EQ(pmutex_release(mutex), 0);
    pmutex_destroy(mutex);
}

TEST(Mutex, ATimedRequestSleepsAWholeSecondBetweenTries)
{
    pmutex* mutex = pmutex_create();
    pmutex_request(mutex);
    auto const start = Clock::now();
    EXPECT_EQ(elsewhere([=] { return pmutex_request_timeout(mutex, 10); }), 1);
    EXPECT_GE(elapsedMs(start), 990);
    pmutex_release(mutex);
    pmutex_destroy(mutex);
}

TEST(Mutex, ATimedRequestSucceedsOnceTheLockIsFree)
{
    pmutex* mutex = pmutex_create();
    pmutex_request(mutex);
    std::thread other([=] {
        EXPECT_EQ(pmutex_request_timeout(mutex, 30000), 0);
        pmutex_release(mutex);
    });
    millisleep(100);
    pmutex_release(mutex);
    other.join();
    pmutex_destroy(mutex);
}

TEST(RecursiveMutex, TwoRequestsNeedTwoReleases)
{
    rmutex* mutex = rmutex_create();
    auto const tryElsewhere = [=] {
        return elsewhere([=] {
            int const result = rmutex_request_timeout(mutex, 0);
            if (result == 0)
                rmutex_release(mutex);
            return result;
        });
    };
    EXPECT_EQ(rmutex_request(mutex), 0);
    EXPECT_EQ(rmutex_request(mutex), 0);
    EXPECT_EQ(tryElsewhere(), 1);
    rmutex_release(mutex);
    EXPECT_EQ(tryElsewhere(), 1);
    rmutex_release(mutex);
    EXPECT_EQ(tryElsewhere(), 0);
    EXPECT_EQ(rmutex_request_timeout(mutex, 0), 0);
    rmutex_release(mutex);
    rmutex_destroy(mutex);
    rmutex_destroy(nullptr);
}

TEST(RecursiveMutex, AReleaseByAnotherThreadDoesNothing)
{
    rmutex* mutex = rmutex_create();
    rmutex_request(mutex);
    elsewhere([=] { return rmutex_release(mutex); });
    EXPECT_EQ(elsewhere([=] { return rmutex_request_timeout(mutex, 0); }), 1);
    rmutex_release(mutex);
    rmutex_destroy(mutex);
}

TEST(RecursiveMutex, ATimedRequestWaitsForItsDeadline)
{
    rmutex* mutex = rmutex_create();
    rmutex_request(mutex);
    auto const start = Clock::now();
    EXPECT_EQ(elsewhere([=] { return rmutex_request_timeout(mutex, 2000); }), 1);
    EXPECT_GE(elapsedMs(start), 900);
    EXPECT_LT(elapsedMs(start), 20000);
    rmutex_release(mutex);
    rmutex_destroy(mutex);
}

TEST(RecursiveMutex, ANegativeTimeoutWaitsIndefinitely)
{
    rmutex* mutex = rmutex_create();
    rmutex_request(mutex);
    std::atomic<int> result{-1};
    std::thread waiting([&] {
        result = rmutex_request_timeout(mutex, -1500);
        rmutex_release(mutex);
    });
    millisleep(50);
    EXPECT_EQ(result, -1) << "still waiting";
    rmutex_release(mutex);
    waiting.join();
    EXPECT_EQ(result, 0);
    rmutex_destroy(mutex);
}

TEST(RecursiveMutex, KeepsThreadsApart)
{
    rmutex* mutex = rmutex_create();
    int counter = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            for (int round = 0; round < 500; ++round) {
                rmutex_request(mutex);
                rmutex_request(mutex);
                ++counter;
                rmutex_release(mutex);
                ++counter;
                rmutex_release(mutex);
            }
        });
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(counter, 4000);
    rmutex_destroy(mutex);
}

TEST(Event, OneSetReleasesExactlyOneLaterWait)
{
    pevent* event = pevent_create();
    EXPECT_EQ(pevent_set(event), 0);
    EXPECT_EQ(pevent_set(event), 0);
    EXPECT_EQ(pevent_wait(event), 0);
    EXPECT_EQ(pevent_wait_timeout(event, 0), ETIMEDOUT);
    EXPECT_EQ(pevent_setall(event), 0);
    EXPECT_EQ(pevent_wait_timeout(event, 0), 0);
    EXPECT_EQ(pevent_wait_timeout(event, 0), ETIMEDOUT);
    pevent_destroy(event);
    pevent_destroy(nullptr);
}

TEST(Event, ResetCancelsASet)
{
    pevent* event = pevent_create();
    pevent_set(event);
    pevent_reset(event);
    EXPECT_EQ(pevent_wait_timeout(event, 0), ETIMEDOUT);
    pevent_destroy(event);
}

TEST(Event, TimeoutsHaveAGranularityOfOneSecond)
{
    pevent* event = pevent_create();
    auto start = Clock::now();
    EXPECT_EQ(pevent_wait_timeout(event, 999), ETIMEDOUT);
    EXPECT_LT(elapsedMs(start), 900);
    start = Clock::now();
    EXPECT_EQ(pevent_wait_timeout(event, 2000), ETIMEDOUT);
    EXPECT_GE(elapsedMs(start), 900);
    timespec const past{std::time(nullptr) - 1, 0};
    EXPECT_EQ(pevent_wait_timeout_ts(event, &past), ETIMEDOUT);
    pevent_set(event);
    EXPECT_EQ(pevent_wait_timeout_ts(event, &past), 0);
    pevent_set(event);
    EXPECT_EQ(pevent_wait_timeout(event, -1), 0);
    pevent_destroy(event);
}

TEST(Event, SetallReleasesEveryWaiter)
{
    pevent* event = pevent_create();
    std::atomic<int> arrived{0};
    std::atomic<int> returned{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            ++arrived;
            pevent_wait(event);
            ++returned;
        });
    while (arrived < 4)
        millisleep(1);
    millisleep(50);
    EXPECT_EQ(returned, 0);
    while (returned < 4) {
        pevent_setall(event);
        millisleep(1);
    }
    for (std::thread& thread : threads)
        thread.join();
    pevent_destroy(event);
}

TEST(Event, SeveralWaitersNeedAsManySets)
{
    pevent* event = pevent_create();
    std::atomic<int> arrived{0};
    std::atomic<int> returned{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 4; ++i)
        threads.emplace_back([&] {
            ++arrived;
            pevent_wait(event);
            ++returned;
        });
    while (arrived < 4)
        millisleep(1);
    millisleep(100);
    // All four threads wait by now. No set may be lost, although each follows without waiting for the last to be used.
    for (int i = 0; i < 4; ++i)
        pevent_set(event);
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(returned, 4);
    EXPECT_EQ(pevent_wait_timeout(event, 0), ETIMEDOUT);
    pevent_destroy(event);
}

TEST(Event, NoSetIsLostToAWaitThatTimesOut)
{
    pevent* event = pevent_create();
    std::atomic<int> taken{0};
    std::atomic<bool> over{false};
    std::thread waiter([&] {
        while (!over)
            if (pevent_wait_timeout(event, 0) == 0)
                ++taken;
    });
    auto const start = Clock::now();
    int sets = 0;
    while (taken == sets && sets < 2000 && elapsedMs(start) < 10000) { // each may take a time slice on a busy machine
        auto const set = Clock::now();
        ++sets;
        pevent_set(event);
        while (taken < sets && elapsedMs(set) < 20000)
            std::this_thread::yield();
    }
    EXPECT_EQ(taken, sets);
    over = true;
    waiter.join();
    pevent_destroy(event);
}

TEST(Event, TheWaiterMayDestroyTheEventAtOnce)
{
    for (int round = 0; round < 300; ++round) {
        pevent* event = pevent_create();
        std::thread setter([=] { pevent_set(event); });
        EXPECT_EQ(pevent_wait(event), 0);
        pevent_destroy(event);
        setter.join();
    }
}
