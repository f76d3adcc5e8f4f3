// tests/page/memory_test.cpp: a page that is loaded while there is no memory. Each allocation that the foundation makes
// for it fails once: the load ends with velaError 12 or with a line in the log, and nothing is kept.
#include "foundation/vela-error.h"
#include "foundation/vela-memmgr.h"
#include "page/guinodewatch.h"
#include "runtime/hashlist.h"
#include "tests/support/fakescript.h"
#include "tests/support/pagewindow.h"

#include <gtest/gtest.h>

#if defined(__SANITIZE_ADDRESS__)
#define TARN_HAS_LSAN 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define TARN_HAS_LSAN 1
#endif
#endif
#ifdef TARN_HAS_LSAN
#include <sanitizer/lsan_interface.h>
#endif

namespace {

char const* const kPage =
    "<html><head><title>Order</title></head><body bgcolor='#FFFFFF' background='paper.png'>"
    "<h1>Order</h1><p align=center>Some <b>bold</b> text with a <a href='event://onPick/1'>link</a> and &eacute;."
    "<table border=1 width='50%'><tr><td width=40 name=first caption=Box>one<td>two <font face=Courier size=4>x</font>"
    "</table><form name=f action='event://send'><input type=text name=t value=v><input type=checkbox name=c>"
    "<select name=s><option value=1>one<option>two</select></form><hr><ul><li>a<li>b</ul><img src=picture.png></body>";

/// Loads the page with the allocation behind `failAfter` others failing. 0 when it went through, else the error's code.
int loadWithFailure(FakeHost& host, long failAfter)
{
    host.files["/app/page.html"] = kPage;
    host.files["/app/paper.png"] = host.files["/app/picture.png"] = "";
    PageWindow page;
    int outcome = 0;
    MemMgr_FailAfter(failAfter);
    try {
        page.root.loadFile(sstring("/app/page.html"));
    } catch (velaError const& error) {
        outcome = error.getCode();
    }
    bool const hasFailed = MemMgr_HasFailed();
    MemMgr_FailAfter(-1);
    return hasFailed && outcome == 0 ? 12 : outcome;
}

/// The lines logged while `work` runs.
template <typename Work>
std::string logOf(Work work)
{
    testing::internal::CaptureStderr();
    work();
    return testing::internal::GetCapturedStderr();
}

struct MemoryTest : testing::Test
{
    MemoryTest() { guiHtml::setRegistry(&nodes); }
    ~MemoryTest() override { guiHtml::setRegistry(nullptr); }

    hashlist<guiHtml> nodes{17};
    FakeHost host;
};

TEST_F(MemoryTest, EachFailingAllocationOfALoadEndsInError12AndKeepsNothing)
{
    long count = 0;
    int outcome = 12;
    for (; outcome == 12; ++count) {
        logOf([&] { outcome = loadWithFailure(host, count); });
        ASSERT_TRUE(outcome == 0 || outcome == 12) << outcome << " at allocation " << count;
        ASSERT_EQ(nodes.size(), 0u) << "at allocation " << count;
        ASSERT_EQ(guiNodeWatch::count(), 0u) << "at allocation " << count;
    }
    EXPECT_GT(count, 200);
#ifdef TARN_HAS_LSAN
    EXPECT_EQ(__lsan_do_recoverable_leak_check(), 0);
#endif
}

} // namespace
