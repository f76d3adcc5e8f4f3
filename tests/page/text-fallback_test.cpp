// tests/page/text-fallback_test.cpp: text whose letters come from several fonts is as wide as it is drawn, and all of
// it is seen.
#include "tests/page/pagetree.h"
#include "tests/page/textlines.h"

#include "page/guihtmltext-lines.h"
#include "page/guihtmltext-piece.h"

#include <gtest/gtest.h>

#include <QFontDatabase>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QRawFont>
#include <QTextLayout>
#include <algorithm>
#include <cmath>
#include <random>
#include <set>
#include <string>

namespace {

constexpr std::u16string_view kSentences[] = {
    u"All human beings are born free and equal in dignity and rights.",
    u"Όλοι οι άνθρωποι γεννιούνται ελεύθεροι και ίσοι στην αξιοπρέπεια.",
    u"Все люди рождаются свободными и равными в своём достоинстве.",
    u"כל בני האדם נולדו בני חורין ושווים בערכם ובזכויותיהם (1948).",
    u"يولد جميع الناس أحراراً متساوين في الكرامة والحقوق 1948.",
    u"มนุษย์ทั้งหลายเกิดมามีอิสระ และเสมอภาคกันในเกียรติศักดิ์",
    u"人人生而自由，在尊严和权利上一律平等。",
    u"すべての人間は、生まれながらにして自由であり、「平等」である。",
    u"모든 인간은 태어날 때부터 자유로우며 동등하다.",
    u"one 😀 two 👩 three, and four.",
    u"tarn 2.0 في نص עברי and 日本語 42 %",
};

QStringView viewOf(std::u16string_view text) { return {text.data(), static_cast<qsizetype>(text.size())}; }

int drawnWidth(std::u16string_view text)
{
    QTextLayout layout(QString::fromStdU16String(std::u16string(text)), testFont());
    layout.beginLayout();
    QTextLine const line = layout.createLine();
    layout.endLayout();
    return static_cast<int>(std::lround(line.horizontalAdvance()));
}

int measuredWidth(std::u16string_view text)
{
    guiTextRun const run(viewOf(text), guiTextFonts::of(testFont()), 10, true);
    guiLineBreaker breaker(run, viewOf(text), 1000000);
    return breaker.next() ? breaker.width() : 0;
}

/// Columns of a picture that have ink.
std::set<int> inkedColumns(QImage const& picture)
{
    std::set<int> columns;
    for (int x = 0; x < picture.width(); ++x)
        for (int y = 0; y < picture.height(); ++y)
            if (qGray(picture.pixel(x, y)) < 160)
                columns.insert(x);
    return columns;
}

TEST(TextFallback, LettersComeFromSeveralFonts)
{
    std::set<QString> families;
    for (std::u16string_view text : kSentences) {
        QTextLayout layout(QString::fromStdU16String(std::u16string(text)), testFont());
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        for (QGlyphRun const& run : layout.glyphRuns())
            families.insert(run.rawFont().familyName());
    }
    EXPECT_GE(families.size(), 6u) << "the packages of tests/fonts/fallback.conf are missing";
}

TEST(TextFallback, SentencesAreAsWideAsTheyAreDrawn)
{
    for (std::u16string_view text : kSentences)
        EXPECT_NEAR(measuredWidth(text), drawnWidth(text), 2) << QString::fromUtf16(text.data()).toStdString();
}

TEST(TextFallback, AllOfASentenceIsSeenInItsWidth)
{
    for (std::u16string_view text : kSentences) {
        QStringView const view = viewOf(text);
        guiTextRun const run(view, guiTextFonts::of(testFont()), 10, true);
        guiLineBreaker breaker(run, view, 1000000);
        ASSERT_TRUE(breaker.next());
        QImage cut(breaker.width() + 200, 40, QImage::Format_RGB32);
        QImage whole = cut;
        for (QImage* picture : {&cut, &whole}) {
            picture->fill(Qt::white);
            QPainter painter(picture);
            if (picture == &cut)
                painter.setClipRect(98, 0, breaker.width() + 4, 40);
            for (guiTextPiece const& piece : breaker.pieces())
                guiDrawPiece(painter, run.chunks()[piece.chunk], piece, QPointF(100 + piece.left, 25), view);
        }
        EXPECT_EQ(inkedColumns(cut), inkedColumns(whole)) << view.toString().toStdString();
        EXPECT_GT(*inkedColumns(whole).rbegin(), 100 + breaker.width() - 12) << "and it fills its width";
    }
}

/// How many pixels of the first picture have ink where the second has none within a pixel of it.
int inkBeside(QImage const& first, QImage const& second)
{
    auto const hasInk = [](QImage const& picture, int x, int y) {
        return picture.valid(x, y) && qGray(picture.pixel(x, y)) < 128;
    };
    int count = 0;
    for (int x = 0; x < first.width(); ++x)
        for (int y = 0; y < first.height(); ++y)
            if (hasInk(first, x, y) && !hasInk(second, x, y) && !hasInk(second, x - 1, y) && !hasInk(second, x + 1, y))
                ++count;
    return count;
}

TEST(TextFallback, SignsAndDigitsBetweenLettersLookAsTheyDoInTheWholeText)
{
    for (std::u16string_view text :
         {u"אבג (1948).", u"אבג, 12 + 3 = (15)!", u"سلام (12) مرحبا.", u"one (אבג) 5, two."}) {
        QSize const size(300, 40);
        QImage const own = drawnByPieces(viewOf(text), size);
        QImage const theirs = drawnWhole(viewOf(text), size);
        std::string const name = QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())).toStdString();
        EXPECT_LE(inkBeside(own, theirs), 10) << name;
        EXPECT_LE(inkBeside(theirs, own), 10) << name;
    }
}

TEST(TextFallback, MixedTextsAreAsWideAsTheyAreDrawn)
{
    static constexpr std::u16string_view kWords[] = {u"alpha", u"12",   u"אבג", u"שלום", u"مرحبا", u"سلام",
                                                     u"日本",  u"かな", u"ไทย", u"한국", u"😀",     u"é",
                                                     u"(x)",   u"Да",   u"42%", u"-"};
    std::mt19937 random(20261122);
    int worst = 0;
    int apart = 0;
    for (int i = 0; i < 2000; ++i) {
        std::u16string text = u"a";
        for (unsigned left = 2 + random() % 10; left > 0; --left) {
            text += random() % 3 ? u" " : u"";
            text += kWords[random() % std::size(kWords)];
        }
        int const difference = std::abs(measuredWidth(text) - drawnWidth(text));
        worst = std::max(worst, difference);
        apart += difference > 3 ? 1 : 0;
        EXPECT_LE(difference, 10) << QString::fromStdU16String(text).toStdString();
    }
    RecordProperty("worst", worst);
    EXPECT_LE(apart, 60) << worst;
}

} // namespace
