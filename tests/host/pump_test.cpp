// tests/host/pump_test.cpp: when a step of the pump returns.
#include "host/native/nativepump.h"

#include <gtest/gtest.h>

#include <thread>

#include <sys/resource.h>

using namespace std::chrono_literals;

namespace {

using Clock = std::chrono::steady_clock;

/// How long one step takes.
std::chrono::duration<double, std::milli> timeOfStep(NativePump& pump)
{
    auto start = Clock::now();
    pump.step();
    return Clock::now() - start;
}

double processorSeconds()
{
    rusage usage = {};
    getrusage(RUSAGE_SELF, &usage);
    auto seconds = [](timeval const& time) { return static_cast<double>(time.tv_sec) + 1e-6 * time.tv_usec; };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

TEST(Pump, AnIdleStepReturnsAfterFiftyMilliseconds)
{
    NativePump pump;
    double waited = timeOfStep(pump).count();
    EXPECT_GE(waited, 49.0);
    EXPECT_LT(waited, 500.0); // 50 on a machine that is not overloaded
}

TEST(Pump, AnIdleStepBehindAnotherWaitsAsLong)
{
    NativePump pump;
    pump.step();
    EXPECT_GE(timeOfStep(pump).count(), 49.0);
}

TEST(Pump, AWakeBeforeTheStepIsRemembered)
{
    NativePump pump;
    pump.wake();
    EXPECT_LT(timeOfStep(pump).count(), 40.0);
}

TEST(Pump, WakesAreNotCounted)
{
    NativePump pump;
    pump.wake();
    pump.wake();
    pump.step();
    EXPECT_GE(timeOfStep(pump).count(), 49.0);
}

TEST(Pump, AWakeOfAnotherThreadEndsAStepThatWaits)
{
    NativePump pump;
    std::atomic<bool> woken{false};
    std::thread waker([&] {
        std::this_thread::sleep_for(10ms);
        woken = true;
        pump.wake();
    });
    EXPECT_TRUE(pump.turn(60s)); // would be an hour's wait for a lost wake
    EXPECT_TRUE(woken);
    waker.join();
}

TEST(Pump, NoWakeIsLostInAHundredThousand)
{
    NativePump pump;
    constexpr int kRounds = 100'000;
    std::atomic<int> asked{0}, answered{0};
    std::thread other([&] {
        for (int round = 1; round <= kRounds; ++round) {
            while (asked < round)
                std::this_thread::yield();
            answered = round;
            pump.wake();
        }
    });
    int timeouts = 0;
    for (int round = 1; round <= kRounds; ++round) {
        asked = round;
        while (answered < round)
            timeouts += !pump.turn(20s);
    }
    other.join();
    EXPECT_EQ(timeouts, 0);
}

TEST(Pump, AStepRunsOnePieceOfWork)
{
    NativePump pump;
    std::string order;
    pump.post([&] { order += 'a'; });
    pump.post([&] { order += 'b'; });
    pump.step();
    EXPECT_EQ(order, "a");
    pump.step();
    EXPECT_EQ(order, "ab");
}

TEST(Pump, WorkOfAnotherThreadEndsTheWait)
{
    NativePump pump;
    bool ran = false;
    std::thread poster([&] {
        std::this_thread::sleep_for(10ms);
        pump.post([&ran] { ran = true; });
    });
    EXPECT_TRUE(pump.turn(60s));
    poster.join();
    EXPECT_TRUE(ran);
}

TEST(Pump, RunOnceRunsWhatIsReadyAndNeverWaits)
{
    NativePump pump;
    int runs = 0;
    std::function<void()> again = [&] {
        ++runs;
        pump.post(again);
    };
    pump.runOnce(0);
    EXPECT_EQ(runs, 0);
    pump.post(again);
    pump.post(again);
    pump.runOnce(0);
    EXPECT_EQ(runs, 2); // what they posted waits for the next turn
}

TEST(Pump, WorkMayTakeTurnsItself)
{
    NativePump pump;
    std::string order;
    pump.post([&] {
        order += '(';
        pump.step();
        order += ')';
    });
    pump.post([&] { order += 'x'; });
    pump.step();
    EXPECT_EQ(order, "(x)");
}

TEST(Pump, WaitingUsesNoProcessorTime)
{
    NativePump pump;
    pump.wake();
    pump.step(); // a short wait, after which spinning would be allowed
    double before = processorSeconds();
    pump.turn(1s);
    EXPECT_LT(processorSeconds() - before, 0.02);
}
