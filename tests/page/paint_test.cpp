// tests/page/paint_test.cpp: what a plain node paints, pixel by pixel.
#include "page/guicolor.h"
#include "page/guipainting.h"
#include "page/guipicture.h"
#include "tests/page/pagewindow.h"

#include <QFontMetrics>
#include <QPixmap>
#include <QScrollBar>
#include <algorithm>
#include <gtest/gtest.h>
#include <set>

namespace {

constexpr guiColor kOuter{10, 20, 30};
constexpr guiColor kInner{40, 50, 60};
constexpr guiColor kFill{70, 80, 90};
constexpr QRgb kNone = Canvas::kUntouched;

/// How far a pixel is from the nearest edge of a rectangle, 0 on its outermost ring, negative outside.
int ringOf(guiRect const& rect, int x, int y)
{
    return std::min({x - rect.left, rect.right() - 1 - x, y - rect.top, rect.bottom() - 1 - y});
}

/// A node that counts how often it is painted and may do something meanwhile.
class PaintCounter : public guiHtml
{
public:
    using guiHtml::operator=;
    void paintTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override
    {
        ++painted;
        seen = {painter, x, y, widget, region ? *region : QRegion()};
        if (whilePainting)
            whilePainting();
        else
            guiHtml::paintTo(painter, x, y, widget, region);
    }

    struct
    {
        QPainter* painter;
        int x;
        int y;
        guiWidget* widget;
        QRegion region;
    } seen{};
    int painted = 0;
    std::function<void()> whilePainting;
};

/// Only the border, on an untouched canvas.
Canvas borderOf(guiHtml& node, int highlight = 0)
{
    Canvas canvas;
    QPainter painter(&canvas.image);
    guiRect rect = node.m.rect;
    node.paintBorder(&painter, &rect, highlight);
    return canvas;
}

} // namespace

TEST(PaintBorder, WidthsFromZeroToFourPaintOneOuterRingAndDarkOnesInside)
{
    for (int border = 0; border <= 4; ++border) {
        guiHtml node;
        node.m.border = border;
        node.m.rect = {3, 20, 5, 16};
        node.setBorderColors(guiColor::White, kOuter, kInner);
        Canvas canvas = borderOf(node);
        EXPECT_EQ(canvas.difference([&](int x, int y) {
            int ring = ringOf(node.m.rect, x, y);
            if (ring < 0 || ring >= border)
                return kNone;
            return rgbOf(ring == 0 ? kOuter : kInner);
        }),
                  "")
            << "border " << border;
    }
}

TEST(PaintBorder, HighlightUsesTheActiveLinkColourAndTwoThirdsOfIt)
{
    guiHtml node;
    node.m.border = 3;
    node.m.rect = {0, 12, 0, 12};
    node.m.activeLinkColor = guiColor{200, 100, 50};
    Canvas canvas = borderOf(node, 1);
    EXPECT_EQ(canvas.at(0, 5), qRgb(200, 100, 50));
    EXPECT_EQ(canvas.at(1, 5), qRgb(133, 66, 33));
    EXPECT_EQ(canvas.at(2, 5), qRgb(133, 66, 33));
    EXPECT_EQ(canvas.at(3, 5), kNone);
}

TEST(PaintBorder, ARectangleOnePixelWideHasNoInnerRing)
{
    guiHtml node;
    node.m.border = 3;
    node.m.rect = {4, 1, 4, 10};
    node.setBorderColors(guiColor::White, kOuter, kInner);
    Canvas canvas = borderOf(node);
    EXPECT_EQ(canvas.difference([&](int x, int y) { return ringOf(node.m.rect, x, y) >= 0 ? rgbOf(kOuter) : kNone; }),
              "");
}

TEST(PaintBorder, ABorderWiderThanTheRectangleStaysInsideIt)
{
    guiHtml node;
    node.m.border = 40;
    node.m.rect = {10, 6, 10, 8};
    node.setBorderColors(guiColor::White, kOuter, kInner);
    Canvas canvas = borderOf(node);
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        int ring = ringOf(node.m.rect, x, y);
        return ring < 0 ? kNone : rgbOf(ring == 0 ? kOuter : kInner);
    }),
              "");
}

