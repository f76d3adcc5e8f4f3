// tests/page/memory_test.cpp: a page whose layout fails for want of memory while it is put off.
#include "foundation/hashlist.h"
#include "foundation/vela-error.h"
#include "page/guilayouthold.h"
#include "tests/support/testroot.h"

#include <gtest/gtest.h>

namespace {

/// A page whose layout fails for want of memory.
class FailingRoot : public TestRoot
{
public:
    using TestRoot::operator=;
    int updateLayout(int apply) override
    {
        if (apply && guiLayoutHold::postpone(this))
            return 1;
        ++layouts;
        throw velaError(12);
    }

    int layouts = 0;
};

struct MemoryTest : testing::Test
{
    MemoryTest() { guiHtml::setRegistry(&nodes); }
    ~MemoryTest() override { guiHtml::setRegistry(nullptr); }

    hashlist<guiHtml> nodes{17};
};

TEST_F(MemoryTest, ALayoutThatFailsWhenAHoldIsReleasedReachesTheCallerOnce)
{
    FailingRoot root;
    guiLayoutHold hold;
    root.updateLayout(1);
    EXPECT_THROW(hold.release(), velaError);
    EXPECT_FALSE(guiLayoutHold::isHeld());
    EXPECT_NO_THROW(hold.release());
    EXPECT_EQ(root.layouts, 1);
}

TEST_F(MemoryTest, ALayoutThatFailsWhenAnExceptionEndsAHoldIsLogged)
{
    FailingRoot root;
    testing::internal::CaptureStderr();
    try {
        guiLayoutHold hold;
        root.updateLayout(1);
        throw 7;
    } catch (int number) {
        EXPECT_EQ(number, 7);
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "guiLayoutHold::~guiLayoutHold() - failed to lay a page out\n");
    EXPECT_EQ(root.layouts, 1);
    EXPECT_FALSE(guiLayoutHold::isHeld());
}

TEST_F(MemoryTest, OnlyTheOutermostHoldLaysOut)
{
    FailingRoot root;
    guiLayoutHold outer;
    {
        guiLayoutHold inner;
        root.updateLayout(1);
        EXPECT_NO_THROW(inner.release());
    }
    EXPECT_EQ(root.layouts, 0);
    EXPECT_THROW(outer.release(), velaError);
    EXPECT_EQ(root.layouts, 1);
}

} // namespace
