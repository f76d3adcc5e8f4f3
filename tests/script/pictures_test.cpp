// tests/script/pictures_test.cpp: what decoded pictures and movies take: one copy for all who show a file, no more
// pixels than are shown, one budget, and nothing once nobody shows them. Read through the C++ host from real files.
#include "controls/guihtmlimage.h"
#include "controls/guiimagec.h"
#include "controls/guimovie.h"
#include "controls/guipicturememory.h"
#include "tests/script/controlscript.h"
#include "tests/support/moviefile.h"

#include <QGuiApplication>
#include <QImageWriter>
#include <QWidget>
#include <fcntl.h>
#include <sys/stat.h>

namespace {

class Pictures : public ControlScript
{
protected:
    QString path(char const* name) const { return QString::fromStdString((folder / name).string()); }

    void picture(char const* name, int width, int height, QColor const& color = Qt::red) const
    {
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(color);
        ASSERT_TRUE(image.save(path(name)));
    }

    /// What is held when nothing is kept for later.
    std::int64_t inUse()
    {
        onGuiThread(guiFreeImages);
        return guiPictureMemory::inUse();
    }

    QRgb pixelOf(char const* name)
    {
        QRgb pixel = 0;
        onGuiThread([&] { pixel = node<guiHtmlImage>(name).getPixmap()->toImage().pixel(0, 0); });
        return pixel;
    }

    QSize sizeOf(char const* name)
    {
        auto& image = node<guiHtmlImage>(name);
        return {image.m.rect.width, image.m.rect.height};
    }

    /// What the page shows at a point of the image.
    QRgb shown(char const* name)
    {
        QRgb pixel = 0;
        onGuiThread([&] {
            QWidget* widget = root->getTopLevelWidget();
            guiRect const& rect = node<guiHtmlImage>(name).m.rect;
            QPixmap const seen = widget->grab();
            qreal const scale = seen.devicePixelRatio();
            pixel = seen.toImage().pixel(static_cast<int>(rect.left * scale), static_cast<int>(rect.top * scale));
        });
        return pixel;
    }

    bool becomes(char const* name, QRgb color)
    {
        return host.serveUntil([&] { return shown(name) == color; }, 5s);
    }

    std::string printed(std::function<void()> const& work)
    {
        testing::internal::CaptureStderr();
        work();
        return testing::internal::GetCapturedStderr();
    }
};

/// Two frames of one pixel, red and blue, 30 milliseconds each; `rounds` as the format counts them, 0: without end.
QByteArray gif(int rounds)
{
    QByteArray bytes = QByteArray::fromHex("474946383961010001008000"
                                           "00ff00000000ff");
    bytes += QByteArray::fromHex("21ff0b") + "NETSCAPE2.0" + QByteArray::fromHex("0301");
    bytes += static_cast<char>(rounds);
    bytes += QByteArray::fromHex("0000");
    for (char const* data : {"0202440100", "02024c0100"})
        bytes +=
            QByteArray::fromHex("21f90400030000002c0000000001000100000202440100").left(18) + QByteArray::fromHex(data);
    return bytes + QByteArray::fromHex("3b");
}

constexpr std::int64_t kMebibyte = 1 << 20;

} // namespace

TEST_F(Pictures, AFileIsDecodedOnceForAllWhoShowIt)
{
    picture("a.png", 1024, 512);
    std::int64_t const before = inUse();
    NativeWindow window =
        open("<table background=a.png><tr><td>x</table><img src=a.png><img src=a.png><img src=a.png width=800>");
    EXPECT_EQ(inUse() - before, 2 * kMebibyte);
    window.setText("");
    EXPECT_EQ(inUse(), before);
}

TEST_F(Pictures, AreDecodedWithNoMorePixelsThanAreShown)
{
    picture("a.png", 2000, 1000);
    std::int64_t const before = inUse();
    open("<img name=a src=a.png width=100 height=50><img src=a.png width=100><img src=a.png height=50>");
    EXPECT_EQ(inUse() - before, 100 * 50 * 4);
    EXPECT_EQ(sizeOf("a"), QSize(100, 50));
    EXPECT_EQ(shown("a"), qRgb(255, 0, 0));
}

