// tests/controls/image_test.cpp: images: which files they are, their size, what is painted and where their links are.
#include "controls/guihtmlimage.h"
#include "controls/guiimagec.h"
#include "controls/guiimagemap.h"
#include "controls/guipicturereader.h"
#include "tests/controls/pagewindow.h"
#include "tests/support/fakescript.h"

#include <QApplication>
#include <QBuffer>
#include <QElapsedTimer>
#include <QMouseEvent>
#include <QRegion>
#include <gtest/gtest.h>
#include <random>

namespace {

/// An image in a window whose files are green pictures of 4 by 4 pixels.
struct ShownImage
{
    explicit ShownImage(guiRect const& rect = {10, 20, 10, 12})
    {
        host.files["/app/a.png"] = "";
        host.files["/app/b.png"] = "";
        image = window.place(new Image, rect);
        image->setSource("a.png");
        image->m.rect = rect; // as no page lays it out
    }

    class Image : public guiHtmlImage
    {
    public:
        using guiHtmlImage::operator=;
        int onHyperlink(sstring link, ScriptObject*) override
        {
            links.emplace_back(link.c_str());
            return 1;
        }
        std::vector<std::string> links;
    };

    FakeHost host;
    PageWindow window;
    Image* image;
};

} // namespace

TEST(FileTypes, ComeFromTheLastExtensionInAnyCase)
{
    for (char const* name : {"picture.PNG", "a.bmp", "a.gif", "a.jpg", "a.jpeg", "x.avi.png"})
        EXPECT_EQ(getFindFileType(name), 0) << name;
    for (char const* name : {"clip.avz", "clip.AVI", "tone.wav"})
        EXPECT_EQ(getFindFileType(name), 1) << name;
    for (char const* name : {"readme", "a.html", "a.png.txt", "dir.png/readme", "", "a."})
        EXPECT_EQ(getFindFileType(name), 2) << name;
}

TEST(PictureReader, KeepsTheColoursOfATwoColouredPictureThatIsShownSmall)
{
    QImage image(64, 64, QImage::Format_Mono);
    image.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
    for (int y = 0; y < 64; ++y)
        for (int x = 0; x < 64; ++x)
            image.setPixel(x, y, x < 32 ? 0 : 1);
    QByteArray bytes;
    QBuffer file(&bytes);
    ASSERT_TRUE(image.save(&file, "PNG"));
    QImage const small = guiPictureReader(bytes).decode(QSize(16, 16)).toImage();
    ASSERT_EQ(small.size(), QSize(16, 16));
    for (int y = 0; y < 16; ++y) {
        EXPECT_EQ(small.pixel(3, y), qRgb(255, 0, 0)) << y;
        EXPECT_EQ(small.pixel(12, y), qRgb(0, 0, 255)) << y;
    }
}

TEST(ShownImages, TakeTheSizeOfTheirPictureAndTheirFrame)
{
    ShownImage shown;
    EXPECT_EQ(shown.image->getPreferredWidth(), 4);
    EXPECT_EQ(shown.image->getHeightEstimate(100), 4);
    shown.image->m.border = 3;
    shown.image->m.space = 2;
    EXPECT_EQ(shown.image->getPreferredWidth(), 14);
    EXPECT_EQ(shown.image->getHeightEstimate(100), 14);
    guiHtmlImage lone;
    EXPECT_EQ(lone.getPreferredWidth() + lone.getHeightEstimate(9), 0);
}

namespace {

/// The size that an image of 4 by 4 pixels asks for when the page gives this width and height; 0 for none.
QSize wantedSize(unsigned width, unsigned height, int border = 0)
{
    ShownImage shown;
    shown.image->m.border = border;
    if (width) {
        shown.image->m.fixed.unitX = kUnitPixels;
        shown.image->m.fixed.x = width;
    }
    if (height) {
        shown.image->m.fixed.unitY = kUnitPixels;
        shown.image->m.fixed.y = height;
    }
    return {shown.image->getPreferredWidth(), shown.image->getHeightEstimate(100)};
}

} // namespace

TEST(ShownImages, AskForExactlyThePixelsThatThePageGives)
{
    EXPECT_EQ(wantedSize(3, 2), QSize(3, 2));
    EXPECT_EQ(wantedSize(30, 20), QSize(30, 20));
    EXPECT_EQ(wantedSize(8, 2, 1), QSize(8, 2)); // the frame is inside
}

