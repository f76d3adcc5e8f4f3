// tests/page/text-order_test.cpp: in which order the pieces of a line stand where text is written from right to left,
// and where carets and links are in it.
#include "tests/page/pagetree.h"
#include "tests/page/pagewindow.h"
#include "tests/page/textlines.h"

#include "page/guihtmltext-levels.h"
#include "page/guihtmltext-lines.h"
#include "page/guihtmltext-piece.h"
#include "page/guihtmltext-places.h"
#include "page/guitextspot.h"

#include <gtest/gtest.h>

#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QTextBoundaryFinder>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace {

/// The first line as it is seen from left to right: each piece's letters in the order of the screen.
std::string seen(std::u16string const& text, guiDirection direction = guiDirection::kByText, int width = 10000)
{
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true, {}, direction);
    guiLineBreaker breaker(run, text, width);
    if (!breaker.next())
        return {};
    QString line;
    int left = breaker.pieces().front().left;
    for (guiTextPiece const& piece : breaker.pieces()) {
        EXPECT_EQ(piece.left, left) << "there is a gap";
        left = piece.left + piece.width;
        QString letters = QStringView(text).mid(piece.start, piece.length).toString();
        if (piece.isFromTheRight)
            std::reverse(letters.begin(), letters.end());
        line += letters;
    }
    return line.toStdString();
}

TEST(TextOrder, TextFromTheLeftHasNoLevels)
{
    for (char16_t const* text : {u"alpha beta", u"日本 語", u"[[b]]x[[/b]]", u"12 + 3"}) {
        guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
        EXPECT_TRUE(run.levels().empty());
    }
}

TEST(TextOrder, WordsFromTheRightAreReadFromTheRightAcrossFormatting)
{
    EXPECT_EQ(seen(u"אבג דהו"), "והד גבא");
    EXPECT_EQ(seen(u"אבג [[b]]דהו[[/b]] זחט"), "טחז והד גבא");
    EXPECT_EQ(seen(u"one אבג [[i]]דהו[[/i]] two"), "one והד גבא two");
}

TEST(TextOrder, NumbersInsideAreReadFromTheLeft)
{
    EXPECT_EQ(seen(u"אבג 123 דהו"), "והד 123 גבא");
    EXPECT_EQ(seen(u"אבג [[b]]12[[/b]]3 דהו"), "והד 123 גבא");
}

TEST(TextOrder, FirstLetterDecidesTheDirectionOfItsParagraph)
{
    EXPECT_EQ(seen(u"one אבג."), "one גבא.");
    EXPECT_EQ(seen(u"אבג one."), ".one גבא");
    EXPECT_EQ(seen(u"12 אבג one."), ".one גבא 12");
}

TEST(TextOrder, DirectionOfTheElementComesFirst)
{
    EXPECT_EQ(seen(u"one אבג.", guiDirection::kRightToLeft), ".גבא one");
    EXPECT_EQ(seen(u"אבג one.", guiDirection::kLeftToRight), "גבא one.");
    EXPECT_EQ(seen(u"one two.", guiDirection::kRightToLeft), ".one two");
}

TEST(TextOrder, EachParagraphOfARunHasItsOwnDirection)
{
    std::u16string const text = u"one.[[br]]אבג.[[br]]two.";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 10000);
    std::vector<bool> turned;
    while (breaker.next())
        turned.push_back(run.levels()[breaker.from()].isParagraphFromTheRight());
    EXPECT_EQ(turned, (std::vector<bool>{false, true, false}));
}

TEST(TextOrder, BlanksAtTheEndOfALineStandAtTheParagraphsEnd)
{
    std::u16string const text = u"one אבג  דהו";
    EXPECT_EQ(seen(text, guiDirection::kByText, widthOf("one אבג  ")), "one גבא ");
}

