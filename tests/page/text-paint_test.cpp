// tests/page/text-paint_test.cpp: what a text run paints: where, in which colours and fonts, and which links it finds
// there.
#include "tests/page/pagetree.h"

#include "page/guihtmltext-measure.h"
#include "page/guihtmltext-shape.h"
#include "page/guilayoutcounters.h"

#include <gtest/gtest.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

namespace {

constexpr QRgb kWhite = qRgb(255, 255, 255);

/// A text painted into a box of a picture. Text is painted without smoothing, so that each pixel has a colour of the
/// page.
class TextPaint : public testing::Test
{
protected:
    TextPaint()
    {
        params.font = testFont();
        params.font.setStyleStrategy(QFont::NoAntialias);
        params.textColor = {0, 0, 0};
        params.linkColor = {0, 0, 255};
        params.activeLinkColor = {255, 0, 0};
    }

    void paint(char const* text, guiHtmlText::mx_t* cache = nullptr)
    {
        picture.fill(kWhite);
        QPainter painter(&picture);
        painter.setRenderHint(QPainter::TextAntialiasing, false);
        guiRect where = box;
        height = guiHtmlText::drawText(&painter, &where, sstring(text), &params, nullptr, cache);
    }

    /// The smallest rectangle with all painted pixels, null when there is none.
    QRect painted() const
    {
        QRect area;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixel(x, y) != kWhite)
                    area |= QRect(x, y, 1, 1);
        return area;
    }
    bool hasColor(QRgb color) const
    {
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (picture.pixel(x, y) == color)
                    return true;
        return false;
    }

    guiRect box{10, 200, 20, 100};
    textParams params;
    QImage picture{240, 140, QImage::Format_RGB32};
    int height = 0;
};

constexpr QRgb kText = qRgb(0, 0, 0);
constexpr QRgb kLink = qRgb(0, 0, 255);
constexpr QRgb kActive = qRgb(255, 0, 0);
constexpr QRgb kRed = qRgb(1, 2, 3);

TEST_F(TextPaint, StandsInsideTheMarginsOnTheFirstBaseline)
{
    paint("HHHH");
    QFontMetrics const metrics(params.font);
    QRect const area = painted();
    EXPECT_GE(area.left(), 10 + 4);
    EXPECT_LE(area.right(), 10 + 4 + metrics.horizontalAdvance(QStringLiteral("HHHH")));
    EXPECT_EQ(area.bottom(), 20 + metrics.lineSpacing() - metrics.descent() - 1);
    EXPECT_EQ(height, metrics.lineSpacing());
}

TEST_F(TextPaint, LinesAreAligned)
{
    int const width = QFontMetrics(params.font).horizontalAdvance(QStringLiteral("HHH"));
    paint("HHH");
    int const bearing = painted().left() - 14;
    params.align = kAlignCenter;
    paint("HHH");
    EXPECT_EQ(painted().left(), 14 + (192 - width) / 2 + bearing);
    params.align = kAlignRight;
    paint("HHH");
    EXPECT_EQ(painted().left(), 14 + 192 - width + bearing);
}

TEST_F(TextPaint, ColourCodesHoldUntilTheyAreClosed)
{
    paint("[[#010203]]HH");
    EXPECT_TRUE(hasColor(kRed));
    EXPECT_FALSE(hasColor(kText));
    paint("[[#010203]]HH[[/#010203]]HH");
    EXPECT_TRUE(hasColor(kRed));
    EXPECT_TRUE(hasColor(kText));
}

TEST_F(TextPaint, LinksAreUnderlinedInTheLinkColourUntilTheyEnd)
{
    paint("HH");
    int const bottom = painted().bottom();
    paint("[[a event://x]]HH");
    EXPECT_TRUE(hasColor(kLink));
    EXPECT_FALSE(hasColor(kText));
    EXPECT_GT(painted().bottom(), bottom);
    paint("[[a event://x]]HH[[/a]]HH");
    EXPECT_TRUE(hasColor(kText));
}

TEST_F(TextPaint, ColourInForceIsStrongerThanALink)
{
    paint("[[#010203]][[a event://x]]HH[[/a]]HH");
    EXPECT_TRUE(hasColor(kRed));
    EXPECT_FALSE(hasColor(kLink));
    EXPECT_FALSE(hasColor(kText));
}