namespace {

using Points = std::set<std::pair<int, int>>;

void addLine(Points& points, int x1, int y1, int x2, int y2)
{
    for (int x = std::min(x1, x2); x <= std::max(x1, x2); ++x)
        for (int y = std::min(y1, y2); y <= std::max(y1, y2); ++y)
            points.insert({x, y});
}

/// The open polyline of a group box: six points from the gap's left end round the box to its right end.
Points openFrame(int gapLeft, int gapRight, int left, int top, int right, int bottom)
{
    Points points;
    addLine(points, gapLeft, top, left, top);
    addLine(points, left, top, left, bottom);
    addLine(points, left, bottom, right, bottom);
    addLine(points, right, bottom, right, top);
    addLine(points, right, top, gapRight, top);
    return points;
}

std::string groupBoxDifference(Canvas const& canvas, Points const& white, Points const& gray)
{
    return canvas.difference([&](int x, int y) {
        if (gray.contains({x, y}))
            return rgbOf(guiColor::DarkGray);
        return white.contains({x, y}) ? rgbOf(guiColor::White) : kNone;
    });
}

} // namespace

TEST(PaintGroupBox, EtchedFrameStartsHalfACaptionDownWithAGapForIt)
{
    guiHtml node;
    node.setString(kStringCaption, sstring(" ")); // blank: the frame shows alone
    node.m.border = 2;
    node.m.rect = {2, 50, 3, 40};
    node.setBorderColors(kOuter, kOuter, kInner); // which a group box does not use
    node.setCaptionSize(9, 13);
    Canvas canvas = borderOf(node);
    // Half of 13 rounded toward zero; the gap starts 10 pixels in and is 9 + 6 wide.
    int const top = 3 + 6;
    Points white = openFrame(12, 27, 3, top + 1, 2 + 50 - 1, 3 + 40 - 1);
    Points gray = openFrame(12, 27, 2, top, 2 + 50 - 2, 3 + 40 - 2);
    EXPECT_EQ(groupBoxDifference(canvas, white, gray), "");
}

TEST(PaintGroupBox, TheGapIsNeverWiderThanTheBoxLessTwentyPixels)
{
    guiHtml node;
    node.setString(kStringCaption, sstring(" "));
    node.m.border = 2;
    node.m.rect = {0, 30, 0, 20};
    node.setCaptionSize(100, 0);
    Points white = openFrame(10, 20, 1, 1, 29, 19);
    Points gray = openFrame(10, 20, 0, 0, 28, 18);
    EXPECT_EQ(groupBoxDifference(borderOf(node), white, gray), "");
}

TEST(PaintGroupBox, ABoxTwentyPixelsWideHasNoGap)
{
    guiHtml node;
    node.setString(kStringCaption, sstring("Caption"));
    node.m.border = 2;
    node.m.rect = {0, 20, 0, 20};
    node.setCaptionSize(40, 0);
    Points white = openFrame(10, 10, 1, 1, 19, 19);
    Points gray = openFrame(10, 10, 0, 0, 18, 18);
    EXPECT_EQ(groupBoxDifference(borderOf(node), white, gray), "");
}

TEST(PaintGroupBox, BorderOneOrASideOfThreePixelsHasNoFrame)
{
    guiHtml node;
    node.setString(kStringCaption, sstring(kEmptyGroupBox));
    node.setBorderColors(kOuter, kOuter, kOuter);
    auto untouched = [](int, int) { return kNone; };
    node.m.border = 1;
    node.m.rect = {0, 40, 0, 40};
    EXPECT_EQ(borderOf(node).difference(untouched), "");
    node.m.border = 2;
    node.m.rect = {0, 3, 0, 40};
    EXPECT_EQ(borderOf(node).difference(untouched), "");
    node.m.rect = {0, 40, 0, 3};
    EXPECT_EQ(borderOf(node).difference(untouched), "");
}