/// The lengths of the lines' texts together; each line begins where the one before it ended, but for blanks.
std::uint32_t unitsOnLines(guiTextRun const& run, QStringView text, int width)
{
    guiLineBreaker breaker(run, text, width);
    std::uint32_t units = 0;
    while (breaker.next()) {
        std::uint32_t ofLine = 0;
        for (guiTextPiece const& piece : breaker.pieces())
            ofLine += piece.length;
        EXPECT_EQ(ofLine, breaker.to() - breaker.from()) << "in " << width << " pixels";
        units += ofLine;
    }
    return units;
}

// Letters that stand in another font, or closer together, are narrower or wider by themselves than in their word.
TEST(TextOrder, WordWhoseCharactersFitWhereItDoesNotLosesNothing)
{
    for (char16_t const* letters :
         {u"r\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD\u0724\u009E0", u"\u05D0AVAToTyAVWAV\u05D1", u"لالالالال"}) {
        std::u16string const text = letters;
        guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true, {}, guiDirection::kRightToLeft);
        ASSERT_FALSE(run.levels().empty());
        for (int width = 30; width < 200; ++width)
            EXPECT_EQ(unitsOnLines(run, text, width), text.size()) << "in " << width << " pixels";
    }
}

TEST(TextOrder, LinesOfAParagraphAreOrderedEachByItself)
{
    std::u16string const text = u"אבג דהו זחט";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, widthOf("אבג דהו") + 1);
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.from(), 0u);
    EXPECT_EQ(breaker.to(), 7u);
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.from(), 8u);
}

TEST(TextOrder, IndentationIsWhereReadingStarts)
{
    std::u16string const text = u"[[>2]]אבג";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 10000);
    ASSERT_TRUE(breaker.next());
    EXPECT_EQ(breaker.pieces().front().left, 0);
    EXPECT_EQ(breaker.width(), 80 + breaker.pieces().front().width);
}

TEST(TextOrder, LineIsAsWideAsTheTextWithoutOrder)
{
    std::u16string const text = u"one אבג two 12 דהו";
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 10000);
    ASSERT_TRUE(breaker.next());
    EXPECT_NEAR(breaker.width(), widthOf("one אבג two 12 דהו"), 1);
}

// ---- Beside the toolkit ----

std::u16string randomText(std::mt19937& random)
{
    static constexpr std::u16string_view kWords[] = {
        u"alpha", u"of", u"אבג", u"דה", u"مرحبا", u"سلام", u"12", u"3.5",    u"(",  u")", u" ",  u" ",
        u"-",     u"+",  u"!",   u":",  u"é",     u"日本", u"%",  u"\u200F", u"٤٥", u",", u"\"", u"b"};
    std::u16string text;
    for (unsigned left = 2 + random() % 14; left > 0; --left)
        text += kWords[random() % std::size(kWords)];
    return text;
}

bool isSeen(QChar unit) { return unit != u' ' && unit.unicode() != 0x200F; }

/// Which units the line shows, from left to right, by the pieces.
std::vector<qsizetype> ownOrder(std::u16string const& text)
{
    guiTextRun const run(text, guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, text, 100000);
    std::vector<qsizetype> order;
    if (!breaker.next())
        return order;
    for (guiTextPiece const& piece : breaker.pieces())
        for (qsizetype i = 0; i < qsizetype{piece.length}; ++i) {
            qsizetype const unit = piece.isFromTheRight ? qsizetype{piece.end()} - 1 - i : qsizetype{piece.start} + i;
            if (isSeen(text[static_cast<std::size_t>(unit)]))
                order.push_back(unit);
        }
    return order;
}

