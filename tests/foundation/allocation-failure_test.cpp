// tests/foundation/allocation-failure_test.cpp: running out of memory. Every allocation while reading a page fails
// once; each time the result is velaError 12 and nothing leaks. Needs a build with assertions, which have the hook.

#include "foundation/vela-memmgr.h"
#include "tests/foundation/markup.h"
#include "tests/support/leakcheck.h"

#include <functional>
#include <set>
#include <thread>

namespace {

/// A page of more than a chunk, in a multi-byte code set, with everything that allocates.
std::string page()
{
    std::string text = "<meta content='text/html; charset=shift_jis'><!DOCTYPE html>";
    for (int i = 0; i < 9; ++i)
        text += "<td width=" + std::to_string(i) + " name='a" + std::to_string(i) + "'>\x93\xFA&amp;";
    text += "<p>" + std::string(3000, 'x') + " &nbsp; <b>\x93\xFA\x96\x7B</b><![CDATA[raw <data>]]></p>";
    text += "<!-- " + std::string(14000, 'y') + "--><li>one <i a=b c>two</i> three";
    return text;
}

/// Uses the library as a reader of pages does.
void readPage(sstring const& file)
{
    textstream stream(file);
    mlParser parser(&stream);
    mlSection* cell = parser.findSection("td");
    mlParser rest(cell);
    rest.getSection(0);
    parser.fullParse();
    dump(parser);
    parser.toString();
    parser.toFormattedString();
    sformat const line("%s has %d attributes", cell->getName().c_str(), static_cast<int>(cell->getAttrCount()));
    FileIO_CanonicalizePath("a/../b");
    istring upper(cell->getName() * 3);
    upper.replace("td", "longer", static_cast<sstring::ReplaceHowMany>(0));
}

void readStream(sstring const& file)
{
    textstream stream(file);
    stream.pushPos();
    stream.advance(17000);
    stream.popPos();
    sstring all = stream.toString();
    datastream again(all);
    unsigned char bytes[64];
    again.pop(bytes, 20);
}

/// Runs `work` on a new thread, which has no cached converters yet. Returns 0, the code of the velaError, or -1 for
/// another exception.
int attempt(std::function<void()> const& work, long failAfter, bool& hasFailed)
{
    int outcome = 0;
    std::thread thread([&] {
        MemMgr_FailAfter(failAfter);
        try {
            work();
        } catch (velaError const& error) {
            outcome = error.getCode();
        } catch (...) {
            outcome = -1;
        }
        hasFailed = MemMgr_HasFailed();
        MemMgr_FailAfter(-1);
    });
    thread.join();
    return outcome;
}

/// Lets each allocation of `work` fail in turn. Returns their number.
long failEach(std::function<void()> const& work)
{
    std::set<int> outcomes;
    bool hasFailed = true;
    long count = -1;
    while (hasFailed) {
        int const outcome = attempt(work, ++count, hasFailed);
        EXPECT_EQ(outcome, hasFailed ? 12 : 0) << "allocation " << count;
        if (testing::Test::HasFailure())
            break;
    }
    EXPECT_FALSE(hasLeaks());
    return count;
}

} // namespace

TEST(FailingAllocation, EachOneWhileReadingAPageGivesError12)
{
    TemporaryFile file(page());
    EXPECT_GT(failEach([&] { readPage(file.name()); }), 100);
}

TEST(FailingAllocation, EachOneWhileReadingAStreamGivesError12)
{
    TemporaryFile file(page());
    EXPECT_GT(failEach([&] { readStream(file.name()); }), 8);
}

TEST(FailingAllocation, AfterwardsThePageReadsNormally)
{
    TemporaryFile file(page());
    bool hasFailed = false;
    EXPECT_EQ(attempt([&] { readPage(file.name()); }, 20, hasFailed), 12);
    EXPECT_TRUE(hasFailed);
    textstream stream(file.name());
    mlParser parser(&stream);
    EXPECT_EQ(dump(parser), dumpOf(page()));
}

TEST(FailingAllocation, AStringThatCanNotGrowStaysUnchanged)
{
    sstring text("as it was");
    MemMgr_FailAfter(0);
    EXPECT_EQ(errorOf([&] { text.append(std::string(5000, 'x').c_str()); }), 12);
    MemMgr_FailAfter(-1);
    EXPECT_STREQ(text.c_str(), "as it was");
}
