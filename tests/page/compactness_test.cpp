// tests/page/compactness_test.cpp: what keeps a page small in memory, and the small containers that do it.
#include "tests/page/pagetree.h"

#include "foundation/vela-qt.h"
#include "page/guihtmlparser.h"
#include "page/guilayoutcounters.h"
#include "tests/support/instrumented.h"

#include <QApplication>
#include <gtest/gtest.h>

#include <malloc.h>

namespace {

std::string textOf(guiRunText const& text) { return text.view().toString().toStdString(); }

// ---- The text of a run ----

TEST(RunText, GrowsAtItsEnd)
{
    guiRunText text;
    EXPECT_EQ(text.getLength(), 0u);
    EXPECT_TRUE(text.view().isEmpty());
    std::string expected;
    for (int i = 0; i < 1000; ++i) {
        text += sstring("ab");
        text += "c";
        text.append(u"d");
        expected += "abcd";
    }
    EXPECT_EQ(textOf(text), expected);
    EXPECT_EQ(text.getLength(), 4000u);
    EXPECT_EQ(text.toString(), sstring(expected.c_str()));
    text.shrink();
    EXPECT_EQ(textOf(text), expected);
}

TEST(RunText, CopiesAreIndependent)
{
    guiRunText text;
    text = sstring("one");
    guiRunText copy(text);
    text += "two";
    EXPECT_EQ(textOf(copy), "one");
    copy = text;
    EXPECT_EQ(textOf(copy), "onetwo");
    guiRunText const& itself = copy;
    copy = itself;
    EXPECT_EQ(textOf(copy), "onetwo");
    copy = sstring("");
    EXPECT_EQ(copy.getLength(), 0u);
    EXPECT_EQ(copy.toString().getLength(), 0u);
}

TEST(RunText, BlankGoesBeforeOpeningCodesAsInAString)
{
    for (char const* text : {"", "abcd", "[[b]]", "word[[b]]", "word[[b]][[,14]]", "word[[/b]]", "word[[b]]x", "]]",
                             "x]]", "[[b]][[/b]]", "a]]b]]", "[[a x]]"}) {
        sstring string(text);
        guiHtmlParser::appendSpace(string);
        guiRunText run;
        run = sstring(text);
        run.appendSpace();
        EXPECT_EQ(run.toString(), string) << text;
    }
}

TEST(RunText, MarkGoesWithEveryChange)
{
    guiRunText text;
    text = sstring("one");
    EXPECT_FALSE(text.isMeasured());
    for (int change = 0; change < 4; ++change) {
        text.setMeasured();
        EXPECT_TRUE(text.isMeasured());
        if (change == 0)
            text += "x";
        else if (change == 1)
            text.appendSpace();
        else if (change == 2)
            text = sstring("two");
        else
            text.append(u"y");
        EXPECT_FALSE(text.isMeasured()) << change;
    }
}

// ---- The children of a node ----

guiHtml* const kMark = guiChildList::fromMarker(kMarkerParagraph);

TEST(ChildList, HoldsNodesMarkersAndEmptySlotsInOrder)
{
    guiHtml first, second;
    for (guiHtml* start : {&first, kMark, static_cast<guiHtml*>(nullptr)}) {
        guiChildList list;
        EXPECT_EQ(list.size(), 0u);
        EXPECT_EQ(list.begin(), list.end());
        list.append(start);
        ASSERT_EQ(list.size(), 1u);
        EXPECT_EQ(list[0], start);
        for (int i = 0; i < 20; ++i)
            list.append(i % 2 ? kMark : &second);
        ASSERT_EQ(list.size(), 21u);
        EXPECT_EQ(list[0], start);
        EXPECT_EQ(list[19], &second);
        EXPECT_EQ(list[20], kMark);
        list.clear();
        EXPECT_EQ(list.size(), 0u);
    }
}

TEST(ChildList, CopiesShareUntilOneIsAppendedTo)
{
    guiHtml first, second;
    for (bool many : {false, true}) {
        guiChildList list;
        list.append(&first);
        if (many)
            list.append(&second);
        EXPECT_FALSE(list.isShared());
        guiChildList copy(list);
        EXPECT_TRUE(list.isShared());
        EXPECT_TRUE(copy.isShared());
        EXPECT_EQ(copy.size(), many ? 2u : 1u);
        EXPECT_EQ(copy[0], &first);
        copy.append(kMark);
        EXPECT_EQ(copy.size(), many ? 3u : 2u);
        EXPECT_EQ(list.size(), 0u) << "the nodes have one owner";
        EXPECT_FALSE(copy.isShared());
    }
}

TEST(ChildList, OnlyEntryCanBeReplaced)
{
    guiHtml first, second;
    guiChildList list;
    list.append(&first);
    list.set(0, &second);
    EXPECT_EQ(list[0], &second);
    list.set(0, kMark);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0], kMark);
}

// ---- Fonts that change without a word ----

TEST(Fonts, NewApplicationFontIsSeenByTheNextLayout)
{
    QFont const before = QApplication::font();
    guiHtml root;
    guiHtmlText* run = addText(&root, "one two three");
    root.calcDynamicLayout();
    int const width = run->getPreferredWidth();
    QFont larger = before;
    larger.setPixelSize(40);
    QApplication::setFont(larger);
    root.calcDynamicLayout();
    EXPECT_GT(run->getPreferredWidth(), width);
    EXPECT_GT(static_cast<int>(run->m.dynamic.x), width);
    QApplication::setFont(before);
    root.calcDynamicLayout();
    EXPECT_EQ(static_cast<int>(run->m.dynamic.x), width);
}

TEST(Fonts, RunThatMovesToAnotherParentTakesItsFont)
{
    testRoot root;
    guiHtml* large = addNode(&root);
    large->setString(kStringFace, sstring(",24"));
    guiHtmlText* run = addText(&root, "one two three");
    root.layOut(500, 100);
    unsigned const width = run->m.dynamic.x;
    guiHtmlText* moved = addText(large, "one two three");
    moved->setParent(&root);
    root.layOut(500, 100);
    EXPECT_EQ(moved->m.dynamic.x, width);
    moved->setParent(large);
    root.layOut(500, 100);
    EXPECT_GT(moved->m.dynamic.x, width);
}

// ---- Memory ----

#ifndef TARN_IS_INSTRUMENTED // a sanitizer's heap keeps other books

std::size_t heapBytes()
{
    struct mallinfo2 const info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

TEST(Memory, LaidOutCellsStaySmall)
{
    QString page = QStringLiteral("<table border=1>");
    for (int i = 0; page.size() < 500000; ++i)
        page += QStringLiteral("<tr><td>%1</td><td>Name</td><td>middle</td></tr>").arg(i);
    sstring const text = qtoss(page + QStringLiteral("</table>"));
    testRoot warm;
    warm.setText(sstring("<table><tr><td>Name</td></tr></table>"), "");
    std::size_t const before = heapBytes();
    testRoot root;
    root.m.rect = {0, 800, 0, 600};
    root.setText(text, "");
    double const bytes = static_cast<double>(heapBytes() - before) / page.size();
    EXPECT_LT(bytes, 45);
    EXPECT_GT(bytes, 10) << "too little to be true";
}

TEST(Memory, NodesAreSmall)
{
    EXPECT_LE(sizeof(guiHtml), 184u);
    EXPECT_LE(sizeof(guiHtmlText), 288u);
    EXPECT_EQ(sizeof(guiChildList), sizeof(void*));
    EXPECT_EQ(sizeof(guiRunText), sizeof(void*));
}

#endif

} // namespace