/// The same by the places of the toolkit's glyphs.
std::vector<qsizetype> toolkitOrder(std::u16string const& text)
{
    QString const all = QString::fromStdU16String(text);
    qsizetype const first = std::find_if_not(all.begin(), all.end(), [](QChar c) { return c == u' '; }) - all.begin();
    QTextLayout layout(all.mid(first), testFont());
    QTextOption option;
    option.setTextDirection(Qt::LayoutDirectionAuto);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine const line = layout.createLine();
    layout.endLayout();
    std::vector<std::pair<double, qsizetype>> places;
    for (qsizetype i = first; i < all.size(); ++i) {
        if (!isSeen(all[i]))
            continue;
        double left = HUGE_VAL;
        for (QGlyphRun const& run : line.glyphRuns(static_cast<int>(i - first), 1))
            for (QPointF const& at : run.positions())
                left = std::min(left, at.x());
        places.emplace_back(left, i);
    }
    std::sort(places.begin(), places.end());
    std::vector<qsizetype> order;
    for (auto const& [left, unit] : places)
        order.push_back(unit);
    return order;
}

TEST(TextOrder, TenThousandMixedTextsStandInTheToolkitsOrder)
{
    std::mt19937 random(20261122);
    for (int i = 0; i < 10000; ++i) {
        std::u16string const text = randomText(random);
        if (text.find(u"لا") != std::u16string::npos) // one glyph for two letters
            continue;
        ASSERT_EQ(ownOrder(text), toolkitOrder(text)) << i << ": " << QString::fromStdU16String(text).toStdString();
    }
}

/// Ink of a picture, column by column.
std::vector<int> inkOf(QImage const& picture)
{
    std::vector<int> columns(static_cast<std::size_t>(picture.width()));
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            columns[static_cast<std::size_t>(x)] += 255 - qGray(picture.pixel(x, y));
    return columns;
}

// The toolkit writes a text of one formatting as a whole; the pieces must give the same picture but for rounding.
TEST(TextOrder, DrawnPiecesLookLikeTheWholeText)
{
    for (char16_t const* text : {u"אבג 123 (דהו) one.", u"one (אבג) 12% דה two", u"مرحبا بكم في tarn 1.0",
                                 u"\u202Eabc\u202C def", u"a \u202D\u05D0\u05D1\u202C b"}) {
        QSize const size(400, 30);
        std::vector<int> const own = inkOf(drawnByPieces(text, size));
        std::vector<int> const theirs = inkOf(drawnWhole(text, size));
        double ownSum = 0;
        double theirSum = 0;
        double apart = 0;
        double shift = 0;
        for (std::size_t x = 0; x < own.size(); ++x) {
            ownSum += own[x];
            theirSum += theirs[x];
            shift += own[x] - theirs[x];
            apart = std::max(apart, std::abs(shift));
        }
        EXPECT_NEAR(ownSum, theirSum, theirSum * 0.03) << QString::fromUtf16(text).toStdString();
        EXPECT_LT(apart, theirSum * 0.06) << QString::fromUtf16(text).toStdString();
    }
}

// ---- Places ----

class TextOrderOnAPage : public testing::Test
{
protected:
    guiHtmlText* show(char const* body, char const* attributes = "")
    {
        showPage(window, std::string("<html><body ") + attributes + " valign=\"top\">" + body + "</body></html>");
        return firstRun();
    }

    guiHtmlText* firstRun()
    {
        for (guiHtml* child : window.root.m.children)
            if (guiChildList::isNode(child) && child->getType() == guiHtml::kTypeText)
                return static_cast<guiHtmlText*>(child);
        return nullptr;
    }

    PageWindow window;
};

TEST_F(TextOrderOnAPage, LettersStandWhereTheyAreDrawn)
{
    guiHtmlText* run = show("<p>אבג one</p>");
    guiTextPlaces const places(*run);
    ASSERT_EQ(places.length(), 7);
    EXPECT_GT(places.rectAt(0).left(), places.rectAt(1).left());
    EXPECT_GT(places.rectAt(1).left(), places.rectAt(2).left());
    EXPECT_GT(places.rectAt(2).left(), places.rectAt(4).left()) << "the word behind it stands on its left";
    EXPECT_LT(places.rectAt(4).left(), places.rectAt(5).left());
    for (int i = 0; i < 7; ++i)
        EXPECT_EQ(places.offsetAt(places.rectAt(i).center()), i) << i;
}

