// tests/page/layout-property.cpp: what holds for every page, on 2,000 random ones. A failing seed prints its page.
#include "tests/page/randompage.h"
#include "tests/page/referencelayout.h"
#include "tests/support/pagewindow.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"

#include <QScrollBar>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <sstream>

namespace {

constexpr unsigned kPages = 2000;

/// One random page in a window.
class livePage
{
public:
    explicit livePage(unsigned seed) : m_page(seed), m_seed(seed)
    {
        m_window.root.setText(sstring(m_page.markup().c_str()), sstring());
        m_page.decorate(&m_window.root);
        layOut();
    }

    guiHtml* root() { return &m_window.root; }
    randomPage const& page() const { return m_page; }
    void layOut() { layOut(m_page.width, m_page.height); }
    void layOut(int width, int height)
    {
        guiRect rect{0, width, 0, height};
        root()->calcDynamicLayout();
        root()->setRect(&rect);
    }
    std::string dump() { return root()->toString(0).c_str(); }
    /// What a reader needs to look into a failure.
    std::string describe()
    {
        return "seed " + std::to_string(m_seed) + ", " + std::to_string(m_page.width) + "x" +
               std::to_string(m_page.height) + ":\n" + m_page.markup() + "\n" + dump();
    }

private:
    randomPage m_page;
    unsigned m_seed;
    PageWindow m_window;
};

/// Runs a check on every page; it returns what is wrong, or "".
void onEveryPage(std::function<std::string(livePage&)> const& check)
{
    for (unsigned seed = 0; seed < kPages; ++seed) {
        livePage page(seed);
        std::string const fault = check(page);
        ASSERT_EQ(fault, "") << page.describe();
    }
}

/// Runs a check on every node from `node` down.
std::string onEveryNode(guiHtml* node, std::function<std::string(guiHtml*)> const& check)
{
    std::string const fault = check(node);
    if (!fault.empty())
        return fault;
    for (guiHtml* child : guiNodesOf(node))
        if (std::string const below = onEveryNode(child, check); !below.empty())
            return below;
    return "";
}

/// The nodes of a child list between two markers.
std::vector<std::vector<guiHtml*>> rowsOf(guiHtml const* node)
{
    std::vector<std::vector<guiHtml*>> rows(1);
    for (guiHtml* entry : node->m.children)
        if (guiChildList::isNode(entry))
            rows.back().push_back(entry);
        else if (!rows.back().empty())
            rows.emplace_back();
    if (rows.back().empty())
        rows.pop_back();
    return rows;
}

int sum(std::vector<guiHtml*> const& row, std::function<int(guiHtml*)> const& value)
{
    int total = 0;
    for (guiHtml* node : row)
        total += value(node);
    return total;
}

int roomFor(guiHtml* node)
{
    QScrollBar const* bar = node->getScroll().barY;
    return static_cast<int>(node->m.activeCx) - 2 * node->m.border - 2 * node->m.space -
           (bar ? bar->sizeHint().width() : 0);
}

int widthOfRow(guiHtml* node, std::vector<guiHtml*> const& row)
{
    return sum(row, [](guiHtml* child) { return static_cast<int>(child->m.activeCx); }) +
           (static_cast<int>(row.size()) - 1) * node->m.divide;
}

/// The first line in which two dumps differ, "" when they are the same.
std::string differingLine(std::string const& seen, std::string const& expected)
{
    std::istringstream seenLines(seen);
    std::istringstream expectedLines(expected);
    std::string line;
    for (std::string wanted; std::getline(expectedLines, wanted);)
        if (!std::getline(seenLines, line) || line != wanted)
            return "\"" + line + "\" instead of \"" + wanted + "\"";
    return std::getline(seenLines, line) ? "\"" + line + "\" at the end" : "";
}

// ---- The promises ----

std::string followsWithoutOverlap(guiHtml* node)
{
    int bottom = node->m.border + node->m.space + static_cast<int>(node->getCaptionHeight());
    for (auto const& row : rowsOf(node)) {
        int right = node->m.border + node->m.space;
        int rowBottom = bottom;
        for (guiHtml* child : row) {
            if (child->m.rect.left < right)
                return "a node overlaps the one before it";
            if (child->m.rect.top < bottom)
                return "a node overlaps the layer above it";
            if (child->m.rect.top != row.front()->m.rect.top)
                return "the nodes of a layer stand at different heights";
            right = child->m.rect.right() + node->m.divide;
            rowBottom = std::max(rowBottom, child->m.rect.bottom());
        }
        bottom = rowBottom;
    }
    return "";
}

bool hasPercent(std::vector<guiHtml*> const& row)
{
    return std::any_of(row.begin(), row.end(), [](guiHtml* child) { return child->m.dynamic.unitX == kUnitPercent; });
}

// Percentages are of the whole row, so other nodes beside them may not fit; everything else has room in a node that
// grows to its content.
std::string liesInItsParent(guiHtml* node)
{
    if (node->m.scrollMode != kPolicyResize || static_cast<int>(node->m.activeCx) < node->m.dynamic.cxMin)
        return "";
    int const right = node->m.rect.width - node->m.border - node->m.space;
    for (auto const& row : rowsOf(node))
        if (!hasPercent(row) && row.back()->m.rect.right() > right)
            return "a layer sticks out of its node";
    return "";
}

bool wantedMore(guiHtml const* child)
{
    bool const isRequest = !child->m.expandWidth && child->m.dynamic.unitX == kUnitPixels;
    return isRequest && static_cast<int>(child->m.dynamic.x) > std::max(child->m.dynamic.cxMin, 0);
}

bool isStillWanting(guiHtml const* child) { return wantedMore(child) && child->m.activeCx < child->m.dynamic.x; }

// Rounding down leaves less than a pixel for each wanting node to the last of them, which takes no more than it wants.
int lostToRounding(std::vector<guiHtml*> const& row)
{
    auto const last = std::find_if(row.rbegin(), row.rend(), wantedMore);
    bool const isFull = last != row.rend() && !isStillWanting(*last);
    return isFull ? static_cast<int>(std::count_if(row.begin(), row.end(), wantedMore)) - 1 : 0;
}

std::string usesTheWidthExactly(guiHtml* node)
{
    int const room = roomFor(node);
    for (auto const& row : rowsOf(node)) {
        bool const isExpanding =
            std::any_of(row.begin(), row.end(), [](guiHtml* child) { return child->m.expandWidth; });
        bool const isWanting = std::any_of(row.begin(), row.end(), isStillWanting);
        int const unused = room - widthOfRow(node, row);
        if ((isExpanding && !isWanting && unused > 0) || (isWanting && unused > lostToRounding(row)))
            return "a layer leaves " + std::to_string(unused) + " pixels to nobody";
        bool const hasSpare = std::any_of(row.begin(), row.end(), [](guiHtml* child) {
            return child->m.activeCx > unsigned(std::max(child->m.dynamic.cxMin, 0));
        });
        if (hasSpare && !hasPercent(row) && unused < 0)
            return "a layer gives away " + std::to_string(-unused) + " pixels that it does not have";
    }
    return "";
}

std::string isNeverBelowItsMinimum(guiHtml* node)
{
    if (node->getType() == guiHtml::kTypeBase)
        return ""; // the window decides
    bool const isWide = static_cast<int>(node->m.activeCx) >= node->m.dynamic.cxMin;
    bool const isHigh = static_cast<int>(node->m.activeCy) >= node->m.dynamic.cyMin;
    return isWide && isHigh ? "" : "a node is smaller than its minimum";
}

std::string isPlacedAtItsActiveSize(guiHtml* node)
{
    bool const isSame = node->m.rect.width == static_cast<int>(node->m.activeCx) &&
                        node->m.rect.height == static_cast<int>(node->m.activeCy);
    return isSame ? "" : "a rectangle is not of the active size";
}

std::string percentsAddUp(guiHtml* node)
{
    for (auto const& row : rowsOf(node)) {
        int const percents = sum(row, [](guiHtml* child) {
            return child->m.dynamic.unitX == kUnitPercent ? static_cast<int>(child->m.dynamic.x) : 0;
        });
        if (percents > 100)
            return "the percentages of a layer add up to " + std::to_string(percents);
    }
    return "";
}

TEST(RandomPage, KeepsEveryPromise)
{
    onEveryPage([](livePage& page) {
        std::string fault;
        for (auto promise : {followsWithoutOverlap, liesInItsParent, usesTheWidthExactly, isNeverBelowItsMinimum,
                             isPlacedAtItsActiveSize, percentsAddUp})
            if (fault.empty())
                fault = onEveryNode(page.root(), promise);
        return fault;
    });
}

TEST(RandomPage, AgreesWithAPlainSecondComputation)
{
    onEveryPage([](livePage& page) {
        return referenceLayout(page.root(), page.page().width, page.page().height).difference();
    });
}

TEST(RandomPage, SecondLayoutChangesNothing)
{
    onEveryPage([](livePage& page) {
        std::string const first = page.dump();
        page.layOut();
        return differingLine(page.dump(), first);
    });
}

TEST(RandomPage, LayoutAtAnotherSizeAndBackGivesTheSame)
{
    onEveryPage([](livePage& page) {
        std::string const first = page.dump();
        page.layOut(page.page().otherWidth, page.page().otherHeight);
        page.layOut();
        return differingLine(page.dump(), first);
    });
}

/// Lays a node out as its parent's passes and its parent's placement do.
void layOutAlone(guiHtml* node, guiHtml const* like)
{
    node->calcDynamicLayout();
    node->m.activeCx = like->m.activeCx;
    node->m.activeCy = like->m.activeCy;
    guiRect rect = like->m.rect;
    node->updateActiveWidths();
    node->updateActiveHeights();
    node->updateSpringyHeights();
    node->setRect(&rect);
}

bool hasScrollBars(guiHtml* node)
{
    bool found = node->getScroll().barX || node->getScroll().barY;
    for (guiHtml* child : guiNodesOf(node))
        found = found || hasScrollBars(child);
    return found;
}

// A clone shows the children of the node that it was made from, and has no scroll bars of its own.
TEST(RandomPage, ClonesLayOutLikeTheirOriginal)
{
    onEveryPage([](livePage& page) {
        std::string fault;
        for (guiHtml* node : guiNodesOf(page.root())) {
            if (!fault.empty() || hasScrollBars(node))
                continue;
            layOutAlone(node, node);
            std::string const original = node->toString(0).c_str();
            std::unique_ptr<guiHtml> const clone(node->Clone(page.root()));
            layOutAlone(clone.get(), node);
            fault = differingLine(clone->toString(0).c_str(), original);
        }
        return fault;
    });
}

/// The page that the markup parser writes for the sections it read.
std::string writtenAgain(std::string markup)
{
    textstream stream(reinterpret_cast<unsigned char*>(markup.data()), static_cast<unsigned>(markup.size()), 0);
    mlParser parser(&stream);
    parser.fullParse();
    return parser.toString().c_str();
}

TEST(RandomPage, MarkupWrittenAgainIsTheSamePage)
{
    for (unsigned seed = 0; seed < kPages; ++seed) {
        std::string const markup = randomPage(seed).markup();
        std::string const again = writtenAgain(markup);
        guiHtml first;
        guiHtml second;
        ASSERT_EQ(first.setText(sstring(markup.c_str()), sstring()), 1);
        ASSERT_EQ(second.setText(sstring(again.c_str()), sstring()), 1);
        ASSERT_STREQ(first.toString(0).c_str(), second.toString(0).c_str()) << "seed " << seed << ":\n"
                                                                            << markup << "\n"
                                                                            << again;
        ASSERT_EQ(writtenAgain(again), again) << "seed " << seed;
    }
}

// Else the promises would be kept by pages that never put them to the test.
TEST(RandomPage, EveryKindOfThingOccurs)
{
    unsigned bars = 0;
    unsigned captions = 0;
    unsigned springs = 0;
    unsigned markers[6] = {};
    unsigned nodes = 0;
    onEveryPage([&](livePage& page) {
        return onEveryNode(page.root(), [&](guiHtml* node) -> std::string {
            ++nodes;
            bars += node->getScroll().barX || node->getScroll().barY;
            captions += node->getCaptionHeight() != 0;
            springs += node->m.expandHeight;
            for (guiHtml* entry : node->m.children)
                if (!guiChildList::isNode(entry))
                    ++markers[guiChildList::toMarker(entry)];
            return "";
        });
    });
    EXPECT_GT(nodes, 20 * kPages);
    EXPECT_GT(bars, 100u);
    EXPECT_GT(captions, 100u);
    EXPECT_GT(springs, 100u);
    for (unsigned each : markers)
        EXPECT_GT(each, 500u);
}

} // namespace
