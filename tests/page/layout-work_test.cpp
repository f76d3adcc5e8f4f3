// tests/page/layout-work_test.cpp: how much work a layout is, counted per node: counts do not depend on the machine.
#include "tests/page/pagetree.h"
#include "tests/page/pagewindow.h"

#include "page/guilayoutcounters.h"

#include <QScrollBar>
#include <gtest/gtest.h>

namespace {

/// A table in a cell of a table, `depth` times, with `width` cells on every level.
void nest(guiHtml* parent, int depth, int width)
{
    guiHtml* table = addNode(parent);
    table->m.expandChildren = 1;
    requestHeight(table, kUnitPercent, 100);
    for (int i = 0; i < width; ++i) {
        guiHtml* cell = addNode(table);
        addText(cell, "Name of the customer");
        if (depth > 1 && i == 0)
            nest(cell, depth - 1, width);
    }
}

unsigned countNodes(guiHtml* node)
{
    unsigned count = 1;
    for (guiHtml* child : guiNodesOf(node))
        count += countNodes(child);
    return count;
}

unsigned countTexts(guiHtml* node)
{
    unsigned count = node->getType() == guiHtml::kTypeText;
    for (guiHtml* child : guiNodesOf(node))
        count += countTexts(child);
    return count;
}

/// What one layout of `nodes` nodes, `texts` of them text runs, may cost at the most. `runs`: how often widths and
/// heights are shared out, once and once more for each time that scroll bars appear.
void expectBoundedWork(unsigned nodes, unsigned texts, unsigned runs)
{
    EXPECT_EQ(guiLayoutCounters::calcDynamic, nodes);
    EXPECT_LE(guiLayoutCounters::widthQueries, nodes);
    EXPECT_EQ(guiLayoutCounters::widthPasses, runs * nodes);
    EXPECT_LE(guiLayoutCounters::heightPasses, 2 * runs * nodes);
    EXPECT_LE(guiLayoutCounters::heightQueries, 3 * runs * nodes);
    EXPECT_LE(guiLayoutCounters::heightsComputed, runs * nodes);
    EXPECT_EQ(guiLayoutCounters::placements, nodes);
    EXPECT_LE(guiLayoutCounters::fontClimbs, 4 * runs * nodes);
    EXPECT_EQ(guiLayoutCounters::runsShaped, texts);
    EXPECT_LE(guiLayoutCounters::runsBroken, (1 + runs) * texts); // once unbroken, and at each width that it gets
}

TEST(LayoutWork, PerNodeIsBoundedAtEveryDepth)
{
    for (int depth : {1, 4, 8, 12, 200}) {
        SCOPED_TRACE(depth);
        testRoot root;
        nest(&root, depth, 4);
        guiLayoutCounters::reset();
        root.layOut(800, 600);
        expectBoundedWork(countNodes(&root), countTexts(&root), 1);
        EXPECT_LE(guiLayoutCounters::wordsShaped, 4u);
    }
}

// Heights alone, as a caller may ask for them: nothing is settled then while the widths are shared out.
TEST(LayoutWork, HeightsAloneAreBoundedAtEveryDepth)
{
    for (int depth : {1, 12, 200}) {
        SCOPED_TRACE(depth);
        testRoot root;
        nest(&root, depth, 4);
        root.layOut(800, 600);
        guiLayoutCounters::reset();
        root.updateActiveHeights();
        unsigned const nodes = countNodes(&root);
        EXPECT_LE(guiLayoutCounters::heightPasses, 2 * nodes);
        EXPECT_LE(guiLayoutCounters::heightQueries, 3 * nodes);
        EXPECT_LE(guiLayoutCounters::heightsComputed, nodes);
        EXPECT_GT(guiLayoutCounters::heightsComputed, 0u);
    }
}

/// A table of two rows of two cells in every cell of a table, `depth` times: all sides of the page are deep.
std::string nestedTables(int depth, char const* attributes)
{
    std::string cell = depth > 1 ? nestedTables(depth - 1, attributes) : "Name of the customer";
    std::string const plain = "<td>Name of the customer</td>";
    return std::string("<table ") + attributes + "><tr><td>" + cell + "</td>" + plain + "</tr><tr>" + plain +
           "<td width=40%>" + cell + "</td></tr></table>";
}

TEST(LayoutWork, PagesOfNestedTablesAreBoundedToo)
{
    for (int depth : {1, 4, 8, 12}) {
        SCOPED_TRACE(depth);
        PageWindow window;
        window.root.setText(sstring(nestedTables(depth, "width=100% height=90% border").c_str()), sstring());
        unsigned const nodes = countNodes(&window.root);
        unsigned const texts = countTexts(&window.root);
        EXPECT_GE(nodes, 1u << depth);
        window.root.m.rect = {0, 700, 0, 500};
        guiLayoutCounters::reset();
        window.root.updateLayout(1);
        // The texts were shaped for the size that the window had before.
        EXPECT_EQ(guiLayoutCounters::runsShaped, 0u);
        guiLayoutCounters::runsShaped = texts;
        expectBoundedWork(nodes, texts, 1);
    }
}

TEST(LayoutWork, ScrollBarsInsideScrollBarsCostAFewMoreRuns)
{
    constexpr unsigned kMostRuns = 8;
    for (int depth : {1, 4, 8, 12}) {
        SCOPED_TRACE(depth);
        PageWindow window;
        window.root.setText(sstring(nestedTables(depth, "width=300 height=90 scrolling").c_str()), sstring());
        unsigned const nodes = countNodes(&window.root);
        window.root.m.rect = {0, 700, 0, 500};
        guiLayoutCounters::reset();
        window.root.updateLayout(1);
        EXPECT_EQ(guiLayoutCounters::calcDynamic, nodes);
        EXPECT_LE(guiLayoutCounters::widthQueries, nodes);
        EXPECT_EQ(guiLayoutCounters::placements, nodes);
        EXPECT_LE(guiLayoutCounters::widthPasses, kMostRuns * nodes);
        EXPECT_LE(guiLayoutCounters::heightQueries, 3 * kMostRuns * nodes);
        EXPECT_LE(guiLayoutCounters::heightsComputed, kMostRuns * nodes);
    }
}

/// A table of two cells, as wide as its content.
guiHtml* addTable(guiHtml* parent)
{
    guiHtml* table = addNode(parent);
    for (int i = 0; i < 2; ++i)
        addText(addNode(table), "Name");
    addMarkers(parent, {kMarkerLineBreak});
    return table;
}

TEST(LayoutWork, ResizeDoesNotLookIntoWhatKeepsItsWidth)
{
    constexpr unsigned kTables = 100;
    testRoot root;
    for (unsigned i = 0; i < kTables; ++i)
        addTable(&root);
    root.layOut(800, 600);
    guiLayoutCounters::reset();
    guiRect rect{0, 700, 0, 500};
    root.setRect(&rect);
    EXPECT_EQ(guiLayoutCounters::widthPasses, 1u);
    EXPECT_EQ(guiLayoutCounters::heightPasses, 1u);
    EXPECT_EQ(guiLayoutCounters::heightQueries, 0u);
    EXPECT_EQ(guiLayoutCounters::placements, 1 + kTables);
    rect.width = root.getChild(0)->m.rect.width - 10;
    root.setRect(&rect);
    EXPECT_GT(guiLayoutCounters::widthPasses, 1 + kTables);
}

TEST(LayoutWork, ResizePlacesEveryControlOfAWindow)
{
    testRoot root;
    guiHtml* table = addTable(&root);
    testBox* box = addBox(table, 20, 10);
    root.layOut(800, 600);
    guiLayoutCounters::reset();
    guiRect rect{0, 700, 0, 500};
    root.setRect(&rect);
    EXPECT_EQ(guiLayoutCounters::widthPasses, 1u);
    EXPECT_EQ(guiLayoutCounters::placements, 5u); // root, table, both cells and the box, but not the texts
    EXPECT_EQ(box->m.rect.width, 20);
}

TEST(LayoutWork, ResizeSeesANewSizePolicy)
{
    testRoot root;
    guiHtml* table = addTable(&root);
    guiHtml* frame = addNode(table);
    requestWidth(frame, kUnitPixels, 100);
    requestHeight(frame, kUnitPixels, 100);
    frame->setSizePolicy(kPolicyFixed);
    addBox(frame, 300, 300);
    root.layOut(800, 600);
    frame->setSizePolicy(kPolicyScroll);
    guiRect rect{0, 700, 0, 500};
    root.setRect(&rect);
    EXPECT_TRUE(frame->getScroll().barY);
}

TEST(LayoutWork, UnchangedTextIsNotBrokenOrShapedAgain)
{
    testRoot root;
    nest(&root, 4, 4);
    root.layOut(800, 600);
    guiLayoutCounters::reset();
    root.layOut(800, 600);
    EXPECT_EQ(guiLayoutCounters::runsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::runsBroken, 0u);
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::fontProbes, 0u);
    root.layOut(300, 600);
    EXPECT_EQ(guiLayoutCounters::runsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
}

} // namespace
