// tests/pictures/pictures_test.cpp: every page of this folder looks as it did when somebody looked at it.
//
// The environment chooses platform and scale (QT_QPA_PLATFORM, QT_SCALE_FACTOR). With TARN_UPDATE_PICTURES set, the
// off-screen platform rewrites the stored files instead; the other platform is compared with them all the same.
#include "tests/pictures/comparison.h"
#include "tests/pictures/picturelist.h"

#include <QDir>
#include <QFile>
#include <algorithm>
#include <cstdlib>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace {

QString const kStored = QStringLiteral(TARN_PICTURES "/");
QString const kFaults = QStringLiteral(TARN_PICTURE_FAULTS "/");

/// How far a picture made smaller may be from the one of scale 1, on average over all pixels, 0 to 255.
constexpr double kSamePage = 6;
/// The part of a dense picture's pixels that differ from those they would share one pixel with at scale 1.
constexpr double kFinePart = 0.001;
/// How much steeper the edges of a dense picture are than those of a picture scaled up smoothly.
constexpr double kSharper = 1.3;

std::unique_ptr<NativeHost> theHost;

/// One component for all pictures: a process makes no second one.
class HostEnvironment : public testing::Environment
{
public:
    void SetUp() override { theHost = std::make_unique<NativeHost>(NativeHostOptions{.folder = TARN_PICTURES}); }
    void TearDown() override { theHost.reset(); }
};

[[maybe_unused]] auto* const theEnvironment = testing::AddGlobalTestEnvironment(new HostEnvironment);

std::string environmentWord(char const* name, char const* otherwise)
{
    char const* value = std::getenv(name);
    return value ? value : otherwise;
}

int scale() { return std::atoi(environmentWord("QT_SCALE_FACTOR", "1").c_str()); }
std::string platform() { return environmentWord("QT_QPA_PLATFORM", "offscreen"); }
bool isUpdating() { return std::getenv("TARN_UPDATE_PICTURES") && platform() == "offscreen"; }

QString storedFile(std::string const& name, int atScale)
{
    return kStored + QString::fromStdString(name) + (atScale == 1 ? QString() : QString("@%1x").arg(atScale)) + ".png";
}

QImage load(QString const& file)
{
    QImage picture = QImage(file).convertToFormat(QImage::Format_RGB32);
    picture.setDevicePixelRatio(1); // 2 by the name "@2x", else
    return picture;
}

/// Best compression; what is unchanged keeps its bytes.
void store(QImage const& picture, QString const& file)
{
    if (load(file) == picture)
        return;
    bool isWritten = picture.save(file + ".new", "PNG", 0);
    QFile::remove(file);
    ASSERT_TRUE(isWritten && QFile::rename(file + ".new", file)) << "can not write " << file.toStdString();
}

/// Saves what was seen and how it differs; the result says where.
std::string keepFault(std::string const& name, QImage const& stored, QImage const& seen)
{
    QDir().mkpath(kFaults);
    QString base = kFaults + QString::fromStdString(name + "-" + platform()) + QString("@%1x").arg(scale());
    seen.save(base + ".png");
    differencePicture(stored, seen).save(base + "-difference.png");
    return "stored, seen and different pixels: " + base.toStdString() + "-difference.png";
}

/// Every picture is taken once, however many tests look at it.
QImage const& seen(Picture const& picture)
{
    static std::map<std::string, QImage> taken;
    auto found = taken.find(picture.name);
    if (found != taken.end())
        return found->second;
    PictureWindow window(*theHost, picture.page + ".html");
    if (picture.act)
        picture.act(window);
    return taken[picture.name] = window.take();
}

QImage scaledUp(QImage const& image, Qt::TransformationMode mode)
{
    return image.scaled(image.size() * scale(), Qt::IgnoreAspectRatio, mode);
}