TEST_F(TextPaint, ColourThatWasClosedIsNotInForceForLinks)
{
    paint("[[#010203]][[/#010203]][[a event://x]]HH[[/a]]");
    EXPECT_TRUE(hasColor(kLink));
    paint("[[#010203]][[/#010203]][[a event://x]][[/a]]HH");
    EXPECT_TRUE(hasColor(kText));
    EXPECT_FALSE(hasColor(kLink));
}

TEST_F(TextPaint, HoveredLinkHasTheActiveColour)
{
    guiHtmlText::mx_t cache;
    char const* text = "HH[[a event://x]]HH[[/a]][[a event://y]]HH[[/a]]";
    paint(text, &cache);
    EXPECT_FALSE(hasColor(kActive));
    cache.hoveredLink = 2;
    paint(text, &cache);
    EXPECT_TRUE(hasColor(kText));
    EXPECT_TRUE(hasColor(kActive));
    EXPECT_TRUE(hasColor(kLink)); // the other one
    cache.hoveredLink = 0;
    paint("[[a event://x]]HH[[/a]]", &cache);
    EXPECT_TRUE(hasColor(kActive));
    EXPECT_FALSE(hasColor(kLink));
}

TEST_F(TextPaint, HoveredLinkIsActiveEvenInAColour)
{
    guiHtmlText::mx_t cache;
    cache.hoveredLink = 11;
    paint("[[#010203]][[a event://x]]HH[[/a]]", &cache);
    EXPECT_TRUE(hasColor(kActive));
    EXPECT_FALSE(hasColor(kRed));
}

TEST_F(TextPaint, UnderlineCodeUnderlines)
{
    paint("HH");
    int const bottom = painted().bottom();
    paint("[[u]]HH[[/u]]");
    EXPECT_GT(painted().bottom(), bottom);
    paint("[[u]][[/u]]HH");
    EXPECT_EQ(painted().bottom(), bottom);
}

TEST_F(TextPaint, BoldAndItalicUseTheirFontsUntilTheyAreClosed)
{
    QFont bold = params.font;
    bold.setBold(true);
    int const width = QFontMetrics(params.font).horizontalAdvance(QStringLiteral("mmmm"));
    int const boldWidth = QFontMetrics(bold).horizontalAdvance(QStringLiteral("mmmm"));
    ASSERT_GT(boldWidth, width);
    int measured = 0;
    auto measure = [&](char const* text) {
        guiRect where{0, 2147483647, 0, 0};
        guiHtmlText::drawText(nullptr, &where, sstring(text), &params, &measured, nullptr);
        return measured - 8;
    };
    EXPECT_EQ(measure("[[b]]mmmm"), boldWidth);
    EXPECT_EQ(measure("[[b]]mmmm[[/b]]mmmm"), boldWidth + width);
    paint("[[i]]HH");
    QImage const italic = picture;
    paint("HH");
    EXPECT_NE(picture, italic);
    paint("[[i]][[/i]]HH");
    EXPECT_NE(picture, italic);
}

TEST_F(TextPaint, HeadingIsBoldInItsSize)
{
    guiHtmlText::mx_t cache;
    QFont expected = testFont(24);
    expected.setBold(true);
    guiRect where{0, 2147483647, 0, 0};
    int width = 0;
    int const used = guiHtmlText::drawText(nullptr, &where, sstring("[[b]][[,24]]Orders"), &params, &width, &cache);
    EXPECT_EQ(width - 8, QFontMetrics(expected).horizontalAdvance(QStringLiteral("Orders")));
    EXPECT_EQ(used, QFontMetrics(expected).lineSpacing());
}

TEST_F(TextPaint, FontCodeWithoutACacheIsSizedByTheScreen)
{
    QFont expected(QStringLiteral("DejaVu Serif"));
    expected.setPointSize(30);
    guiRect where{0, 2147483647, 0, 0};
    int width = 0;
    guiHtmlText::drawText(nullptr, &where, sstring("[[DejaVu Serif,30]]Orders"), &params, &width, nullptr);
    EXPECT_EQ(width - 8, QFontMetrics(expected).horizontalAdvance(QStringLiteral("Orders")));
}

