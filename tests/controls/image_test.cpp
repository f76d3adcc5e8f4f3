// tests/controls/image_test.cpp: images: which files they are, their size, what is painted and where their links are.
#include "controls/guihtmlimage.h"
#include "controls/guiimagec.h"
#include "controls/guiimagemap.h"
#include "tests/support/fakescript.h"
#include "tests/support/pagewindow.h"

#include <gtest/gtest.h>

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
            links.push_back(link.c_str());
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
