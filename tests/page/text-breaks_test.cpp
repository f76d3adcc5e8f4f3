// tests/page/text-breaks_test.cpp: where lines end in text that is not divided by blanks, and in words too long for a
// line.
#include "tests/page/pagetree.h"
#include "tests/page/textlines.h"

#include "page/guihtmltext-breaks.h"
#include "page/guihtmltext-lines.h"

#include <gtest/gtest.h>

#include <QTextLayout>
#include <random>
#include <string>
#include <vector>

namespace {

std::vector<qsizetype> breaksIn(std::u16string const& word) { return guiInnerBreaks(QStringView(word)); }

using places = std::vector<qsizetype>;

TEST(TextBreaks, LinesEndBetweenIdeographs)
{
    EXPECT_EQ(linesOf(u"日本語文字", widthOf("日本語")), "日本語|文字");
    EXPECT_EQ(linesOf(u"日本語文字", widthOf("日本語") - 1), "日本|語文|字");
}

TEST(TextBreaks, NoLineStartsWithAClosingMarkOrEndsWithAnOpeningOne)
{
    EXPECT_EQ(breaksIn(u"日本。語"), (places{1, 3}));
    EXPECT_EQ(breaksIn(u"日「本」語"), (places{1, 4}));
    EXPECT_EQ(linesOf(u"日本。語", widthOf("日本")), "日|本。|語");
}

TEST(TextBreaks, LinesEndBetweenIdeographsAndOtherLetters)
{
    EXPECT_EQ(breaksIn(u"日本tarn語"), (places{1, 2, 6}));
    EXPECT_EQ(linesOf(u"see 日本 no", widthOf("see 日")), "see 日|本 no");
}

TEST(TextBreaks, KanaBreaksBetweenSyllables) { EXPECT_EQ(breaksIn(u"かなカナ"), (places{1, 2, 3})); }

TEST(TextBreaks, HangulIsWrittenWithBlanksAndBreaksAtThese)
{
    EXPECT_TRUE(breaksIn(u"한국어").empty());
    EXPECT_EQ(linesOf(u"한국어 문서", widthOf("한국어 문")), "한국어|문서");
    EXPECT_EQ(breaksIn(u"日本한국어"), (places{1, 2}));
}

TEST(TextBreaks, ThaiBreaksBetweenItsWords)
{
    EXPECT_EQ(breaksIn(u"ภาษาไทย"), (places{4}));       // language, Thai
    EXPECT_EQ(breaksIn(u"สวัสดีชาวโลก"), (places{6, 9})); // hello, people, world
    EXPECT_EQ(linesOf(u"ภาษาไทย", widthOf("ภาษาไ")), "ภาษา|ไทย");
}

TEST(TextBreaks, KhmerLaoAndBurmeseBreakBetweenTheirWords)
{
    for (char16_t const* word : {u"ខ្ញុំស្រឡាញ់អ្នកណាស់ភាសាខ្មែរ", u"ສະບາຍດີຊາວໂລກ", u"မြန်မာဘာသာစကား"})
        EXPECT_FALSE(breaksIn(word).empty()) << QString::fromUtf16(word).toStdString();
}

TEST(TextBreaks, ZeroWidthSpaceAllowsABreakAndTakesNoRoom)
{
    EXPECT_EQ(linesOf(u"alpha\u200Bbeta", widthOf("alphab")), "alpha\u200B|beta");
    EXPECT_EQ(linesOf(u"alpha\u200Bbeta", widthOf("alphabeta")), "alpha\u200Bbeta");
}

TEST(TextBreaks, SpacesOfTypographersAllowABreakBehindThem)
{
    EXPECT_EQ(linesOf(u"1\u2009000\u2009km", widthOf("1\u2009000\u2009")), "1\u2009000\u2009|km");
    EXPECT_TRUE(breaksIn(u"1\u202F000\u00A0km").empty()) << "these hold together";
}

TEST(TextBreaks, SoftHyphenIsShownOnlyWhereALineEndsAtIt)
{
    EXPECT_EQ(linesOf(u"co\u00ADoperate", widthOf("cooperate")), "co\u00ADoperate");
    EXPECT_EQ(linesOf(u"co\u00ADoperate", widthOf("cooperate") - 1), "co\u00AD~|operate");
    EXPECT_EQ(linesOf(u"say co\u00ADope", widthOf("say co-")), "say co\u00AD~|ope");
}

TEST(TextBreaks, SoftHyphenNeedsTheRoomOfItsHyphen)
{
    EXPECT_EQ(linesOf(u"say coope\u00ADrate", widthOf("say coope-") - 1), "say|coope\u00ADrate");
    EXPECT_EQ(linesOf(u"say coope\u00ADrate", widthOf("say coope-")), "say coope\u00AD~|rate");
}

TEST(TextBreaks, HyphensAndDashesOfTextWithBlanksAreNoBreaks)
{
    EXPECT_EQ(linesOf(u"a well-known fact", widthOf("a well-")), "a|well-|known|fact") << "wider than the line itself";
    EXPECT_EQ(linesOf(u"the well-known fact", widthOf("well-known f")), "the|well-known|fact");
    EXPECT_EQ(linesOf(u"so it is\u2014or", widthOf("so it is\u2014")), "so it|is\u2014or");
    EXPECT_EQ(linesOf(u"\u201Cone\u201D \u201Ctwo\u201D", widthOf("\u201Cone\u201D \u201Ctw")),
              "\u201Cone\u201D|\u201Ctwo\u201D");
}

TEST(TextBreaks, PreformattedLineThatIsTooLongDividesAtItsBlanks)
{
    EXPECT_EQ(linesOf(u"alpha\u00A0be/ta", widthOf("alpha\u00A0be/")), "alpha\u00A0|be/ta");
    EXPECT_EQ(linesOf(u"\u00A0\u00A0\u00A0alpha/beta", widthOf("\u00A0\u00A0\u00A0alpha/b")),
              "\u00A0\u00A0\u00A0alpha/|beta")
        << "its indentation is no place";
}

TEST(TextBreaks, AddressWiderThanTheLineDividesAtItsSlashes)
{
    EXPECT_EQ(linesOf(u"https://example.org/manual/chapter", widthOf("https://example.org/man")),
              "https://example.org/|manual/chapter");
    EXPECT_EQ(linesOf(u"go https://example.org/manual", widthOf("https://example.org")),
              "go|https://|example.org/|manual");
}

TEST(TextBreaks, LongWordOfManyCharactersDividesAtItsHyphens)
{
    std::u16string word;
    std::string expected;
    for (int i = 0; i < 40; ++i) {
        word += u"abcd-";
        expected += i && i % 3 == 0 ? "|abcd-" : "abcd-";
    }
    EXPECT_EQ(linesOf(word, widthOf("abcd-abcd-abcd-ab")), expected);
}

TEST(TextBreaks, BlanksBesideIdeographsEndLinesToo)
{
    EXPECT_EQ(linesOf(u"日本 語文", widthOf("日本 語") - 1), "日本|語文");
    EXPECT_EQ(linesOf(u"日本 語文", widthOf("日本")), "日本|語文");
    EXPECT_EQ(linesOf(u"日本\u3000語文", widthOf("日本\u3000語") - 1), "日本\u3000|語文");
}

TEST(TextBreaks, PicturesBreakBetweenEachOtherAndAreNotTakenApart)
{
    EXPECT_EQ(breaksIn(u"\U0001F600\U0001F601"), (places{2}));
    EXPECT_EQ(breaksIn(u"\U0001F469\u200D\U0001F4BB\U0001F600"), (places{5}));
}

TEST(TextBreaks, WordsOfOtherScriptsHaveNoBreaks)
{
    for (char16_t const* word :
         {u"cooperate", u"well-known", u"\u05E9\u05DC\u05D5\u05DD", u"\u0645\u0631\u062D\u0628\u0627", u"Ελλάδα",
          u"Привет", u"it\u2019s", u"a/b", u"e\u0301t\u00E9", u"\u0939\u093F\u0928\u094D\u0926\u0940"}) {
        EXPECT_FALSE(guiHasInnerBreaks(word)) << QString::fromUtf16(word).toStdString();
        EXPECT_TRUE(breaksIn(word).empty());
    }
}

/// Words with and without blanks between them.
std::u16string randomText(std::mt19937& random)
{
    static constexpr std::u16string_view kWords[] = {
        u"alpha", u"beta",   u"of", u" ", u" ",  u" ",    u"日本",  u"語",     u"「文」",     u"かな",
        u"。",    u"한국어", u"12", u"é", u"Да", u"שלום", u"مرحبا", u"\u200B", u"\U0001F600", u"，"};
    std::u16string text = u"a"; // the toolkit shows blanks at the start
    for (unsigned left = 3 + random() % 25; left > 0; --left)
        text += kWords[random() % std::size(kWords)];
    return text;
}

places lineStarts(std::u16string const& text, int width)
{
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, width);
    places starts;
    while (breaker.next())
        starts.push_back(breaker.from());
    return starts;
}