TEST(PaintGroupBox, CaptionIsBlackInTheGapAndTheEmptyOneHasNoText)
{
    guiHtml node;
    node.m.border = 2;
    node.m.rect = {0, 60, 0, 40};
    QFontMetrics metrics(node.getDefaultFont(nullptr));
    auto textPixels = [&](char const* caption) {
        node.setString(kStringCaption, sstring(caption));
        node.setCaptionSize(static_cast<unsigned>(metrics.horizontalAdvance("HHHH")),
                            static_cast<unsigned>(metrics.lineSpacing()) - 2);
        Canvas canvas = borderOf(node);
        Points dark; // black on magenta, its edges smoothed
        for (int y = 0; y < 60; ++y)
            for (int x = 0; x < 60; ++x)
                if (qGreen(canvas.at(x, y)) == 0 && qRed(canvas.at(x, y)) < 128)
                    dark.insert({x, y});
        return dark;
    };
    Points dark = textPixels("HHHH");
    ASSERT_FALSE(dark.empty());
    for (auto const& [x, y] : dark) {
        EXPECT_GE(x, 13);
        EXPECT_LT(y, metrics.lineSpacing());
    }
    EXPECT_TRUE(textPixels(kEmptyGroupBox).empty());
}

TEST(PaintGroupBox, ACaptionLongerThanTheGapIsCutOffAtItsEnd)
{
    guiHtml node;
    node.m.border = 2;
    node.m.rect = {0, 50, 0, 40};
    node.setString(kStringCaption, sstring("HHHHHHHHHHHHHHHH"));
    node.setCaptionSize(160, 13);
    Canvas canvas = borderOf(node);
    // The gap is 30 wide and the text 3 less on each side: from 13 to 37. Where the frame's own line starts is 40.
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        bool isText = x >= 13 && x < 37 && y < 15;
        bool isFrame = y >= 6 && (x < 10 || x >= 40 || y > 7 || x == 39 || x == 10);
        return isText || isFrame ? canvas.at(x, y) : kNone;
    }),
              "");
    EXPECT_NE(canvas.at(14, 7), kNone);
}

TEST(PaintNode, BackgroundColourFillsInsideBorderAndSpace)
{
    PageWindow window;
    guiHtml* node = window.add({4, 30, 6, 20});
    node->m.border = 2;
    node->m.space = 3;
    node->setBorderColors(guiColor::White, kOuter, kInner);
    node->setBackgroundColor(kFill);
    Canvas canvas;
    canvas.paint(node, window.widget);
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        int ring = ringOf(node->m.rect, x, y);
        if (ring < 0 || (ring >= 2 && ring < 5)) // the space is the parent's to see through
            return kNone;
        return rgbOf(ring == 0 ? kOuter : ring == 1 ? kInner : kFill);
    }),
              "");
}

TEST(PaintNode, WithoutColourAndImageNothingIsFilled)
{
    PageWindow window;
    guiHtml* node = window.add({0, 30, 0, 20});
    Canvas canvas;
    canvas.paint(node, window.widget);
    EXPECT_EQ(canvas.difference([](int, int) { return kNone; }), "");
}

TEST(PaintNode, AnImageThatIsStillLoadingShowsTheWindowsColour)
{
    PageWindow window;
    guiHtml* node = window.add({0, 30, 0, 20});
    node->setBackgroundImage(sstring("later.png"));
    Canvas canvas;
    canvas.paint(node, window.widget);
    EXPECT_EQ(canvas.at(5, 5), window.widget->palette().color(QPalette::Window).rgb());
    node->setBackgroundColor(kFill);
    canvas.paint(node, window.widget);
    EXPECT_EQ(canvas.at(5, 5), rgbOf(kFill));
}

TEST(PaintNode, ALoadedImageIsTiledFromInsideTheBorderOverTheColour)
{
    PageWindow window;
    guiHtml* node = window.add({5, 40, 5, 40});
    node->m.border = 1;
    node->m.space = 2;
    node->setBorderColors(guiColor::White, kOuter, kInner);
    node->setBackgroundColor(kFill);
    node->setBackgroundImage(sstring("tile.png"));
    QImage tile(4, 3, QImage::Format_RGB32);
    for (int y = 0; y < 3; ++y)
        for (int x = 0; x < 4; ++x)
            tile.setPixel(x, y, qRgb(x * 50, y * 80, 7));
    node->setBackgroundPicture(std::make_shared<guiPicture const>(guiPicture{QPixmap::fromImage(tile), tile.size()}));
    Canvas canvas;
    canvas.paint(node, window.widget);
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        int ring = ringOf(node->m.rect, x, y);
        if (ring == 0)
            return rgbOf(kOuter);
        return ring < 3 ? kNone : tile.pixel((x - 6) % 4, (y - 6) % 3);
    }),
              "");
}