TEST_F(TextPaint, ClosingAFontGoesBackToTheDefaultOne)
{
    int const width = QFontMetrics(params.font).horizontalAdvance(QStringLiteral("mm"));
    guiRect where{0, 2147483647, 0, 0};
    int before = 0;
    int after = 0;
    guiHtmlText::drawText(nullptr, &where, sstring("[[,30]][[DejaVu Serif,]]mm"), &params, &before, nullptr);
    guiHtmlText::drawText(nullptr, &where, sstring("[[,30]][[DejaVu Serif,]]mm[[/x]]mm"), &params, &after, nullptr);
    EXPECT_EQ(after, before + width);
    int named = 0;
    guiHtmlText::drawText(nullptr, &where, sstring("[[DejaVu Serif]]mm"), &params, &before, nullptr);
    guiHtmlText::drawText(nullptr, &where, sstring("[[,30]][[/,30]][[DejaVu Serif]]mm"), &params, &named, nullptr);
    EXPECT_EQ(named, before) << "the size is the default one again, too";
    guiHtmlText::drawText(nullptr, &where, sstring("[[,30]][[DejaVu Serif]]mm"), &params, &named, nullptr);
    EXPECT_GT(named, before) << "a code that names a face alone keeps the size in force";
}

TEST_F(TextPaint, TabsAndLineEndsAreDrawnAsBlanks)
{
    paint("HH HH");
    QImage const blank = picture;
    paint("HH\tHH");
    EXPECT_EQ(picture, blank);
    paint("HH\nHH");
    EXPECT_EQ(picture, blank);
}

TEST_F(TextPaint, PaintedLineIsAsWideAsMeasured)
{
    char const* text = "AVATAR Wolf Tom, f. office VA";
    paint(text);
    QRect const area = painted();
    EXPECT_NEAR(area.width(), QFontMetrics(params.font).boundingRect(QString::fromLatin1(text)).width(), 2);
}

TEST_F(TextPaint, OnlyLinesInTheDamagedPartArePainted)
{
    picture.fill(kWhite);
    QPainter painter(&picture);
    painter.setClipRect(0, 20 + 14, 240, 14);
    guiRect where = box;
    int const used =
        guiHtmlText::drawText(&painter, &where, sstring("H[[br]]H[[br]]H[[br]]H"), &params, nullptr, nullptr);
    EXPECT_EQ(used, 4 * QFontMetrics(params.font).lineSpacing());
    EXPECT_GE(painted().top(), 34);
    EXPECT_LT(painted().bottom(), 48);
}

// ---- Links ----

class TextLinks : public testing::Test
{
protected:
    guiHtmlText* addRun(char const* text)
    {
        run = addText(&root, text);
        return run;
    }
    guiHotspotList const& spots() const { return run->mx.hotspots; }

    testRoot root;
    guiHtmlText* run = nullptr;
};

TEST_F(TextLinks, HotspotsLieWhereTheLinksArePainted)
{
    addRun("See [[a event://x]]this[[/a]] and [[a event://y]]that[[/a]]");
    root.layOut(500, 100);
    ASSERT_EQ(spots().size(), 2u);
    int const line = QFontMetrics(testFont()).lineSpacing();
    EXPECT_EQ(spots()[0].left, 4 + widthOf("See "));
    EXPECT_EQ(spots()[0].width, widthOf("this"));
    EXPECT_EQ(spots()[0].top, 0);
    EXPECT_EQ(spots()[0].height, line);
    EXPECT_EQ(spots()[0].link, 4u);
    EXPECT_EQ(spots()[1].left, 4 + widthOf("See ") + widthOf("this") + widthOf(" and "));
    EXPECT_EQ(spots()[1].link, 34u);
}

TEST_F(TextLinks, LinkOverTwoLinesHasTwoHotspots)
{
    addRun("[[a event://x]]this that[[/a]]");
    root.layOut(widthOf("this tha") + 8, 100);
    ASSERT_EQ(spots().size(), 2u);
    EXPECT_EQ(spots()[0].link, spots()[1].link);
    EXPECT_EQ(spots()[1].left, 4);
    EXPECT_EQ(spots()[1].top, spots()[0].height);
}

TEST_F(TextLinks, HotspotsFollowAlignmentAndTheFinalWidth)
{
    run = addText(addNode(&root), "one two [[a event://x]]three[[/a]]");
    run->m.alignX = kAlignRight;
    run->getParent()->m.fixed = {0, 0, kUnitPercent, kUnitUnbound, 100, 0};
    root.layOut(500, 100);
    run->getHeightEstimate(60); // asked for another width meanwhile
    ASSERT_GT(spots().size(), 0u);
    EXPECT_GT(spots().back().top, 0);
    guiRect rect = run->m.rect;
    run->setRect(&rect);
    ASSERT_EQ(spots().size(), 1u);
    EXPECT_EQ(spots()[0].left + spots()[0].width, run->m.rect.width - 4);
    EXPECT_EQ(spots()[0].top, 0);
}