TEST(ShownImages, KeepTheirProportionWhenThePageGivesOneSide)
{
    EXPECT_EQ(wantedSize(2, 0), QSize(2, 2));
    EXPECT_EQ(wantedSize(0, 12), QSize(12, 12));
    EXPECT_EQ(wantedSize(12, 0, 1), QSize(12, 12));
    EXPECT_EQ(wantedSize(1, 0, 1), QSize(2, 2)); // nothing but the frame
}

TEST(ShownImages, AreDrawnAsSmallAsTheyAskFor)
{
    ShownImage shown;
    shown.image->m.fixed.unitX = kUnitPixels;
    shown.image->m.fixed.x = 2;
    Canvas canvas;
    canvas.paint(shown.image, shown.window.widget);
    EXPECT_EQ(canvas.difference([](int x, int y) {
        return x >= 10 && x < 12 && y >= 15 && y < 17 ? qRgb(0, 255, 0) : Canvas::kUntouched;
    }),
              "");
}

TEST(ShownImages, DoNotStretchThePictureOfAMissingFile)
{
    ShownImage shown;
    shown.host.files["vfs://GuiWindow/broken.png"] = "";
    shown.image->setSource("none.png");
    shown.image->m.fixed.unitX = shown.image->m.fixed.unitY = kUnitPixels;
    shown.image->m.fixed.x = 20;
    shown.image->m.fixed.y = 12;
    Canvas canvas;
    canvas.paint(shown.image, shown.window.widget);
    EXPECT_EQ(canvas.difference([](int x, int y) {
        return x >= 10 && x < 14 && y >= 14 && y < 18 ? qRgb(0, 255, 0) : Canvas::kUntouched;
    }),
              "");
}

TEST(ShownImages, LoadASourceOnce)
{
    ShownImage shown;
    EXPECT_EQ(shown.host.read, std::vector<std::string>{"/app/a.png"});
    shown.image->setSource("a.png");
    EXPECT_EQ(shown.host.read.size(), 1u);
    shown.image->setSource("b.png");
    shown.image->setSource("clip.avz");
    EXPECT_EQ(shown.host.read.back(), "/app/b.png");
    EXPECT_TRUE(shown.image->isMovie());
    EXPECT_EQ(shown.image->getPixmap(), nullptr);
    shown.image->setSource("none.png");
    EXPECT_EQ(shown.host.read.back(), "vfs://GuiWindow/broken.png");
    EXPECT_FALSE(shown.image->isLoaded());
}

TEST(ShownImages, StandAlignedInTheirNode)
{
    ShownImage shown;
    Canvas left;
    left.paint(shown.image, shown.window.widget);
    EXPECT_EQ(left.difference([](int x, int y) {
        return x >= 10 && x < 14 && y >= 14 && y < 18 ? qRgb(0, 255, 0) : Canvas::kUntouched;
    }),
              "");
    shown.image->m.alignX = kAlignRight;
    shown.image->m.alignY = kAlignTop;
    Canvas right;
    right.paint(shown.image, shown.window.widget);
    EXPECT_EQ(right.at(29, 10), qRgb(0, 255, 0));
    EXPECT_EQ(right.at(25, 10), Canvas::kUntouched);
}

TEST(ShownImages, FillTheirNodeWhenThePageSaysHowLargeBothSidesAre)
{
    ShownImage shown;
    shown.image->m.fixed.unitX = shown.image->m.fixed.unitY = kUnitPixels;
    Canvas canvas;
    canvas.paint(shown.image, shown.window.widget);
    EXPECT_EQ(canvas.at(10, 10), qRgb(0, 255, 0));
    EXPECT_EQ(canvas.at(29, 21), qRgb(0, 255, 0));
    EXPECT_EQ(canvas.at(30, 21), Canvas::kUntouched);
}

namespace {

/// The first point where a shape and the toolkit's region of it differ, "" without one.
std::string difference(guiImageMapRegion const& shape, QRegion const& region)
{
    for (int y = -40; y < 60; ++y)
        for (int x = -40; x < 60; ++x)
            if ((shape.hitTest(x, y) == "link") != region.contains(QPoint(x, y)))
                return std::to_string(x) + "," + std::to_string(y);
    return "";
}

/// The links of a page's map, tried at the points in order.
std::string linksOf(char const* areas, std::vector<QPoint> const& points)
{
    PageWindow window;
    FakeHost host;
    window.root.setText(sstring("<img name=i usemap=#m><map name=m>") + areas + "</map>", "");
    auto& image = dynamic_cast<guiHtmlImage&>(*window.root.getNamed("i"));
    std::string links;
    for (QPoint at : points)
        links += std::string(image.getMappedLink(at.x(), at.y()).c_str()) + ";";
    return links;
}

} // namespace

