// tests/page/layout-property_test.cpp: what holds for every page, on 2,000 random ones. A failing seed prints its page.
#include "tests/page/pagewindow.h"
#include "tests/page/randompage.h"
#include "tests/page/referencelayout.h"
#include "tests/support/layoutpromises.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmltext.h"

#include <QScrollBar>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <sstream>
#include <utility>

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
    /// What the user does to the window: no more than a new rectangle.
    void resize(int width, int height)
    {
        guiRect rect{0, width, 0, height};
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

TEST(RandomPage, KeepsEveryPromise)
{
    onEveryPage([](livePage& page) { return brokenLayoutPromise(page.root()); });
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

/// Where the links of all texts are.
std::string linkPlaces(guiHtml* node)
{
    std::ostringstream places;
    onEveryNode(node, [&places](guiHtml* at) {
        if (at->getType() == guiHtml::kTypeText)
            for (guiHotspot const& spot : static_cast<guiHtmlText*>(at)->mx.hotspots)
                places << at << ' ' << spot.left << ' ' << spot.width << ' ' << spot.top << ' ' << spot.height << '\n';
        return std::string();
    });
    return places.str();
}

// A resize takes over what an earlier layout found for nodes that stay as wide; nobody may see that.
TEST(RandomPage, ResizesEndWhereALayoutFromScratchDoes)
{
    onEveryPage([](livePage& page) {
        int const width = page.page().width;
        int const height = page.page().height;
        for (auto const& [w, h] : {std::pair(page.page().otherWidth, page.page().otherHeight),
                                   {width, height + 1},
                                   {width - 1, height},
                                   {2 * width, 2 * height},
                                   {width, height}}) {
            page.resize(w, h);
            std::string const resized = page.dump() + linkPlaces(page.root());
            page.layOut(w, h);
            if (std::string fault = differingLine(resized, page.dump() + linkPlaces(page.root())); !fault.empty())
                return fault;
            page.resize(width / 2, height);
        }
        return std::string();
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
            if (hasScrollBars(node))
                continue; // a single pass made one
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
