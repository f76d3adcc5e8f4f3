// tests/page/pagebreaks_test.cpp: where the sheets of a page begin and end.
#include "page/guipagebreaks.h"
#include "page/guiqrect.h"

#include <QRegion>
#include <gtest/gtest.h>
#include <random>
#include <vector>

namespace {

/// What a sheet shows of the page.
QRegion shownBy(guiSheet const& sheet)
{
    QRegion region(0, sheet.top, 1000, sheet.bottom - sheet.top);
    for (guiRect const& each : sheet.absent)
        region -= guiToQRect(each);
    return region;
}

/// The number of the sheet that shows all of the box; -1 when not exactly one does, or another one shows a part of it.
int sheetOf(std::vector<guiSheet> const& sheets, guiRect const& box)
{
    int found = -1;
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        QRegion const part = shownBy(sheets[i]).intersected(guiToQRect(box));
        if (part.isEmpty())
            continue;
        if (found != -1 || part != QRegion(guiToQRect(box)))
            return -1;
        found = static_cast<int>(i);
    }
    return found;
}

/// A column of lines of one height.
void addLines(guiPageBlocks& blocks, int left, int width, int top, int height, int count)
{
    for (int i = 0; i < count; ++i)
        blocks.whole.push_back({left, width, top + i * height, height});
    blocks.bottom = std::max(blocks.bottom, top + count * height);
}

void expectEachOnce(guiPageBlocks const& blocks, int height)
{
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, height);
    for (guiRect const& box : blocks.whole)
        EXPECT_NE(sheetOf(sheets, box), -1) << box.left << " " << box.top << " " << box.height;
    for (guiSheet const& sheet : sheets)
        EXPECT_LE(sheet.bottom - sheet.top + sheet.headHeight(), height);
}

} // namespace

TEST(PageBreaks, AnEmptyPageIsOneSheet) { EXPECT_EQ(guiBreakPage({}, 100).size(), 1u); }

TEST(PageBreaks, LinesAreNeverCut)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 50);
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 195);
    ASSERT_EQ(sheets.size(), 6u);
    for (std::size_t i = 0; i < sheets.size(); ++i) {
        EXPECT_EQ(sheets[i].top % 20, 0);
        EXPECT_TRUE(sheets[i].absent.empty()); // all of a strip is on one sheet
        EXPECT_TRUE(i == 0 || sheets[i].top == sheets[i - 1].bottom);
    }
    EXPECT_EQ(sheets[1].top, 180);
    expectEachOnce(blocks, 195);
}

TEST(PageBreaks, APictureThatFitsOnASheetIsNotCut)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 3);
    blocks.whole.push_back({0, 100, 60, 190});
    addLines(blocks, 0, 100, 250, 20, 1);
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 200);
    ASSERT_EQ(sheets.size(), 3u);
    EXPECT_EQ(sheetOf(sheets, {0, 100, 60, 190}), 1);
    EXPECT_EQ(sheetOf(sheets, {0, 100, 250, 20}), 2);
}

TEST(PageBreaks, APictureThatIsTallerIsCutAndNothingOfItIsLost)
{
    guiPageBlocks blocks;
    blocks.tall.push_back({0, 100, 0, 450});
    blocks.bottom = 450;
    addLines(blocks, 0, 100, 450, 20, 2);
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 200);
    ASSERT_EQ(sheets.size(), 3u);
    EXPECT_EQ(sheets[1].top, 200);
    EXPECT_EQ(sheets[2].top, 400);
    EXPECT_EQ(sheetOf(sheets, {0, 100, 450, 20}), 2);
}

TEST(PageBreaks, ABoxThatWouldNotFitAnywhereIsTakenForOneThatCanBeCut)
{
    guiPageBlocks blocks;
    blocks.whole.push_back({0, 100, 0, 450});
    blocks.bottom = 450;
    EXPECT_EQ(guiBreakPage(blocks, 200).size(), 3u);
}

TEST(PageBreaks, ASheetDoesNotBeginWithEmptyRoom)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 9);
    addLines(blocks, 0, 100, 215, 20, 9);
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 200);
    ASSERT_EQ(sheets.size(), 2u);
    EXPECT_EQ(sheets[1].top, 215);
}

TEST(PageBreaks, RoomOfAPictureThatGoesOnIsNotEmpty)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 9);
    addLines(blocks, 0, 100, 215, 20, 9);
    blocks.tall.push_back({200, 100, 0, 500});
    blocks.bottom = 500;
    EXPECT_EQ(guiBreakPage(blocks, 200)[1].top, 200);
}

TEST(PageBreaks, ColumnsWithoutACommonGapAreCutWhereEachHasOne)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 60);
    addLines(blocks, 200, 100, 7, 17, 70);
    expectEachOnce(blocks, 193);
    expectEachOnce(blocks, 60);
}

TEST(PageBreaks, AnythingIsShownOnceWhateverStandsBesideIt)
{
    std::mt19937 random(7); // NOLINT: the same each time
    for (int run = 0; run < 50; ++run) {
        guiPageBlocks blocks;
        for (int column = 0; column < 3; ++column) {
            int top = static_cast<int>(random() % 30);
            for (int i = 0; i < 40; ++i) {
                int const height = 5 + static_cast<int>(random() % 95);
                blocks.whole.push_back({column * 300, 200, top, height});
                top += height + static_cast<int>(random() % 12);
            }
            blocks.bottom = std::max(blocks.bottom, top);
        }
        expectEachOnce(blocks, 100 + static_cast<int>(random() % 300));
    }
}

TEST(PageBreaks, TheHeadOfATableIsRepeatedWhereTheTableGoesOn)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 40);
    blocks.heads.push_back({{0, 100, 40, 20}, 600});
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 200);
    EXPECT_TRUE(sheets[0].heads.empty());
    ASSERT_EQ(sheets[1].heads.size(), 1u);
    EXPECT_EQ(sheets[1].top, 200);
    EXPECT_EQ(sheets[1].bottom, 380); // there is less room below the head
    EXPECT_EQ(sheets[2].top, 380);
    EXPECT_TRUE(sheets.back().heads.empty());
    expectEachOnce(blocks, 200);
}

TEST(PageBreaks, ATableThatBeginsOnASheetHasItsHeadOnce)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 30);
    blocks.heads.push_back({{0, 100, 200, 20}, 600});
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 200);
    EXPECT_EQ(sheets[1].top, 200);
    EXPECT_TRUE(sheets[1].heads.empty());
    EXPECT_EQ(sheets[2].heads.size(), 1u);
}

TEST(PageBreaks, HeadsThatWouldTakeHalfOfASheetAreNotRepeated)
{
    guiPageBlocks blocks;
    blocks.whole.push_back({0, 100, 0, 120});
    addLines(blocks, 0, 100, 120, 20, 30);
    blocks.heads.push_back({{0, 100, 0, 120}, 720});
    for (guiSheet const& sheet : guiBreakPage(blocks, 200))
        EXPECT_TRUE(sheet.heads.empty());
}

TEST(PageBreaks, TablesInTablesRepeatBothHeads)
{
    guiPageBlocks blocks;
    addLines(blocks, 0, 100, 0, 20, 30);
    blocks.heads.push_back({{0, 100, 40, 20}, 600});
    blocks.heads.push_back({{0, 100, 0, 20}, 600});
    std::vector<guiSheet> const sheets = guiBreakPage(blocks, 200);
    ASSERT_EQ(sheets[1].heads.size(), 2u);
    EXPECT_EQ(sheets[1].heads[0].top, 0);
    EXPECT_EQ(sheets[1].heads[1].top, 40);
}