TEST_F(TextLinks, HotspotsAreInsideTheBorder)
{
    addRun("[[a event://x]]this[[/a]]")->m.border = 3;
    root.layOut(500, 100);
    ASSERT_EQ(spots().size(), 1u);
    EXPECT_EQ(spots()[0].left, 3 + 4);
    EXPECT_EQ(spots()[0].top, 3);
}

TEST_F(TextLinks, HotspotsGoWithTheText)
{
    addRun("[[a event://x]]this[[/a]]");
    root.layOut(500, 100);
    ASSERT_EQ(spots().size(), 1u);
    run->editText() = "this";
    root.layOut(500, 100);
    EXPECT_TRUE(spots().empty());
    run->editText() = "[[a event://x]]this[[/a]]";
    root.layOut(500, 100);
    EXPECT_EQ(spots().size(), 1u);
    run->editText() = "";
    root.layOut(500, 100);
    EXPECT_TRUE(spots().empty());
}

TEST_F(TextLinks, OnlyTextWithLinksTakesThePointer)
{
    addRun("[[a event://x]]this[[/a]]");
    guiHtmlText* plain = addText(&root, "that");
    root.layOut(500, 100);
    EXPECT_TRUE(run->canHitTest());
    EXPECT_FALSE(plain->canHitTest());
}

