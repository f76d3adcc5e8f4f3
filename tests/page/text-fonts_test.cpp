// tests/page/text-fonts_test.cpp: how large a face is made for a number of points, which font a node has, and how words
// are measured.
#include "tests/page/pagetree.h"

#include "page/guihtmltext-characters.h"
#include "page/guilayoutcounters.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QTextBoundaryFinder>

#include <utility>
#include <vector>

namespace {

int heightOf(QString const& family, int pixelSize)
{
    QFont font(family);
    font.setPixelSize(pixelSize);
    return QFontMetrics(font).height();
}

QString const kSans = QStringLiteral("DejaVu Sans");

TEST(FontHeight, LineHeightsComeFromTheTable)
{
    std::vector<std::pair<int, int>> const table = {{1, 11},  {8, 11},  {9, 14},  {10, 14}, {11, 16},
                                                    {12, 16}, {13, 20}, {14, 20}, {15, 24}, {18, 24},
                                                    {19, 29}, {24, 29}, {25, 37}, {36, 37}, {400, 37}};
    for (auto [points, height] : table)
        EXPECT_EQ(guiLineHeightFor(points), height) << points;
}

TEST(FontHeight, IsTheLargestThatTheLineHeightAllows)
{
    for (int points : {1, 8, 10, 12, 14, 18, 24, 36}) {
        int const height = guiLineHeightFor(points);
        for (QString const& family : {kSans, QStringLiteral("DejaVu Serif"), QStringLiteral("DejaVu Sans Mono")}) {
            int const size = findFontHeight(QFont(family), points);
            SCOPED_TRACE(testing::Message() << points << " points of " << family.toStdString());
            EXPECT_GE(size, 5);
            EXPECT_LT(size, height);
            EXPECT_LE(heightOf(family, size), height);
            if (size + 1 < height) {
                EXPECT_GT(heightOf(family, size + 1), height);
            }
        }
    }
}

TEST(FontHeight, IsFoundOncePerFamilyAndSize)
{
    QFont const font(QStringLiteral("DejaVu Sans Mono"));
    guiTextFonts::clear();
    guiLayoutCounters::reset();
    findFontHeight(font, 12);
    EXPECT_GT(guiLayoutCounters::fontProbes, 0u);
    guiLayoutCounters::reset();
    findFontHeight(font, 12);
    EXPECT_EQ(guiLayoutCounters::fontProbes, 0u);
}

TEST(FontHeight, NormalizingGivesTheFamilyInNormalWeightAndPixels)
{
    QFont font(kSans, 40, QFont::Bold, true);
    font.setUnderline(true);
    normalizeFontHeight(font, 14);
    EXPECT_EQ(font.family(), kSans);
    EXPECT_EQ(font.weight(), QFont::Normal);
    EXPECT_FALSE(font.italic());
    EXPECT_FALSE(font.underline());
    EXPECT_EQ(font.pixelSize(), findFontHeight(font, 14));
}

TEST(FontRequest, PartsAreTheFaceAndTheSizeInAnyOrder)
{
    auto read = [](char16_t const* code) {
        guiFontRequest const request = guiReadFontRequest(code);
        return std::pair(request.face.toStdString(), request.points);
    };
    EXPECT_EQ(read(u"Courier,14"), std::pair(std::string("Courier"), 14));
    EXPECT_EQ(read(u"14,Courier"), std::pair(std::string("Courier"), 14));
    EXPECT_EQ(read(u",14"), std::pair(std::string(), 14));
    EXPECT_EQ(read(u"Courier"), std::pair(std::string("Courier"), 0));
    EXPECT_EQ(read(u"Courier,0"), std::pair(std::string("0"), 0)); // not a size: a face like any other
    EXPECT_EQ(read(u"a,b,9"), std::pair(std::string("b"), 9));
    EXPECT_EQ(read(u""), std::pair(std::string(), 0));
    EXPECT_EQ(read(u"-4"), std::pair(std::string(), 1));
    EXPECT_EQ(read(u"99999999999999999999"), std::pair(std::string(), 500));
}

TEST(DefaultFont, ComesFromTheRootThroughNodesWithoutAFaceOfTheirOwn)
{
    testRoot root;
    guiHtml* cell = addNode(addNode(&root));
    int points = 0;
    EXPECT_EQ(cell->getDefaultFont(&points), testFont());
    EXPECT_EQ(points, 10);
    EXPECT_EQ(cell->getDefaultFont(nullptr), testFont());
}

TEST(DefaultFont, OverrideGivesFaceAndSizeEachOfThemInheritedWhenMissing)
{
    testRoot root;
    guiHtml* table = addNode(&root);
    guiHtml* cell = addNode(table);
    table->setString(kStringFace, sstring("DejaVu Serif,18"));
    int points = 0;
    QFont font = cell->getDefaultFont(&points);
    EXPECT_EQ(font.family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(font.pixelSize(), findFontHeight(font, 18));
    EXPECT_EQ(points, 18);

    cell->setString(kStringFace, sstring(",8"));
    font = cell->getDefaultFont(&points);
    EXPECT_EQ(font.family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(font.pixelSize(), findFontHeight(font, 8));
    EXPECT_EQ(points, 8);

    cell->setString(kStringFace, sstring("DejaVu Sans Mono"));
    font = cell->getDefaultFont(&points);
    EXPECT_EQ(font.family(), QStringLiteral("DejaVu Sans Mono"));
    EXPECT_EQ(points, 18);
}

TEST(DefaultFont, NodeOutsideAPageHasTheApplicationsFont)
{
    guiHtml node;
    int points = 0;
    EXPECT_EQ(node.getDefaultFont(&points), QApplication::font());
    EXPECT_GT(points, 0);
}

TEST(WordAdvance, IsTheToolkitsAndMeasuredOnce)
{
    guiTextFont& font = guiTextFonts::of(testFont());
    for (char16_t const* word :
         {u"Order", u"AVATAR", u"office", u"\u6587\u5B57", u"\u0645\u0631\u062D\u0628\u0627", u"e\u0301"}) {
        QString const text = QString::fromUtf16(word);
        EXPECT_EQ(guiTextPixels(font.wordAdvance(text)), QFontMetrics(testFont()).horizontalAdvance(text));
    }
    guiLayoutCounters::reset();
    font.wordAdvance(u"Order");
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
}

TEST(WordAdvance, StaysRightWhenMoreWordsComeThanAreRemembered)
{
    guiTextFont& font = guiTextFonts::of(testFont(12));
    QFontMetrics const metrics(testFont(12));
    for (int round = 0; round < 2; ++round)
        for (int i = 0; i < 40000; i += round ? 997 : 1) {
            QString const word = QString::number(i * 7919);
            int const advance = font.wordAdvance(word);
            if (i % 997 == 0) {
                ASSERT_EQ(guiTextPixels(advance), metrics.horizontalAdvance(word)) << i;
            }
        }
}

TEST(Characters, CoverTheWordAndAddUpToItsWidth)
{
    guiTextFont& font = guiTextFonts::of(testFont());
    QString longWord;
    for (int i = 0; i < 1000; ++i)
        longWord += QChar(u'a' + i % 26);
    QString const marks = QStringLiteral("e\u0301") + QString(600, QChar(0x0301)) + u'x'; // 601 marks on one letter
    QString const arabic = QStringLiteral("\u0645\u0631\u062D\u0628\u0627").repeated(30);
    QString const dashes(500, QChar(u'-'));
    QString const ideographs = QStringLiteral("abc\u6587\u5B57\u304B\u3099\uD55C-").repeated(40);
    for (QString const& word :
         {QStringLiteral("office"), longWord, marks, marks.chopped(1).repeated(3), arabic, dashes, ideographs}) {
        int advance = 0;
        qsizetype units = 0;
        std::vector<guiTextWord> characters;
        guiMeasureCharacters(font, word, characters);
        for (guiTextWord const& character : characters) {
            EXPECT_TRUE(character.flags & guiTextWord::kSingle);
            EXPECT_EQ((character.flags & guiTextWord::kGlued) != 0, units > 0);
            if (!(character.flags & guiTextWord::kSolid) && units > 0) {
                QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, word);
                finder.setPosition(units);
                EXPECT_TRUE(finder.isAtBoundary());
            }
            advance += character.advance;
            units += character.units;
        }
        EXPECT_EQ(units, word.size());
        EXPECT_NEAR(advance / 64.0, QFontMetricsF(testFont()).horizontalAdvance(word), word.size() > 128 ? 20 : 0.02);
    }
}

TEST(Characters, RunEitherWayAndHaveTheirOwnWidths)
{
    guiTextFont& font = guiTextFonts::of(testFont(24));
    QFontMetricsF const metrics(testFont(24));
    for (char16_t const* units : {u"\u05D5\u05E9\u05D9\u05DD\u05D5!",
                                  u"iml\u05D5\u05E9\u05D9mil"}) { // no joined letters, none that the font moves
        QString const word = QString::fromUtf16(units);
        std::vector<guiTextWord> characters;
        guiMeasureCharacters(font, word, characters);
        ASSERT_EQ(characters.size(), static_cast<std::size_t>(word.size()));
        for (int i = 0; i < word.size(); ++i)
            EXPECT_NEAR(characters[static_cast<std::size_t>(i)].advance / 64.0, metrics.horizontalAdvance(word[i]),
                        0.02)
                << i;
    }
}

TEST(ManyFaces, PageThatNamesThousandsOfFacesGetsSomeOfThem)
{
    guiTextFonts::clear();
    guiLayoutCounters::reset();
    for (int i = 0; i < 20000; ++i)
        guiTextFonts::face(QStringLiteral("Face %1").arg(i), i % 40, true);
    EXPECT_LE(guiLayoutCounters::fontProbes, 40000u);
    guiTextFonts::clear();
}

} // namespace