namespace {

/// A border that paints all over the node.
class FloodingBorder : public guiHtml
{
public:
    using guiHtml::operator=;
    void paintBorder(QPainter* painter, guiRect* rect, int highlight) override
    {
        seen = *rect;
        EXPECT_EQ(highlight, 0);
        painter->fillRect(rect->left, rect->top, rect->width, rect->height, toQColor(kOuter));
    }
    guiRect seen;
};

} // namespace

TEST(PaintNode, TheBackgroundComesOverTheBorderAndTheChildrenOverBoth)
{
    PageWindow window;
    auto* node = window.place(new FloodingBorder, {4, 30, 6, 30});
    node->m.border = 2;
    node->m.space = 3;
    node->setBackgroundColor(kFill);
    guiHtml* child = window.add({0, 10, 0, 10}, node);
    child->setBackgroundColor(kInner);
    Canvas canvas;
    canvas.paint(node, window.widget, nullptr, 1, 2);
    guiRect const outer{5, 30, 8, 30};
    EXPECT_EQ(node->seen, outer);
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        int ring = ringOf(outer, x, y);
        if (ring < 5)
            return ring < 0 ? kNone : rgbOf(kOuter);
        return rgbOf(x < 15 && y < 18 ? kInner : kFill);
    }),
              "");
}

TEST(PaintNode, ABoxOfARegionOfSeveralRectanglesBoundsWhatChildrenPaint)
{
    PageWindow window;
    guiHtml* node = window.add({0, 50, 0, 50});
    guiHtml* child = window.add({0, 50, 0, 50}, node);
    child->setBackgroundColor(kFill);
    QRegion region = QRegion(4, 4, 3, 3) + QRegion(20, 10, 5, 5);
    Canvas canvas;
    canvas.paint(node, window.widget, &region);
    QRect bounds = region.boundingRect();
    EXPECT_EQ(canvas.difference([&](int x, int y) { return bounds.contains(x, y) ? rgbOf(kFill) : kNone; }), "");
}

TEST(PaintNode, NothingIsPaintedOutsideTheRegion)
{
    PageWindow window;
    guiHtml* node = window.add({0, 50, 0, 50});
    node->m.border = 2;
    node->setBackgroundColor(kFill);
    QRegion region(10, 10, 5, 5);
    Canvas canvas;
    canvas.paint(node, window.widget, &region);
    EXPECT_EQ(canvas.difference([&](int x, int y) { return region.contains(QPoint(x, y)) ? rgbOf(kFill) : kNone; }),
              "");
}

TEST(PaintNode, ANodeOutsideAWindowPaintsNothing)
{
    guiHtml node;
    node.m.rect = {0, 30, 0, 20};
    node.m.border = 2;
    node.setBackgroundColor(kFill);
    Canvas canvas;
    canvas.paint(&node, nullptr);
    EXPECT_EQ(canvas.difference([](int, int) { return kNone; }), "");
}

TEST(PaintNode, AnEmptyInsideEndsAfterTheBorder)
{
    PageWindow window;
    guiHtml* node = window.add({0, 10, 0, 10});
    node->m.border = 2;
    node->m.space = 3;
    node->setBackgroundColor(kFill);
    node->setBorderColors(kOuter, kOuter, kOuter);
    auto* child = window.place(new PaintCounter, {2, 4, 2, 4}, node);
    Canvas canvas;
    canvas.paint(node, window.widget);
    EXPECT_EQ(child->painted, 0);
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        int ring = ringOf(node->m.rect, x, y);
        return ring == 0 || ring == 1 ? rgbOf(kOuter) : kNone;
    }),
              "");
}

TEST(PaintChildren, AreMovedByTheScrollPositionAndCutToTheInside)
{
    PageWindow window;
    guiHtml* node = window.add({10, 30, 10, 30});
    node->m.border = 2;
    node->setBorderColors(kOuter, kOuter, kOuter);
    node->ensureScroll().posX = 3;
    node->ensureScroll().posY = 8;
    node->appendMarker(kMarkerParagraph);
    guiHtml* child = window.add({5, 100, 6, 10}, node);
    child->setBackgroundColor(kFill);
    Canvas canvas;
    canvas.paint(node, window.widget);
    // The child's corner lies at (10 + 5 - 3, 10 + 6 - 8) and its top is cut off by the border.
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        int ring = ringOf(node->m.rect, x, y);
        if (ring == 0 || ring == 1)
            return rgbOf(kOuter);
        return ring >= 2 && x >= 12 && y >= 12 && y < 18 ? rgbOf(kFill) : kNone;
    }),
              "");
}

