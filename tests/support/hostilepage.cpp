// tests/support/hostilepage.cpp: see hostilepage.h.
#include "tests/support/hostilepage.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "page/guihtmlsize.h"
#include "page/guihtmltext.h"
#include "tests/support/instrumented.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <fstream>
#include <functional>
#include <sstream>

namespace {

constexpr int kSlowdown = kIsInstrumented ? 20 : 1;
constexpr int kExtraMemory = kIsInstrumented ? 10 : 1;

double processorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    auto const seconds = [](timeval const& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// A line of /proc/self/status that is in kilobytes, in megabytes.
long statusMegabytes(std::string const& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;)
        if (word == name) {
            long kilobytes = 0;
            status >> kilobytes;
            return kilobytes / 1024;
        }
    return 0;
}

/// Makes the peak that the kernel keeps start over from what is in use now.
void resetPeak() { std::ofstream("/proc/self/clear_refs") << "5"; }

// Pages are a thousand levels deep at the most, so recursion is safe.
void visit(guiHtml* node, unsigned depth, std::function<void(guiHtml*, unsigned)> const& use)
{
    use(node, depth);
    for (guiHtml* child : guiNodesOf(node))
        visit(child, depth + 1, use);
}

bool isLength(std::int64_t pixels) { return pixels >= 0 && pixels <= kMaxLayoutPixels; }

bool isSane(guiHtml* node)
{
    guiRect const& rect = node->m.rect;
    guiHtml::sizes_t const& dynamic = node->m.dynamic;
    bool const isPlaced = std::abs(rect.left) <= kMaxLayoutPixels && std::abs(rect.top) <= kMaxLayoutPixels;
    return isPlaced && isLength(rect.width) && isLength(rect.height) && isLength(dynamic.cxMin) &&
           isLength(dynamic.cyMin) && isLength(dynamic.x) && isLength(dynamic.y) && isLength(node->m.activeCx) &&
           isLength(node->m.activeCy) && isLength(node->getScroll().rangeX) && isLength(node->getScroll().rangeY);
}

} // namespace

budget::budget(double seconds, long megabytes)
    : m_seconds(seconds * kSlowdown), m_megabytes(megabytes * kExtraMemory), m_startSeconds(processorSeconds())
{
    resetPeak();
    m_startMegabytes = statusMegabytes("VmRSS:");
}

budget::~budget()
{
    EXPECT_LE(processorSeconds() - m_startSeconds, m_seconds) << "seconds of processor time";
    EXPECT_LE(statusMegabytes("VmHWM:") - m_startMegabytes, m_megabytes) << "megabytes";
}

std::string hostileSetText(guiHtml& root, std::string const& markup)
{
    testing::internal::CaptureStderr();
    root.setText(sstring(markup.c_str()), sstring());
    return testing::internal::GetCapturedStderr();
}

std::string hostileLoad(guiPageRoot& root, std::string markup)
{
    testing::internal::CaptureStderr();
    {
        textstream stream(reinterpret_cast<unsigned char*>(markup.data()), static_cast<unsigned>(markup.size()), 0);
        mlParser parser(&stream);
        guiHtmlParser(&parser, "").pullWindow(&root);
    }
    return testing::internal::GetCapturedStderr();
}

bool isPageWithinBounds(guiHtml* root)
{
    bool isGood = true;
    visit(root, 0, [&](guiHtml* node, unsigned) { isGood = isGood && isSane(node); });
    return isGood;
}

std::string textOfPage(guiHtml* root)
{
    std::string all;
    visit(root, 0, [&](guiHtml* node, unsigned) {
        if (node->getType() == guiHtml::kTypeText)
            all += static_cast<guiHtmlText*>(node)->getText().c_str();
    });
    for (std::size_t at = 0; (at = all.find("[[")) != std::string::npos;)
        all.erase(at, all.find("]]", at) + 2 - at);
    return all;
}

std::size_t textLengthOfPage(guiHtml* root)
{
    std::size_t length = 0;
    visit(root, 0, [&](guiHtml* node, unsigned) {
        if (node->getType() == guiHtml::kTypeText)
            length += static_cast<guiHtmlText*>(node)->getText().getLength();
    });
    return length;
}

unsigned countNodesOfPage(guiHtml* root)
{
    unsigned count = 0;
    visit(root, 0, [&](guiHtml*, unsigned) { ++count; });
    return count;
}

unsigned deepestOfPage(guiHtml* root)
{
    unsigned deepest = 0;
    visit(root, 0, [&](guiHtml*, unsigned depth) { deepest = std::max(deepest, depth); });
    return deepest;
}

std::vector<std::string> hostileNumbers()
{
    return {"-2147483648",          "-1",  "0", "1",   "2147483647", "4000000000",
            "99999999999999999999", "abc", "",  "50%", "-50%",       "4000000000%"};
}

std::string withoutMistakes(std::string const& log)
{
    std::istringstream lines(log);
    std::string rest;
    for (std::string line; std::getline(lines, line);)
        if (!(line.starts_with("guiHtmlParser::pullContent() - ") || line.starts_with("tarn: ")) ||
            !line.ends_with("(warning)"))
            rest += line + '\n';
    return rest;
}
