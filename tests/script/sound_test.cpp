// tests/script/sound_test.cpp: the sound of movies, as the library that plays it hears of it. Each test runs in a
// process of its own, since a process loads one such library.
#include "controls/guihtmlimage.h"
#include "controls/guimovie.h"
#include "controls/guisound.h"
#include "controls/readwav.h"
#include "tests/script/controlscript.h"
#include "tests/support/moviefile.h"

#include <sstream>

namespace {

/// 8000 bytes a second of one channel: a byte for each of its samples.
QByteArray wav(QByteArray const& samples)
{
    QByteArray const format = QByteArray::fromHex("01000100401f0000401f000001000800");
    QByteArray const body = "WAVE" + chunk("fmt ", format) + chunk("data", samples);
    return "RIFF" + number(static_cast<std::uint32_t>(body.size())) + body;
}

constexpr qsizetype kHeaders = 44;

std::string soundLog() { return (fs::temp_directory_path() / ("sound-" + std::to_string(getpid()))).string(); }

class SoundScript : public ControlScript
{
protected:
    /// With a folder for temporary files of its own: other programs leave theirs in the common one.
    SoundScript()
    {
        setenv("TMPDIR", folder.c_str(), 1);
        useLibrary(TARN_FAKE_SOUND);
    }
    ~SoundScript() override { fs::remove(soundLog()); }

    static void useLibrary(char const* path)
    {
        setenv("TARN_SOUND", path, 1);
        setenv("TARN_FAKE_SOUND_LOG", soundLog().c_str(), 1);
        setenv("TMPDIR", fs::temp_directory_path().c_str(), 1);
    }

    static std::string heard()
    {
        std::ostringstream text;
        text << std::ifstream(soundLog()).rdbuf();
        return text.str();
    }

    bool hears(std::string const& all)
    {
        return host.serveUntil([&] { return heard() == all; }, 5s);
    }

    /// Files that are left in the folder for temporary ones.
    static int filesLeft()
    {
        int count = 0;
        for (auto const& entry : fs::directory_iterator(fs::temp_directory_path()))
            count += entry.path().filename().string().starts_with("tarn-") && entry.path().extension() == ".wav";
        return count;
    }

    void writeMovie(unsigned milliseconds, int frames = 2)
    {
        QByteArray chunks = chunk("audf", wav("soundZ"));
        for (int i = 0; i < frames; ++i)
            chunks += avzFrame(milliseconds, png(4, 4, Qt::red));
        write("m.avz", avz(chunks).toStdString());
    }

    void tell(void (guiMovie::*what)())
    {
        onGuiThread([this, what] { (const_cast<guiMovie*>(node<guiHtmlImage>("m").getMovie())->*what)(); });
    }
};

constexpr char kOpened[] = "open 600 50 Z\n";

} // namespace

TEST_F(SoundScript, OfAMovieBeginsWithItsFirstFrameAndEndsWithIt)
{
    writeMovie(100);
    open("<img name=m src=m.avz>");
    EXPECT_TRUE(host.serveUntil([] { return heard().starts_with(std::string(kOpened) + "play\n"); }, 5s));
    EXPECT_TRUE(hears(std::string(kOpened) + "play\nclose\n"));
    EXPECT_EQ(filesLeft(), 0);
}

TEST_F(SoundScript, OfALoopBeginsAnewWithEachRound)
{
    writeMovie(30);
    open("<img name=m src=m.avz loop>");
    EXPECT_TRUE(host.serveUntil([] { return heard().starts_with(std::string(kOpened) + "play\nplay\nplay\n"); }, 5s));
}

