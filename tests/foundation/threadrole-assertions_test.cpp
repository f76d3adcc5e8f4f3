// tests/foundation/threadrole-assertions_test.cpp: a function that runs on the wrong thread ends the program. Needs a
// build with assertions.

#include "foundation/vela-threadrole.h"

#include <thread>

#include <gtest/gtest.h>

#ifdef NDEBUG
#error "the assertions that are tested here are compiled out"
#endif

namespace {

/// Uses a new process for each death, because one forked while threads run may hang.
class ThreadRoleDeath : public testing::Test
{
protected:
    ThreadRoleDeath() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }

    /// Claims the role, then runs a function on another thread.
    template <class Call>
    static void claimHereAndRunElsewhere(velaThreadRole& role, Call call)
    {
        role.claim();
        std::thread(call).join();
    }
};

} // namespace

TEST_F(ThreadRoleDeath, TheGuiThreadsWorkOnAnotherThreadEndsTheProgram)
{
    EXPECT_DEATH(claimHereAndRunElsewhere(velaGuiRole, [] { assertOnGuiThread(); }), "velaGuiRole.isHeld()");
}

TEST_F(ThreadRoleDeath, TheScriptThreadsWorkOnAnotherThreadEndsTheProgram)
{
    EXPECT_DEATH(claimHereAndRunElsewhere(velaScriptRole, [] { assertOnScriptThread(); }), "velaScriptRole.isHeld()");
}

TEST_F(ThreadRoleDeath, ClaimingWhatAnotherThreadHoldsEndsTheProgram)
{
    EXPECT_DEATH(claimHereAndRunElsewhere(velaGuiRole, [] { velaGuiRole.claim(); }), "kNobody");
}

TEST_F(ThreadRoleDeath, ReleasingWhatAnotherThreadHoldsEndsTheProgram)
{
    EXPECT_DEATH(claimHereAndRunElsewhere(velaGuiRole, [] { velaGuiRole.release(); }), "isHeld()");
}
