// tests/page/text-lines_test.cpp: how a text run breaks into lines, and how large it is.
#include "tests/page/pagetree.h"
#include "tests/page/textlines.h"

#include "page/guihtmltext-characters.h"
#include "page/guihtmltext-lines.h"

#include <gtest/gtest.h>

#include <QFontMetrics>

#include <limits>

namespace {

int measure(char const* text, int width, int* widthOut = nullptr)
{
    guiRect box{0, width, 0, 0};
    textParams params;
    params.font = testFont();
    return guiHtmlText::drawText(nullptr, &box, sstring(text), &params, widthOut, nullptr);
}

int lineHeight(int points = 10) { return QFontMetrics(testFont(points)).lineSpacing(); }

constexpr int kUnbroken = std::numeric_limits<int>::max();

TEST(TextSize, EmptyTextAndOneBlankAreEightHighAndZeroWide)
{
    for (char const* text : {"", " "}) {
        int width = -1;
        EXPECT_EQ(measure(text, kUnbroken, &width), 8);
        EXPECT_EQ(width, 0);
        EXPECT_EQ(measure(text, 100), 8);
    }
}

TEST(TextSize, WidthIncludesFourPixelsOnEachSide)
{
    int width = 0;
    EXPECT_EQ(measure("Order", kUnbroken, &width), lineHeight());
    EXPECT_EQ(width, widthOf("Order") + 8);
}

TEST(TextSize, RunOfExactlyItsPreferredWidthDoesNotBreak)
{
    int width = 0;
    measure("Order total of the day", kUnbroken, &width);
    EXPECT_EQ(measure("Order total of the day", width), lineHeight());
    EXPECT_EQ(measure("Order total of the day", width - 1), 2 * lineHeight());
}

// No font of the tests has Syriac or Devanagari letters: they are drawn as boxes, and so are the blanks, digits and
// signs that follow them.
TEST(TextSize, BlanksAreThoseOfTheFontThatDrawsTheText)
{
    for (char const* text :
         {"one \u0700 \u0701 end.", "\u0915 \u0916 end.", "\u0700\u0701  \u0702 12, end", "12 \u0915 + 34 - \u0916.",
          "\u0700                                        \u0701 end", "one \u05D5\u05E9 \u05D9\u05DD two",
          "\u0416\u0416 \u03B1 12", "\u2603 \u2603 \u2192 end."}) {
        int width = 0;
        EXPECT_EQ(measure(text, kUnbroken, &width), lineHeight());
        EXPECT_EQ(width, widthOf(text) + 8) << text;
    }
}

TEST(TextLines, BreakAtBlanksOfAnotherFont)
{
    std::u16string const text = u"\u0915\u0916  \u0915 \u0916";
    EXPECT_EQ(linesOf(text, widthOf("\u0915\u0916  \u0915")), "\u0915\u0916  \u0915|\u0916");
    EXPECT_EQ(linesOf(text, widthOf("\u0915\u0916  \u0915") - 1), "\u0915\u0916 |\u0915 \u0916");
    EXPECT_EQ(linesOf(text, widthOf("\u0915")), "\u0915|\u0916|\u0915|\u0916");
}

TEST(TextSize, WidthIsThatOfTheLongestLine)
{
    int width = 0;
    EXPECT_EQ(measure("a[[br]]long line[[br]]b", kUnbroken, &width), 3 * lineHeight());
    EXPECT_EQ(width, widthOf("long line") + 8);
}

TEST(TextSize, CodesAloneAreEightHigh)
{
    EXPECT_EQ(measure("[[b]][[/b]]", 100), 8);
    EXPECT_EQ(measure("   ", 100), 8);
}

TEST(TextSize, NodeAddsTwiceItsBorderToTheWidthOnly)
{
    testRoot root;
    guiHtmlText* run = addText(&root, "Order total");
    int const plain = run->getPreferredWidth();
    int const height = run->getHeightEstimate(static_cast<unsigned long>(plain));
    run->m.border = 3;
    EXPECT_EQ(run->getPreferredWidth(), plain + 6);
    EXPECT_EQ(run->getHeightEstimate(static_cast<unsigned long>(plain + 6)), height);
    EXPECT_GT(run->getHeightEstimate(static_cast<unsigned long>(plain + 5)), height);
}

TEST(TextLines, BreakAtTheLastBlankThatFits)
{
    EXPECT_EQ(linesOf(u"one two three", widthOf("one two")), "one two|three");
    EXPECT_EQ(linesOf(u"one two three", widthOf("one two") - 1), "one|two|three");
}

TEST(TextLines, BreakBetweenSeveralBlanksKeepsTheEarlierOnes)
{
    EXPECT_EQ(linesOf(u"one  two", widthOf("one  t")), "one |two");
}

TEST(TextLines, BlanksAndTabsAtTheStartOfALineAreSkipped)
{
    EXPECT_EQ(linesOf(u" \t one", 1000), "one");
    EXPECT_EQ(linesOf(u"one[[br]] \ttwo", 1000), "one|two");
    EXPECT_EQ(linesOf(u"[[b]] one", 1000), "one");
}

TEST(TextLines, TrailingBlankThatDoesNotFitMakesNoLine) { EXPECT_EQ(linesOf(u"one ", widthOf("one")), "one"); }

TEST(TextLines, LongWordIsCutAtTheLastCharacterThatFits)
{
    EXPECT_EQ(linesOf(u"abcdefgh", widthOf("abc")), "abc|def|gh");
    EXPECT_EQ(linesOf(u"of abcdefgh", widthOf("abcd")), "of|abcd|efgh");
}

TEST(TextLines, EveryLineOfALongWordHoldsAllThatFits)
{
    QString const word = QStringLiteral("iWiiWWWiiiiWlmWMlliiiMWiWlWlWl");
    std::vector<guiTextWord> characters;
    guiMeasureCharacters(guiTextFonts::of(testFont()), word, characters);
    for (int width = widthOf("W"); width < widthOf("WWWWWWWWWW"); ++width) {
        QString expected;
        std::int64_t line = 0;
        for (std::size_t i = 0; i < characters.size(); ++i) {
            line += characters[i].advance;
            if (guiTextPixels(line) > width) {
                expected += u'|';
                line = characters[i].advance;
            }
            expected += word[static_cast<qsizetype>(i)];
        }
        ASSERT_EQ(linesOf(word.toStdU16String(), width), expected.toStdString()) << width;
    }
}

TEST(TextLines, VeryLongWordIsCutEverywhere)
{
    std::u16string const word(300, u'x');
    std::string expected;
    for (int i = 0; i < 300; ++i)
        expected += (i && i % 7 == 0) ? "|x" : "x";
    EXPECT_EQ(linesOf(word, widthOf("xxxxxxx")), expected);
}

TEST(TextLines, BoxNarrowerThanOneCharacterStops)
{
    EXPECT_EQ(linesOf(u"WWW WWW", 2), "");
    EXPECT_EQ(linesOf(u"WWW", 0), "");
    EXPECT_EQ(linesOf(u"WWW", -50), "");
    EXPECT_EQ(linesOf(u"i W", widthOf("i")), "i");
    EXPECT_EQ(measure("WWW", 8), 8);
    EXPECT_EQ(measure("WWW", std::numeric_limits<int>::min() + 8), 8);
}

TEST(TextLines, CutNeverTakesApartASurrogatePairOrACombiningMark)
{
    std::u16string const pairs = u"\U00010400\U00010400\U00010400\U00010400"; // one word of four supplementary letters
    std::u16string const marks = u"e\u0301e\u0301e\u0301e\u0301";
    for (std::u16string const& text : {pairs, marks}) {
        for (int width = 1; width < 60; ++width) {
            guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
            guiLineBreaker breaker(run, text, width);
            while (breaker.next())
                for (guiTextPiece const& piece : breaker.pieces()) {
                    ASSERT_EQ(piece.start % 2, 0u) << width;
                    ASSERT_EQ(piece.length % 2, 0u) << width;
                }
        }
    }
}

TEST(TextLines, NoBreakSpaceHoldsAWordTogether) { EXPECT_EQ(linesOf(u"a b\u00A0c", widthOf("a b")), "a|b\u00A0c"); }

TEST(TextLines, PartThatDoesNotFitBehindAnotherFormattingMovesToTheNextLine)
{
    EXPECT_EQ(linesOf(u"one [[i]]two[[/i]]", widthOf("one tw")), "one |two");
    EXPECT_EQ(linesOf(u"one[[i]]two[[/i]]", widthOf("onet")), "one|two");
}

TEST(TextLines, BreakCodesEndLinesAndMakeEmptyOnesOfEightPixels)
{
    EXPECT_EQ(linesOf(u"one[[br]][[br]]two", 1000), "one|<empty>|two");
    EXPECT_EQ(measure("one[[br]][[br]]two", 1000), 2 * lineHeight() + 8);
    EXPECT_EQ(linesOf(u"one[[br]]", 1000), "one");
    EXPECT_EQ(linesOf(u"[[br]]one", 1000), "<empty>|one");
    EXPECT_EQ(linesOf(u"[[br]][[br]]", 1000), "<empty>|<empty>");
}

TEST(TextLines, BracketsThatAreNeverClosedAreText) { EXPECT_EQ(linesOf(u"a[[b c", 1000), "a[[b c"); }

TEST(TextLines, BracketsBeforeACodeAreText)
{
    EXPECT_EQ(linesOf(u"[[--] file][[/b]] x", 1000), "[[--] file] x");
    EXPECT_EQ(linesOf(u"a [[[b]]file[[/b]]]", 1000), "a [file]");
    EXPECT_EQ(linesOf(u"[[[[[[[b]]x", 1000), "[[[[[x");
}

TEST(TextLines, IndentationMovesEveryLineBy40PixelsALevel)
{
    std::u16string const text = u"[[>2]]one two";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 80 + widthOf("one"));
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.pieces().front().left, 80);
    EXPECT_EQ(breaker.width(), 80 + widthOf("one"));
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.pieces().front().left, 80);
    EXPECT_FALSE(breaker.next());
}