TEST_F(SoundScript, PausesWithItsMovieAndGoesOnWhereItWas)
{
    QByteArray const chunks = chunk("audf", wav(QByteArray(80'000, 'a') + "Z")) + avzFrame(60'000, png(4, 4, Qt::red));
    write("m.avz", avz(chunks).toStdString());
    open("<img name=m src=m.avz>");
    std::string const begun = "open 600 80046 \n"; // padded to an even number
    EXPECT_TRUE(host.serveUntil([] { return heard().ends_with("play\n"); }, 5s));
    host.serveUntil([] { return false; }, 300ms);
    tell(&guiMovie::pause);
    EXPECT_TRUE(host.serveUntil([] { return heard().ends_with("close\n"); }, 5s));
    std::string const before = heard();
    tell(&guiMovie::resume);
    EXPECT_TRUE(host.serveUntil([&] { return heard() != before && heard().ends_with("play\n"); }, 5s));
    long size = 0;
    ASSERT_EQ(std::sscanf(heard().substr(before.size()).c_str(), "open 600 %ld", &size), 1);
    EXPECT_LT(size, 80'045 - 2000); // a quarter of a second at least
    EXPECT_GT(size, 40'000);
}

TEST_F(SoundScript, IsFreedWithItsPage)
{
    writeMovie(60'000);
    NativeWindow window = open("<img name=m src=m.avz>");
    EXPECT_TRUE(hears(std::string(kOpened) + "play\n"));
    window.setText("");
    EXPECT_TRUE(hears(std::string(kOpened) + "play\nclose\n"));
}

TEST_F(SoundScript, OfAWavFileIsPlayedUntilItIsStopped)
{
    write("t.wav", wav("soundZ").toStdString());
    NativeWindow window = open("<img name=m src=t.wav>");
    EXPECT_TRUE(hears(std::string(kOpened) + "play\n"));
    EXPECT_FALSE(node<guiHtmlImage>("m").getMovie()->isPlaying()); // nothing is left to be shown
    window.close();
    EXPECT_TRUE(hears(std::string(kOpened) + "play\nclose\n"));
}

TEST_F(SoundScript, LeavesNoFileBehindWhenTheLibraryDoes)
{
    setenv("TARN_FAKE_SOUND_KEEPS", "1", 1);
    int const before = filesLeft();
    writeMovie(60'000);
    NativeWindow window = open("<img name=m src=m.avz>");
    EXPECT_TRUE(hears(std::string(kOpened) + "play\n"));
    EXPECT_EQ(filesLeft(), before + 1);
    window.setText("");
    EXPECT_EQ(filesLeft(), before);
}

TEST_F(SoundScript, IsMissingInOneLineWithoutTheLibrary)
{
    useLibrary("/nowhere/libtarn-sound.so");
    writeMovie(20);
    testing::internal::CaptureStderr();
    NativeWindow window = open("<img name=m src=m.avz loop>");
    host.serveUntil([] { return false; }, 200ms);
    EXPECT_EQ(
        testing::internal::GetCapturedStderr(),
        "guiSound::play() - movies are silent; /nowhere/libtarn-sound.so: cannot open shared object file: No such "
        "file or directory\n");
    EXPECT_TRUE(node<guiHtmlImage>("m").getMovie()->isPlaying());
}

TEST_F(SoundScript, OfTheRealLibraryIsPlayedOrIsMissingInOneLine)
{
    useLibrary(TARN_REAL_SOUND);
    if (!fs::exists(TARN_REAL_SOUND))
        GTEST_SKIP() << "built without the toolkit's multimedia library";
    int const before = filesLeft();
    writeMovie(50, 6);
    testing::internal::CaptureStderr();
    NativeWindow window = open("<img name=m src=m.avz loop>");
    host.serveUntil([] { return false; }, 1s);
    std::string const line = testing::internal::GetCapturedStderr();
    EXPECT_TRUE(line.empty() || line == "guiSound::play() - movies are silent; there is no audio device\n") << line;
    EXPECT_TRUE(node<guiHtmlImage>("m").getMovie()->isPlaying());
    window.setText("");
    EXPECT_EQ(filesLeft(), before);
}

TEST(SoundParts, BeginAtAWholeSampleAndKeepTheFormat)
{
    QByteArray const file = wav("0123456789");
    std::vector<unsigned char> const bytes(file.begin(), file.end());
    auto restAt = [&bytes](std::chrono::microseconds at) {
        std::vector<unsigned char> const rest =
            guiSoundFrom(bytes, std::chrono::duration_cast<std::chrono::milliseconds>(at));
        return std::string(rest.begin(), rest.end());
    };
    EXPECT_EQ(restAt(0ms), file.toStdString());
    EXPECT_EQ(restAt(1ms), wav("89").toStdString());
    EXPECT_EQ(restAt(10s).size(), static_cast<std::size_t>(kHeaders));
    std::vector<unsigned char> const broken(bytes.begin(), bytes.begin() + 30);
    EXPECT_EQ(guiSoundFrom(broken, 5ms), broken);
    for (std::size_t size = 0; size < bytes.size(); ++size)
        EXPECT_LE(guiSoundFrom({bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)}, 1ms).size(), size);
}