TEST(MapShapes, ArePixelForPixelTheToolkitsRegions)
{
    EXPECT_EQ(difference(guiImageMapRegion("link", -3, 4, 20, 7), QRegion(-3, 4, 20, 7)), "");
    EXPECT_EQ(difference(guiImageMapRegion("link", 3, 4, -20, 7), QRegion()), "");
    for (int radius : {-5, 0, 1, 2, 5, 13, 30})
        EXPECT_EQ(difference(guiImageMapRegion("link", 3, 4, radius),
                             QRegion(3 - radius, 4 - radius, 2 * radius, 2 * radius, QRegion::Ellipse)),
                  "")
            << radius;
    std::mt19937 random(7);
    for (int round = 0; round < 60; ++round) {
        QPolygon points;
        std::vector<int> xs;
        std::vector<int> ys;
        for (unsigned i = 0; i < 3 + random() % 7; ++i) {
            xs.push_back(static_cast<int>(random() % 70) - 20);
            ys.push_back(static_cast<int>(random() % 70) - 20);
            points << QPoint(xs.back(), ys.back());
        }
        EXPECT_EQ(difference(guiImageMapRegion("link", xs.data(), ys.data(), static_cast<int>(xs.size())),
                             QRegion(points, Qt::OddEvenFill)),
                  "")
            << round;
    }
}

TEST(MapShapes, OfAnySizeAreMadeAndTriedAtOnce)
{
    QElapsedTimer timer;
    timer.start();
    guiImageMap map("m");
    map.addRegion(guiImageMapRegion("circle", 0, 0, 32767));
    std::vector<int> xs;
    std::vector<int> ys;
    for (int i = 0; i < 2048; ++i) {
        xs.push_back(16 * i);
        ys.push_back(i % 2 ? -32767 : 32767);
    }
    map.addRegion(guiImageMapRegion("zigzag", xs.data(), ys.data(), 2048));
    EXPECT_EQ(map.hitTest(100, 100), "circle");
    EXPECT_EQ(map.hitTest(32760, 32760), "");
    EXPECT_LT(timer.elapsed(), 1000);
}

TEST(MapShapes, TakeOddCoordinatesAsFarAsTheyMakeSense)
{
    EXPECT_EQ(linksOf("<area shape=rect coords='30, 40, 10, 20' href=r>", {{10, 20}, {29, 39}, {30, 39}, {9, 20}}),
              "r;r;;;"); // corners in the other order, blanks
    EXPECT_EQ(linksOf("<area shape=rect coords=1,2,3 href=r><area shape=rect href=r>", {{1, 2}, {0, 0}}), ";;");
    EXPECT_EQ(linksOf("<area shape=rect coords=0,0,9,9,700,800 href=r>", {{8, 8}, {9, 9}, {600, 700}}), "r;;;");
    EXPECT_EQ(linksOf("<area shape=circle coords=20,20,-5 href=c><area shape=circle coords=20,20 href=c>", {{20, 20}}),
              ";");
    EXPECT_EQ(linksOf("<area shape=poly coords=0,0,10,0,0,10,99 href=p>", {{2, 2}, {50, 5}}), "p;;"); // 99 has no y
    EXPECT_EQ(linksOf("<area shape=poly coords=0,0,10,10 href=p>", {{5, 5}}), ";");
    EXPECT_EQ(linksOf("<area shape=rect coords=a,b,9,x9 href=r>", {{0, 0}}), ";"); // 0,0,9,0
}

TEST(MapShapes, HaveSecondNamesAndRectanglesNeedNone)
{
    EXPECT_EQ(linksOf("<area coords=0,0,9,9 href=n><area shape=rectangle coords=10,0,19,9 href=r>"
                      "<area shape=circ coords=25,5,4 href=c><area shape=polygon coords=30,0,40,0,30,10 href=p>"
                      "<area shape=oval coords=50,0,60,10 href=o>",
                      {{5, 5}, {15, 5}, {25, 5}, {32, 2}, {55, 5}}),
              "n;r;c;p;;");
}

TEST(MapShapes, ADefaultIsWhereNothingElseIs)
{
    EXPECT_EQ(linksOf("<area shape=default href=d><area shape=rect coords=0,0,9,9 href=r>", {{5, 5}, {700, 9}}),
              "r;d;");
    EXPECT_EQ(linksOf("<area shape=default><area shape=DEFAULT href=d>", {{5, 5}}), "d;");
}

TEST(MapShapes, AreTriedInTheirOrderPastThoseWithoutALink)
{
    EXPECT_EQ(linksOf("<area shape=rect coords=0,0,9,9><area shape=rect coords=0,0,9,9 href=first>"
                      "<area shape=circle coords=5,5,4 href=second><area shape=circle coords=12,5,5 href=third>",
                      {{5, 5}, {12, 5}, {50, 50}}),
              "first;third;;");
}