TEST(PaintChildren, GetThePainterTheWidgetTheScrolledOriginAndTheClip)
{
    PageWindow window;
    guiHtml* node = window.add({10, 30, 12, 30});
    node->m.border = 2;
    node->m.space = 1;
    node->ensureScroll().posX = 3;
    node->ensureScroll().posY = 8;
    auto* child = window.place(new PaintCounter, {5, 100, 6, 50}, node);
    QImage image(60, 60, QImage::Format_RGB32);
    QPainter painter(&image);
    QRegion damage(0, 0, 20, 60);
    node->paintTo(&painter, 1, 2, window.widget, &damage);
    EXPECT_EQ(child->seen.painter, &painter);
    EXPECT_EQ(child->seen.widget, window.widget);
    EXPECT_EQ(child->seen.x, 1 + 10 - 3);
    EXPECT_EQ(child->seen.y, 2 + 12 - 8);
    EXPECT_EQ(child->seen.region, QRegion(1 + 10 + 3, 2 + 12 + 3, 20 - 14, 24)) << "the inside that is damaged";
}

TEST(PaintChildren, OnlyTheOnesThatMeetTheDamageArePainted)
{
    PageWindow window(sstring(), 100, 1000000);
    std::vector<PaintCounter*> children;
    for (int i = 0; i < 20000; ++i) {
        children.push_back(window.place(new PaintCounter, {0, 50, i * 20, 15}));
        children.push_back(window.place(new PaintCounter, {50, 50, i * 20, 10}));
        window.root.appendMarker(i % 3 ? kMarkerLineBreak : kMarkerParagraph);
    }
    for (int y : {0, 199990, 399900}) {
        for (PaintCounter* child : children)
            child->painted = 0;
        QRegion region(0, y, 100, 100);
        Canvas canvas;
        canvas.paint(&window.root, window.widget, &region);
        for (PaintCounter* child : children)
            EXPECT_EQ(child->painted, child->m.rect.top < y + 100 && child->m.rect.bottom() > y)
                << "at " << child->m.rect.top;
    }
}

TEST(PaintChildren, AChildThatReplacesThePageEndsThePainting)
{
    PageWindow window;
    guiHtml* cell = window.add({0, 50, 0, 50});
    auto* first = window.place(new PaintCounter, {0, 50, 0, 10}, cell);
    window.place(new PaintCounter, {0, 50, 10, 10}, cell);
    first->whilePainting = [&] { window.root.destroyChildren(); };
    Canvas canvas;
    canvas.paint(&window.root, window.widget);
    EXPECT_EQ(window.root.getChildCount(), 0u);
}

TEST(PaintCorner, FillsTheSquareWhereTwoBarsMeet)
{
    PageWindow window;
    guiHtml* node = window.add({5, 50, 5, 50});
    node->m.border = 2;
    node->m.space = 1;
    node->setBorderColors(kOuter, kOuter, kOuter);
    node->setBackgroundColor(kFill);
    node->ensureScroll().barX = new QScrollBar(Qt::Horizontal, window.widget);
    Canvas canvas;
    QRegion region(0, 0, 60, 60);
    auto corner = [&] {
        QPainter painter(&canvas.image);
        node->paintCornerTo(&painter, 0, 0, window.widget, &region);
    };
    corner();
    EXPECT_EQ(canvas.difference([](int, int) { return kNone; }), "") << "one bar alone has no corner";

    node->ensureScroll().barY = new QScrollBar(Qt::Vertical, window.widget);
    corner();
    int width = node->getScroll().barY->sizeHint().width();
    int height = node->getScroll().barX->sizeHint().height();
    QRect square(5 + 50 - width - 3, 5 + 50 - height - 3, width, height);
    EXPECT_EQ(canvas.difference([&](int x, int y) { return square.contains(x, y) ? rgbOf(kFill) : kNone; }), "");
}