TEST_F(TextLinks, PointerShowsAHandOverALinkAndEdgesCountLeftAndTopOnly)
{
    addRun("See [[a event://x]]this[[/a]]");
    root.layOut(500, 100);
    guiHotspot const spot = spots()[0];
    QWidget* widget = root.getTopLevelWidget();
    auto isHovered = [&](int x, int y) {
        run->onMouseMove(x, y);
        EXPECT_EQ(widget->cursor().shape(), run->mx.hoveredLink == 4u ? Qt::PointingHandCursor : Qt::ArrowCursor);
        return run->mx.hoveredLink == 4u;
    };
    EXPECT_TRUE(isHovered(spot.left, spot.top));
    EXPECT_FALSE(isHovered(spot.left - 1, spot.top));
    EXPECT_TRUE(isHovered(spot.left + spot.width - 1, spot.top + spot.height - 1));
    EXPECT_FALSE(isHovered(spot.left + spot.width, spot.top));
    EXPECT_FALSE(isHovered(spot.left, spot.top + spot.height));
    EXPECT_TRUE(isHovered(spot.left, spot.top));
    run->onMouseOff();
    EXPECT_EQ(run->mx.hoveredLink, guiHtmlText::kNoLink);
    EXPECT_EQ(widget->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(TextLinks, MovingStraightToAnotherLinkKeepsTheCursor)
{
    addRun("[[a event://x]]this[[/a]][[a event://y]]that[[/a]]");
    root.layOut(500, 100);
    run->onMouseMove(spots()[0].left, 0);
    root.getTopLevelWidget()->setCursor(Qt::WaitCursor); // would be replaced by any change
    run->onMouseMove(spots()[1].left, 0);
    EXPECT_EQ(run->mx.hoveredLink, spots()[1].link);
    EXPECT_EQ(root.getTopLevelWidget()->cursor().shape(), Qt::WaitCursor);
}

/// A run that notes which links are followed.
class followingText : public guiHtmlText
{
public:
    using guiHtmlText::operator=;
    int onHyperlink(sstring link, ScriptObject* object) override
    {
        followed.emplace_back(link.c_str());
        EXPECT_EQ(object, nullptr);
        return 1;
    }
    std::vector<std::string> followed;
};

TEST_F(TextLinks, ClickFollowsTheHoveredLink)
{
    auto* text = new followingText;
    text->editText() = "See [[a {menu}list.html]]this[[/a]]";
    root.append(text);
    root.layOut(500, 100);
    text->onMouseDown(0, 0);
    EXPECT_TRUE(text->followed.empty());
    text->onMouseMove(text->mx.hotspots[0].left, 0);
    text->onMouseDown(0, 0);
    EXPECT_EQ(text->followed, std::vector<std::string>{"{menu}list.html"});
}

TEST_F(TextLinks, ClickAfterTheTextChangedFollowsNothing)
{
    auto* text = new followingText;
    text->editText() = "See [[a list.html]]this[[/a]]";
    root.append(text);
    root.layOut(500, 100);
    text->onMouseMove(text->mx.hotspots[0].left, 0);
    for (char const* other : {"See", "See no link here", "See [[a list.html", ""}) {
        text->editText() = other;
        text->onMouseDown(0, 0);
        EXPECT_TRUE(text->followed.empty()) << other;
    }
}

// ---- What is remembered ----

TEST(TextMemory, HeightsOfTheLastWidthsCostNoWork)
{
    testRoot root;
    guiHtmlText* run = addText(&root, "one two three four five six seven eight nine ten");
    int const narrow = run->getHeightEstimate(60);
    int const wide = run->getHeightEstimate(160);
    EXPECT_GT(narrow, wide);
    guiLayoutCounters::reset();
    EXPECT_EQ(run->getHeightEstimate(60), narrow);
    EXPECT_EQ(run->getHeightEstimate(160), wide);
    EXPECT_EQ(guiLayoutCounters::runsBroken, 0u);
    run->getHeightEstimate(100);
    EXPECT_EQ(guiLayoutCounters::runsBroken, 1u);
    EXPECT_EQ(guiLayoutCounters::runsShaped, 0u);
    EXPECT_EQ(guiLayoutCounters::wordsShaped, 0u);
}

TEST(TextMemory, ChangedTextOrFontIsMeasuredAnew)
{
    testRoot root;
    guiHtmlText* run = addText(&root, "one two three");
    int const width = run->getPreferredWidth();
    run->editText() = "one two threm"; // of the same length
    EXPECT_NE(run->getPreferredWidth(), width);
    run->editText() = "one two three";
    EXPECT_EQ(run->getPreferredWidth(), width);
    run->setString(kStringFace, sstring(",24"));
    EXPECT_GT(run->getPreferredWidth(), width);
    EXPECT_EQ(run->getHeightEstimate(1000), QFontMetrics(testFont(24)).lineSpacing());
}

TEST(TextMemory, WordsTakeLessThanTheTextItself)
{
    std::u16string text;
    for (int i = 0; i < 20000; ++i)
        text += i % 50 ? u"order " : u"[[b]]total[[/b]] of ";
    guiTextRun const prose(text, guiTextFonts::of(testFont()), 10, true);
    EXPECT_LT(prose.words().size_bytes() + prose.chunks().size_bytes(), text.size());
    guiTextRun const word(std::u16string(100000, u'x'), guiTextFonts::of(testFont()), 10, true);
    EXPECT_LE(word.words().size_bytes(), 400000u);
}

TEST(TextMemory, NothingIsMeasuredBeforeItIsNeeded)
{
    testRoot root;
    guiHtmlText* run = addText(&root, "one two three");
    EXPECT_FALSE(run->mx.measures.isMade());
    run->getPreferredWidth();
    EXPECT_TRUE(run->mx.measures.isMade());
}

TEST(TextMemory, ForgottenFontsAreMeasuredAgain)
{
    testRoot root;
    guiHtmlText* run = addText(&root, "one two three");
    int const width = run->getPreferredWidth();
    guiTextFonts::clear();
    guiLayoutCounters::reset();
    EXPECT_EQ(run->getPreferredWidth(), width);
    EXPECT_EQ(guiLayoutCounters::runsShaped, 1u);
}

TEST(TextMemory, CloneHasTheTextAndMeasuresForItself)
{
    testRoot root;
    guiHtmlText* run = addText(&root, "one two three");
    int const width = run->getPreferredWidth();
    std::unique_ptr<guiHtml> copy(run->Clone(&root));
    EXPECT_EQ(copy->getType(), guiHtml::kTypeText);
    EXPECT_EQ(copy->getParent(), &root);
    EXPECT_EQ(copy->getPreferredWidth(), width);
    run->editText() = "";
    EXPECT_EQ(copy->getPreferredWidth(), width);
}

// ---- fitTextInBox ----

TEST(FitTextInBox, IsTheLongestPrefixThatIsNotWider)
{
    QFontMetrics const metrics(testFont());
    QString const text = QStringLiteral("Order total: AVATAR, office");
    for (int width = -3; width < metrics.horizontalAdvance(text) + 5; ++width) {
        int expected = 0;
        for (int length = 1; length <= text.size(); ++length)
            if (metrics.horizontalAdvance(text, length) <= width)
                expected = length;
        ASSERT_EQ(fitTextInBox(text, metrics, width), expected) << width;
    }
}

TEST(FitTextInBox, EmptyTextFits)
{
    EXPECT_EQ(fitTextInBox(QString(), QFontMetrics(testFont()), 0), 0);
    EXPECT_EQ(fitTextInBox(QStringLiteral("W"), QFontMetrics(testFont()), 1), 0);
}

} // namespace