std::string nameOf(testing::TestParamInfo<Picture> const& info)
{
    std::string name = info.param.name;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace

class Pictures : public testing::TestWithParam<Picture>
{};

TEST_P(Pictures, LookAsStored)
{
    std::string const& name = GetParam().name;
    QImage const& now = seen(GetParam());
    QString file = storedFile(name, scale());
    if (isUpdating())
        store(now, file);
    QImage stored = load(file);
    ASSERT_FALSE(stored.isNull()) << "there is no " << file.toStdString() << "; ./tarn test --update-pictures makes it";
    Difference by = difference(stored, now);
    EXPECT_LE(by.pixels, kStrayPixels) << name << " at scale " << scale() << " on " << platform() << ": between ("
                                       << by.area.left() << "," << by.area.top() << ") and (" << by.area.right() << ","
                                       << by.area.bottom() << "), by up to " << by.strongest << "\n"
                                       << keepFault(name, stored, now);
}

namespace {

/// Straight lines alone have no finer detail to show.
bool hasText(Picture const& picture) { return picture.name != "rules"; }

/// The pictures that this run can compare with those of scale 1.
std::vector<Picture> densePictures() { return scale() == 1 ? std::vector<Picture>() : pictures(); }

} // namespace

class DensePictures : public testing::TestWithParam<Picture>
{};

// The page is the same, so that making it smaller gives the other picture again, up to the rounding of letters.
TEST_P(DensePictures, AreTheSamePageAsAtScaleOne)
{
    QImage const& now = seen(GetParam());
    QImage once = load(storedFile(GetParam().name, 1));
    ASSERT_EQ(now.size(), once.size() * scale());
    QImage smaller = now.scaled(once.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_LE(meanDistance(once, smaller), kSamePage);
}

TEST_P(DensePictures, ShowWhatScalingUpCanNot)
{
    QImage const& now = seen(GetParam());
    QImage once = load(storedFile(GetParam().name, 1));
    QImage coarse = scaledUp(once, Qt::FastTransformation);
    if (!hasText(GetParam())) {
        EXPECT_EQ(difference(coarse, now).pixels, 0);
        return;
    }
    EXPECT_GT(finePixels(now), kFinePart * now.width() * now.height());
    EXPECT_EQ(finePixels(coarse), 0);
    EXPECT_GT(sharpness(now), kSharper * sharpness(scaledUp(once, Qt::SmoothTransformation)));
}

INSTANTIATE_TEST_SUITE_P(All, DensePictures, testing::ValuesIn(densePictures()), nameOf);
GTEST_ALLOW_UNINSTANTIATED_PARAMETERIZED_TEST(DensePictures);

INSTANTIATE_TEST_SUITE_P(All, Pictures, testing::ValuesIn(pictures()), nameOf);

namespace {

Picture const& pictureNamed(std::string const& name)
{
    auto has = [&](Picture const& picture) { return picture.name == name; };
    return *std::find_if(pictures().begin(), pictures().end(), has);
}

QString hex(QRgb color) { return QString("#%1").arg(color & 0xFFFFFF, 6, 16, QChar('0')); }

/// "" when all pixels along the line have the colours that they must have, else what the first other one is.
std::string fault(QImage const& picture, PixelLine const& line)
{
    QPoint const step = (line.direction == 'r' ? QPoint(1, 0) : QPoint(0, 1));
    QPoint at = QPoint(line.x, line.y) * scale();
    for (PixelRun const& run : line.runs)
        for (int i = 0; i < run.count * scale(); ++i, at += step) {
            QRgb is = picture.valid(at) ? picture.pixel(at) & 0xFFFFFF : ~0u;
            if (is != run.color)
                return QString("(%1,%2) is %3 instead of %4")
                    .arg(at.x())
                    .arg(at.y())
                    .arg(hex(is), hex(run.color))
                    .toStdString();
        }
    return "";
}

} // namespace

TEST(PicturePixels, AreWhatThePagesNumbersSay)
{
    for (PixelLine const& line : pixelLines())
        EXPECT_EQ(fault(seen(pictureNamed(line.picture)), line), "")
            << line.picture << " from (" << line.x << "," << line.y << ") to the "
            << (line.direction == 'r' ? "right" : "bottom");
}