TEST(PaintCorner, ComesOverTheChildrenAndMovesWithTheParent)
{
    PageWindow window;
    guiHtml* node = window.add({0, 50, 0, 50});
    node->setBackgroundColor(kFill);
    guiHtml* child = window.add({0, 50, 0, 50}, node);
    child->setBackgroundColor(kInner);
    node->ensureScroll().barX = new QScrollBar(Qt::Horizontal, window.widget);
    node->ensureScroll().barY = new QScrollBar(Qt::Vertical, window.widget);
    Canvas canvas;
    canvas.paint(node, window.widget, nullptr, 6, 3);
    int width = node->getScroll().barY->sizeHint().width();
    int height = node->getScroll().barX->sizeHint().height();
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        if (x < 6 || x >= 56 || y < 3 || y >= 53)
            return kNone;
        return rgbOf(x >= 56 - width && y >= 53 - height ? kFill : kInner);
    }),
              "");
}

TEST(PaintCorner, HasTheWindowsColourWithoutABackground)
{
    PageWindow window;
    guiHtml* node = window.add({0, 60, 0, 60});
    node->ensureScroll().barX = new QScrollBar(Qt::Horizontal, window.widget);
    node->ensureScroll().barY = new QScrollBar(Qt::Vertical, window.widget);
    Canvas canvas;
    canvas.paint(node, window.widget);
    EXPECT_EQ(canvas.at(59, 59), window.widget->palette().color(QPalette::Window).rgb());
    EXPECT_EQ(canvas.at(0, 0), kNone);
}

TEST(PaintingHelpers, TileOriginMayLieOutsideTheRegion)
{
    QImage tile(5, 5, QImage::Format_RGB32);
    for (int y = 0; y < 5; ++y)
        for (int x = 0; x < 5; ++x)
            tile.setPixel(x, y, qRgb(x * 40, y * 40, 0));
    QRegion region = QRegion(3, 4, 7, 9) + QRegion(30, 30, 8, 2);
    Canvas canvas;
    QPainter painter(&canvas.image);
    drawClippedTile(&painter, QPixmap::fromImage(tile), 17, 12, &region);
    painter.end();
    EXPECT_EQ(canvas.difference([&](int x, int y) {
        return region.contains(QPoint(x, y)) ? tile.pixel((x - 17 + 100) % 5, (y - 12 + 100) % 5) : kNone;
    }),
              "");
}

TEST(PaintingHelpers, FillStaysWithinTheRegion)
{
    QRegion region = QRegion(3, 4, 7, 9) + QRegion(30, 30, 8, 2);
    Canvas canvas;
    QPainter painter(&canvas.image);
    fillClippedRect(&painter, toQColor(kFill), &region);
    painter.end();
    EXPECT_EQ(canvas.difference([&](int x, int y) { return region.contains(QPoint(x, y)) ? rgbOf(kFill) : kNone; }),
              "");
}

TEST(PaintingHelpers, ColoursConvertComponentByComponent)
{
    EXPECT_EQ(toQColor(guiColor{1, 2, 3}), QColor(1, 2, 3));
    EXPECT_EQ(guitoq(guiColor::BrightRed), QColor(255, 0, 0));
    EXPECT_EQ(qtogui(QColor(4, 5, 6)), (guiColor{4, 5, 6}));
}

TEST(PaintOnADenseScreen, BordersAreAsManyTimesThickerAsThePixelsAreSmaller)
{
    guiHtml node;
    node.m.border = 2;
    node.m.rect = {3, 20, 5, 16};
    node.setBorderColors(guiColor::White, kOuter, kInner);
    Canvas once = borderOf(node);
    QImage twice(120, 120, QImage::Format_ARGB32_Premultiplied);
    twice.setDevicePixelRatio(2);
    twice.fill(kNone);
    QPainter painter(&twice);
    guiRect rect = node.m.rect;
    node.paintBorder(&painter, &rect, 0);
    painter.end();
    EXPECT_EQ(once.difference([&](int x, int y) { return twice.pixel(2 * x, 2 * y); }), "");
    EXPECT_EQ(once.difference([&](int x, int y) { return twice.pixel(2 * x + 1, 2 * y + 1); }), "");
}