TEST(TextLines, IndentationCountsForTheWidth)
{
    int width = 0;
    measure("[[>3]]one", kUnbroken, &width);
    EXPECT_EQ(width, 120 + widthOf("one") + 8);
    EXPECT_EQ(linesOf(u"[[>2]]one", 80 + widthOf("one") - 1), "on|e");
    EXPECT_EQ(linesOf(u"[[>-2]]one", widthOf("one")), "one");
    EXPECT_EQ(linesOf(u"[[>99999999999]]one", 1000), "");
}

TEST(TextChunks, ClosingAColourInsideALinkGoesBackToTheTextColour)
{
    std::u16string const text = u"[[a u]][[#FF0000]]x[[/#FF0000]]y[[/a]]z[[a v]]w";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    ASSERT_EQ(run.chunks().size(), 4u);
    EXPECT_EQ(run.chunks()[0].ink, guiTextInk::kExplicit);
    EXPECT_EQ(run.chunks()[1].ink, guiTextInk::kText);
    EXPECT_TRUE(run.chunks()[1].underline) << "it is still a link";
    EXPECT_EQ(run.chunks()[2].ink, guiTextInk::kText);
    EXPECT_EQ(run.chunks()[3].ink, guiTextInk::kLink);
}

TEST(TextChunks, EndOfALinkLeavesAnUnderlineOfItsOwn)
{
    std::u16string const text = u"[[u]][[a u]]x[[/a]]y[[/u]]z";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    ASSERT_EQ(run.chunks().size(), 3u);
    EXPECT_TRUE(run.chunks()[0].underline);
    EXPECT_TRUE(run.chunks()[1].underline);
    EXPECT_FALSE(run.chunks()[2].underline);
}

TEST(TextLines, BaselineIsThatOfTheLargestDescentOnTheLine)
{
    std::u16string const text = u"one [[,24]]two[[/,24]] three[[br]]four";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 1000);
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.descent(), QFontMetrics(testFont(24)).descent());
    EXPECT_GT(breaker.descent(), QFontMetrics(testFont()).descent());
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.descent(), QFontMetrics(testFont()).descent());
}

TEST(TextLines, LineIsAsHighAsItsLargestFont)
{
    testRoot root;
    EXPECT_EQ(addText(&root, "one [[,24]]two")->getHeightEstimate(1000), lineHeight(24));
    EXPECT_EQ(addText(&root, "one [[,24]]two[[/,24]] three")->getHeightEstimate(1000), lineHeight(24));
    EXPECT_EQ(addText(&root, "one[[,24]][[br]]two")->getHeightEstimate(1000), lineHeight() + lineHeight(24));
}

} // namespace