TEST_F(Pictures, OfASizeThatLayoutDecidesAreDecodedWhenTheyArePainted)
{
    picture("a.png", 4000, 3000);
    std::int64_t const before = inUse();
    open("<img name=a src=a.png width=50% height=40>");
    EXPECT_EQ(shown("a"), qRgb(255, 0, 0));
    EXPECT_GE(node<guiHtmlImage>("a").getPixmap()->width(), sizeOf("a").width());
    EXPECT_LE(inUse() - before, 500 * 375 * 4);
}

// Run at one and at two screen pixels per page pixel.
TEST_F(Pictures, TheFileForLargerScreensIsShownOnThem)
{
    picture("a.png", 10, 6, Qt::red);
    picture("a@2x.png", 19, 12, Qt::green);
    picture("b.png", 10, 6, Qt::red);
    open("<img name=a src=a.png><br><img name=b src=b.png><br><img name=own src=\"a@2x.png\">");
    bool const isLarge = qApp->devicePixelRatio() >= 2;
    EXPECT_EQ(sizeOf("a"), QSize(10, 6));
    EXPECT_EQ(shown("a"), isLarge ? qRgb(0, 255, 0) : qRgb(255, 0, 0));
    EXPECT_EQ(sizeOf("b"), QSize(10, 6));
    EXPECT_EQ(shown("b"), qRgb(255, 0, 0));
    EXPECT_EQ(sizeOf("own"), QSize(19, 12)) << "named by the page itself";
}

TEST_F(Pictures, AFileThatWasWrittenAnewIsReadAnew)
{
    picture("a.png", 10, 10, Qt::red);
    NativeWindow first = open("<img name=a src=a.png>");
    picture("a.png", 10, 10, Qt::blue);
    timespec const later[2] = {{2'000'000'000, 0}, {2'000'000'000, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, (folder / "a.png").c_str(), later, 0), 0);
    EXPECT_EQ(pixelOf("a"), qRgb(255, 0, 0));
    NativeWindow second = open("<img name=a src=a.png>");
    EXPECT_EQ(pixelOf("a"), qRgb(0, 0, 255));
}

TEST_F(Pictures, AreTurnedAsTheCameraNoted)
{
    QImage image(40, 20, QImage::Format_RGB32);
    image.fill(Qt::white);
    QImageWriter writer(path("a.jpg"));
    writer.setTransformation(QImageIOHandler::TransformationRotate90);
    ASSERT_TRUE(writer.write(image));
    open("<img name=a src=a.jpg><img name=small src=a.jpg width=5>");
    EXPECT_EQ(sizeOf("a"), QSize(20, 40));
    EXPECT_EQ(sizeOf("small"), QSize(5, 10));
    EXPECT_EQ(node<guiHtmlImage>("small").getPixmap()->size(), QSize(5, 10));
}

TEST_F(Pictures, OfFormatsThatPlugInsReadAreShown)
{
    write("a.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='20' height='10'><rect width='20' height='10' "
                   "fill='#00FF00'/></svg>");
    picture("a.webp", 8, 6, Qt::blue);
    picture("a.tiff", 9, 7, Qt::blue);
    open("<img name=s src=a.svg width=200><img name=w src=a.webp><img name=t src=a.tiff>");
    EXPECT_EQ(sizeOf("s"), QSize(200, 100));
    EXPECT_EQ(node<guiHtmlImage>("s").getPixmap()->size(), QSize(200, 100)); // drawn, not enlarged
    EXPECT_EQ(sizeOf("w"), QSize(8, 6));
    EXPECT_EQ(sizeOf("t"), QSize(9, 7));
    onGuiThread([] {
        for (char const* name : {"a.webp", "a.TIFF", "a.svg"})
            EXPECT_EQ(getFindFileType(name), 0) << name;
    });
}