/// The toolkit's lines; the first unit of each that is no blank.
places toolkitLineStarts(std::u16string const& text, int width)
{
    QTextLayout layout(QString::fromStdU16String(text), testFont());
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    layout.beginLayout();
    places starts;
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        qsizetype start = line.textStart();
        qsizetype const end = start + line.textLength();
        while (start < end && text[static_cast<std::size_t>(start)] == u' ')
            ++start;
        if (start < end)
            starts.push_back(start);
    }
    layout.endLayout();
    return starts;
}

/// Whether a line from `start` would end at the width but for a pixel, at one of the two places.
bool isCloseCall(std::u16string const& text, qsizetype start, qsizetype end, int width)
{
    QString const line = QString::fromStdU16String(text).mid(start, end - start).trimmed();
    return std::abs(QFontMetricsF(testFont()).horizontalAdvance(line) - width) <= 2.0;
}

TEST(TextBreaks, TenThousandMixedTextsBreakWhereTheToolkitBreaksThem)
{
    std::mt19937 random(20261122);
    int closeCalls = 0;
    for (int i = 0; i < 10000; ++i) {
        std::u16string const text = randomText(random);
        int const width = 60 + static_cast<int>(random() % 300);
        places const own = lineStarts(text, width);
        places const theirs = toolkitLineStarts(text, width);
        auto const [a, b] = std::mismatch(own.begin(), own.end(), theirs.begin(), theirs.end());
        if (a == own.end() && b == theirs.end())
            continue;
        qsizetype const start = a == own.begin() ? 0 : *(a - 1);
        qsizetype const all = static_cast<qsizetype>(text.size());
        qsizetype const longer = std::max(a == own.end() ? all : *a, b == theirs.end() ? all : *b);
        if (isCloseCall(text, start, longer, width))
            ++closeCalls;
        else
            ADD_FAILURE() << i << " in " << width << ": " << QString::fromStdU16String(text).toStdString() << " own "
                          << (a == own.end() ? all : *a) << " theirs " << (b == theirs.end() ? all : *b) << " after "
                          << start << " widths "
                          << QFontMetricsF(testFont())
                                 .horizontalAdvance(
                                     QString::fromStdU16String(text).mid(start, (a == own.end() ? all : *a) - start))
                          << " "
                          << QFontMetricsF(testFont())
                                 .horizontalAdvance(QString::fromStdU16String(text).mid(
                                     start, (b == theirs.end() ? all : *b) - start));
    }
    EXPECT_LT(closeCalls, 300);
}

} // namespace
