// tests/controls/memory_test.cpp: a page that is loaded while there is no memory. Each allocation that the foundation
// makes for it fails once: the load ends with velaError 12 or with a line in the log, and nothing is kept.
#include "foundation/hashlist.h"
#include "foundation/vela-error.h"
#include "foundation/vela-memmgr.h"
#include "page/guilayouthold.h"
#include "page/guinodewatch.h"
#include "tests/controls/pagewindow.h"
#include "tests/support/fakescript.h"
#include "tests/support/leakcheck.h"

#include <gtest/gtest.h>

namespace {

char const* const kPage =
    "<html><head><title>Order</title></head><body bgcolor='#FFFFFF' background='paper.png'>"
    "<h1>Order</h1><p align=center>Some <b>bold</b> text with a <a href='event://onPick/1'>link</a> and &eacute;."
    "<table border=1 width='50%'><tr><td width=40 name=first caption=Box>one<td>two <font face=Courier size=4>x</font>"
    "</table><form name=f action='event://send'><input type=text name=t value=v><input type=checkbox name=c>"
    "<select name=s><option value=1>one<option>two</select></form><hr><ul><li>a<li>b</ul><img src=picture.png></body>";

/// How one load went.
struct Outcome
{
    bool hasFailed = false; ///< an allocation was refused
    int error = 0;          ///< code of the velaError that left the load, 0 when none did
    std::string log;        ///< what it wrote to standard error
};

/// Loads the page with the allocation behind `failAfter` others failing.
Outcome loadWithFailure(FakeHost& host, long failAfter)
{
    host.files["/app/page.html"] = kPage;
    host.files["/app/paper.png"] = host.files["/app/picture.png"] = "";
    PageWindow page;
    Outcome outcome;
    testing::internal::CaptureStderr();
    MemMgr_FailAfter(failAfter);
    try {
        page.root.loadFile(sstring("/app/page.html"));
    } catch (velaError const& error) {
        outcome.error = error.getCode();
    }
    outcome.hasFailed = MemMgr_HasFailed();
    MemMgr_FailAfter(-1);
    outcome.log = testing::internal::GetCapturedStderr();
    return outcome;
}

struct MemoryTest : testing::Test
{
    MemoryTest() { guiHtml::setRegistry(&nodes); }
    ~MemoryTest() override { guiHtml::setRegistry(nullptr); }

    hashlist<guiHtml> nodes{17};
    FakeHost host;
};

TEST_F(MemoryTest, EachFailingAllocationOfALoadEndsInError12OrALineInTheLogAndKeepsNothing)
{
    long count = 0;
    for (bool isOver = false; !isOver; ++count) {
        Outcome const outcome = loadWithFailure(host, count);
        isOver = !outcome.hasFailed;
        ASSERT_TRUE(isOver ? outcome.error == 0 : outcome.error == 12 || !outcome.log.empty())
            << outcome.error << " at allocation " << count;
        ASSERT_EQ(nodes.size(), 0u) << "at allocation " << count;
        ASSERT_EQ(guiNodeWatch::count(), 0u) << "at allocation " << count;
        ASSERT_FALSE(guiLayoutHold::isHeld()) << "at allocation " << count;
    }
    EXPECT_GT(count, 150);
    EXPECT_FALSE(hasLeaks());
}

} // namespace