TEST_F(Pictures, OfSeveralFramesPlayWhileTheyAreSeen)
{
    write("a.gif", gif(0).toStdString());
    NativeWindow window = open("<img name=a src=a.gif width=40 height=40>");
    EXPECT_TRUE(becomes("a", qRgb(0, 0, 255)));
    EXPECT_TRUE(becomes("a", qRgb(255, 0, 0)));
    EXPECT_TRUE(becomes("a", qRgb(0, 0, 255)));
    std::int64_t const playing = inUse();
    window.setText("");
    EXPECT_LT(inUse(), playing);
}

TEST_F(Pictures, OfSeveralFramesWaitWhileTheyArePaused)
{
    write("a.gif", gif(0).toStdString());
    open("<img name=a src=a.gif width=40 height=40 paused>");
    host.serveUntil([] { return false; }, 200ms);
    EXPECT_EQ(shown("a"), qRgb(255, 0, 0));
    onGuiThread([this] { node<guiHtmlImage>("a").play(); });
    EXPECT_TRUE(becomes("a", qRgb(0, 0, 255)));
}

TEST_F(Pictures, MoviesAreDecodedOnceAndReleased)
{
    QByteArray const frame = avzFrame(40, png(512, 512, Qt::red));
    write("m.avz", avz(frame + frame).toStdString());
    std::int64_t const before = inUse();
    NativeWindow window = open("<img src=m.avz paused><img src=m.avz paused>");
    EXPECT_EQ(inUse() - before, 2 * kMebibyte);
    window.setText("");
    EXPECT_EQ(inUse(), before);
}

namespace {

/// With room for 4 MiB of pictures.
class FewPictures : public Pictures
{
protected:
    FewPictures() { host.engine().manager().platform().setPictureMemory(4); }

    std::string lineOf(char const* name, char const* why) const
    {
        return "guiLoadImage() - failed to load image " + (folder / name).string() + "; " + why + " in " +
               (folder / "page.html").string() + ":1\n";
    }
};

} // namespace

TEST_F(FewPictures, BeyondTheBudgetCountAsUndecodableInOneLine)
{
    for (char const* name : {"a.png", "b.png", "c.png"})
        picture(name, 700, 700);
    NativeWindow window;
    EXPECT_EQ(printed([&] { window = open("<img name=a src=a.png><img src=b.png><img name=c src=c.png>"); }),
              lineOf("c.png", "no memory is left for pictures"));
    EXPECT_EQ(sizeOf("a").height(), 700);
    EXPECT_EQ(sizeOf("c").height(), 24);
    EXPECT_LE(inUse(), 4 * kMebibyte);
}

TEST_F(FewPictures, BeyondTheBudgetComeWhenOthersHaveGone)
{
    picture("a.png", 1000, 1000);
    picture("b.png", 1000, 1000);
    NativeWindow window = open("<img src=a.png>");
    window.setText("");
    EXPECT_EQ(printed([&] { window = open("<img name=b src=b.png>"); }), "");
    EXPECT_EQ(sizeOf("b").height(), 1000);
}

TEST_F(FewPictures, MoviesAreCutShortInOneLine)
{
    QByteArray const frame = avzFrame(40, png(700, 700, Qt::red));
    write("m.avz", avz(frame + frame + frame).toStdString());
    EXPECT_EQ(printed([&] { open("<img name=m src=m.avz paused>"); }),
              "guiMovie::loadFile() - movie " + (folder / "m.avz").string() +
                  " is cut short; no memory is left for pictures\n");
    EXPECT_EQ(node<guiHtmlImage>("m").getMovie()->getFrames().size(), 2u);
}

TEST_F(FewPictures, OfSeveralFramesStandStillInOneLine)
{
    picture("a.png", 1020, 1020);
    write("a.gif", gif(0).toStdString() + std::string(90'000, ' '));
    NativeWindow window = open("<img src=a.png>");
    EXPECT_EQ(printed([&] { window.setText("<img src=a.png><img name=g src=a.gif>"); }),
              "guiAnimation::open() - image " + (folder / "a.gif").string() +
                  " stands still; no memory is left for pictures\n");
}
