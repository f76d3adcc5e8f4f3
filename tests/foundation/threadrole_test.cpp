// tests/foundation/threadrole_test.cpp: which thread holds a role.

#include "foundation/vela-threadrole.h"

#include <atomic>
#include <thread>

#include <gtest/gtest.h>

namespace {

/// Runs a function on another thread and waits for it.
template <class Call>
void elsewhere(Call call)
{
    std::thread(call).join();
}

bool isHeldElsewhere(velaThreadRole const& role)
{
    bool held = false;
    elsewhere([&] { held = role.isHeld(); });
    return held;
}

} // namespace

TEST(ThreadRole, IsHeldByEveryThreadUntilOneClaimsIt)
{
    velaThreadRole role;
    EXPECT_TRUE(role.isHeld());
    EXPECT_TRUE(isHeldElsewhere(role));
    role.claim();
    EXPECT_TRUE(role.isHeld());
    EXPECT_FALSE(isHeldElsewhere(role));
}

TEST(ThreadRole, IsHeldByTheThreadThatClaimedItAndNotByItsMaker)
{
    velaThreadRole role;
    elsewhere([&] {
        role.claim();
        EXPECT_TRUE(role.isHeld());
        bool heldByMaker = true;
        elsewhere([&] { heldByMaker = role.isHeld(); });
        EXPECT_FALSE(heldByMaker);
        role.release();
    });
    EXPECT_TRUE(role.isHeld());
}

TEST(ThreadRole, IsFreeForAnotherThreadOnceReleased)
{
    velaThreadRole role;
    role.claim();
    role.release();
    EXPECT_TRUE(isHeldElsewhere(role));
    std::atomic<bool> claimed{false};
    std::atomic<bool> asked{false};
    std::thread other([&] {
        role.claim();
        claimed = true;
        while (!asked)
            std::this_thread::yield();
        role.release();
    });
    while (!claimed)
        std::this_thread::yield();
    EXPECT_FALSE(role.isHeld());
    asked = true;
    other.join();
    EXPECT_TRUE(role.isHeld());
}

TEST(ThreadRole, MayBeClaimedAgainByItsHolderAndIsFreeAfterOneRelease)
{
    velaThreadRole role;
    role.claim();
    role.claim();
    EXPECT_FALSE(isHeldElsewhere(role));
    role.release();
    EXPECT_TRUE(isHeldElsewhere(role));
}

TEST(ThreadRole, TheTwoRolesOfTheProcessAreIndependent)
{
    velaGuiRole.claim();
    elsewhere([] {
        EXPECT_FALSE(velaGuiRole.isHeld());
        EXPECT_TRUE(velaScriptRole.isHeld());
        velaScriptRole.claim();
        assertOnScriptThread();
        EXPECT_FALSE(velaGuiRole.isHeld());
        velaScriptRole.release();
    });
    assertOnGuiThread();
    velaGuiRole.release();
}