TEST_F(TextOrderOnAPage, CaretsStandBetweenTheLettersThatTheySeparate)
{
    guiHtmlText* run = show("<p>אבג one</p>");
    int last = guiCaretOf({run, 0}).left();
    for (unsigned i = 1; i <= 3; ++i) {
        int const at = guiCaretOf({run, i}).left();
        EXPECT_LT(at, last) << i;
        last = at;
    }
}

TEST_F(TextOrderOnAPage, LinkInTextFromTheRightHasItsRectangleWhereItIsDrawn)
{
    guiHtmlText* run = show("<p>אבג <a href='x'>דהו</a> זחט</p>");
    ASSERT_EQ(run->mx.hotspots.size(), 1u);
    guiHotspot const& spot = *run->mx.hotspots.begin();
    guiTextPlaces const places(*run);
    QRect letters;
    for (int i = 4; i < 7; ++i)
        letters |= places.rectAt(i);
    EXPECT_NEAR(spot.left, letters.left(), 1);
    EXPECT_NEAR(spot.left + spot.width, letters.right() + 1, 1);
    EXPECT_LT(places.rectAt(8).left(), spot.left) << "the next word is on its left";
}

TEST_F(TextOrderOnAPage, DirectionOfTheBodyTurnsAndAlignsItsText)
{
    guiHtmlText* run = show("<p>one.</p>", "dir=\"rtl\"");
    EXPECT_EQ(run->m.direction, guiDirection::kRightToLeft);
    EXPECT_EQ(run->m.alignX, kAlignRight);
    guiTextPlaces const places(*run);
    EXPECT_LT(places.rectAt(3).left(), places.rectAt(0).left()) << "the full stop";
}

TEST_F(TextOrderOnAPage, AlignmentOfThePageStaysWithADirection)
{
    EXPECT_EQ(show("<p align='left'>one</p>", "dir=\"rtl\"")->m.alignX, kAlignLeft);
    EXPECT_EQ(show("<p align='center' dir='rtl'>one</p>")->m.alignX, kAlignCenter);
    EXPECT_EQ(show("<p dir='rtl'>one</p>")->m.alignX, kAlignRight);
    EXPECT_EQ(show("<p dir='ltr'>one</p>", "dir=\"rtl\"")->m.alignX, kAlignLeft);
    EXPECT_EQ(show("<p>אבג</p>")->m.alignX, kAlignLeft) << "only the element aligns";
}

TEST_F(TextOrderOnAPage, CellsInheritTheDirection)
{
    show("<table><tr><td>one</td><th>two</th><td dir='ltr'>three</td></tr></table>", "dir=\"rtl\"");
    guiHtml* table = window.root.getChild(0);
    guiHtml* cell = table->getChild(0);
    EXPECT_EQ(cell->m.direction, guiDirection::kRightToLeft);
    EXPECT_EQ(cell->m.alignX, kAlignRight);
    EXPECT_EQ(table->getChild(1)->m.alignX, kAlignCenter);
    EXPECT_EQ(table->getChild(2)->m.direction, guiDirection::kLeftToRight);
    EXPECT_EQ(table->getChild(2)->m.alignX, kAlignLeft);
}

TEST_F(TextOrderOnAPage, DirectionOfAPieceOfALineIsolatesIt)
{
    EXPECT_EQ(show("<p>one <span dir='rtl'>two!</span> end</p>")->editText().view().toString().toStdString(),
              "one \u2067two!\u2069 end");
    EXPECT_EQ(show("<p>one <bdi>אבג</bdi> 12</p>")->editText().view().toString().toStdString(),
              "one \u2068אבג\u2069 12");
    EXPECT_EQ(show("<p>one <bdo dir='rtl'>two</bdo></p>")->editText().view().toString().toStdString(),
              "one \u202Etwo\u202C");
}

} // namespace