TEST(ImageLinks, AreFollowedOnAPress)
{
    ShownImage shown;
    EXPECT_EQ(shown.image->canHitTest(), 0);
    shown.image->onMouseDown(1, 5);
    EXPECT_TRUE(shown.image->links.empty() || shown.image->links.back() == "event://eMouseDown");
    shown.image->links.clear();
    shown.image->setLink("event://own");
    EXPECT_EQ(shown.image->canHitTest(), 1);
    shown.image->onMouseDown(1, 5);
    EXPECT_EQ(shown.image->links, std::vector<std::string>{"event://own"});
}

TEST(ImageLinks, OfAMapCountInThePicturesOwnPixels)
{
    ShownImage shown;
    auto map = std::make_unique<guiImageMap>("m");
    map->addRegion(guiImageMapRegion("corner", 2, 2, 2, 2));
    shown.image->setImageMap(std::move(map));
    shown.image->setLink("event://own"); // a map takes its place
    shown.image->onMouseDown(0, 4);
    EXPECT_TRUE(shown.image->links.empty() || shown.image->links.back() != "event://own");
    shown.image->links.clear();
    shown.image->onMouseDown(3, 4 + 3); // the picture stands in the middle of the node's height
    EXPECT_EQ(shown.image->links, std::vector<std::string>{"corner"});
    shown.image->m.fixed.unitX = shown.image->m.fixed.unitY = kUnitPixels;
    shown.image->onMouseDown(15, 9); // stretched to 20 by 12
    EXPECT_EQ(shown.image->links.size(), 2u);
}

TEST(ImageLinks, AreThoseOfTheLinkAroundThePicture)
{
    PageWindow window;
    FakeHost host;
    window.root.setText("<a href=p.html target=t>text<img name=i><table><tr><td><img name=c></table></a><img name=o>"
                        "<a href=p.html><img name=m onclick=own></a>",
                        "");
    auto linkOf = [&window](char const* name) {
        return std::string(dynamic_cast<guiHtmlImage&>(*window.root.getNamed(name)).getMappedLink(0, 0).c_str());
    };
    EXPECT_EQ(linkOf("i"), "{t}p.html");
    EXPECT_EQ(linkOf("c"), "{t}p.html");
    EXPECT_EQ(linkOf("o"), "");
    EXPECT_EQ(linkOf("m"), "own");
}

TEST(ImageLinks, AreFollowedByTheLeftButtonOnly)
{
    ShownImage shown;
    shown.image->setLink("event://own");
    auto press = [&shown](Qt::MouseButton button) {
        QMouseEvent event(QEvent::MouseButtonPress, {12, 16}, {12, 16}, button, button, Qt::NoModifier);
        shown.image->links.clear();
        QApplication::sendEvent(shown.window.widget, &event);
        return std::count(shown.image->links.begin(), shown.image->links.end(), "event://own");
    };
    EXPECT_EQ(press(Qt::RightButton), 0);
    EXPECT_EQ(press(Qt::MiddleButton), 0);
    EXPECT_EQ(press(Qt::LeftButton), 1);
}

TEST(ImageLinks, TurnThePointerIntoAHand)
{
    ShownImage shown;
    auto map = std::make_unique<guiImageMap>("m");
    map->addRegion(guiImageMapRegion("corner", 2, 2, 2, 2));
    shown.image->setImageMap(std::move(map));
    auto shape = [&] { return shown.window.widget->cursor().shape(); };
    shown.image->onMouseMove(3, 7);
    EXPECT_EQ(shape(), Qt::PointingHandCursor);
    shown.image->onMouseMove(0, 4);
    EXPECT_EQ(shape(), Qt::ArrowCursor);
    shown.image->onMouseMove(3, 7);
    shown.image->onMouseOff();
    EXPECT_EQ(shape(), Qt::ArrowCursor);
}

TEST(ImageCopies, HaveThePictureAndTheMap)
{
    ShownImage shown;
    shown.image->setImageMap(std::make_unique<guiImageMap>("m"));
    std::unique_ptr<guiHtmlImage> copy(static_cast<guiHtmlImage*>(shown.image->guiHtmlImage::Clone(nullptr)));
    EXPECT_EQ(copy->getPreferredWidth(), 4);
    EXPECT_TRUE(copy->isLoaded());
    EXPECT_NE(copy->getImageMap(), shown.image->getImageMap());
    EXPECT_EQ(shown.host.read.size(), 1u);
}
