// tests/controls/movie_test.cpp: reading AVI and AVZ files from memory, whole and broken ones.
#include "controls/guimovie.h"
#include "controls/readavi.h"
#include "tests/support/moviefile.h"

#include <gtest/gtest.h>

namespace {

struct Loaded
{
    explicit Loaded(QByteArray const& file)
        : result(loadVideo(file.constData(), static_cast<std::size_t>(file.size()), video))
    {}
    guiVideo video;
    int result;
};

/// A raw frame of 24 bits: bottom row first, each row padded to 4 bytes.
QByteArray raw(int size, char fill = '\x7F') { return QByteArray(size, fill); }

std::uint32_t nativeNumber(std::vector<unsigned char> const& bytes, std::size_t at)
{
    std::uint32_t value = 0;
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

} // namespace

TEST(ChunkNames, AreNumbersWithTheFirstCharacterOnTop)
{
    EXPECT_EQ(BuildFCC('R', 'I', 'F', 'F'), 0x52494646u);
    EXPECT_TRUE(EqualsFCC(BuildFCC(0, 0, 'd', 'b'), BuildFCC('0', '1', 'd', 'b')));
    EXPECT_TRUE(EqualsFCC(BuildFCC('0', '0', 'd', 'b'), BuildFCC(0, 0, 'd', 'b')));
    EXPECT_FALSE(EqualsFCC(BuildFCC(0, 0, 'd', 'b'), BuildFCC('0', '0', 'w', 'b')));
}

TEST(ByteStreams, GiveAllThatIsAskedForOrNothing)
{
    DataStream in("abcde", 5);
    char buffer[5] = "....";
    EXPECT_FALSE(in.read(buffer, 6));
    EXPECT_EQ(buffer[0], '.');
    EXPECT_TRUE(in.read(buffer, 3));
    EXPECT_EQ(in.getPos(), 3u);
    in.align();
    EXPECT_EQ(in.getPos(), 4u);
    in.setPos(99);
    EXPECT_EQ(in.getPos(), 5u);
    EXPECT_EQ(in.left(), 0u);
}

TEST(AvzFiles, HoldPicturesWithTheirDurations)
{
    Loaded movie(avz(avzFrame(100, png(4, 3, Qt::red)) + chunk("JUNK", "x") + avzFrame(50, png(4, 3, Qt::green)) +
                     avzFrame(7, png(5, 5, Qt::blue))));
    EXPECT_EQ(movie.result, 1);
    ASSERT_EQ(movie.video.frames.size(), 3u);
    EXPECT_EQ(movie.video.frames[0].duration, 100u);
    EXPECT_EQ(movie.video.frames[2].image.size(), QSize(5, 5));
    EXPECT_EQ(movie.video.frames[1].image.toImage().pixelColor(0, 0), QColor(0, 255, 0));
    EXPECT_TRUE(movie.video.audio.empty());
}

TEST(AvzFiles, HoldOneSound)
{
    Loaded movie(avz(chunk("audf", "first") + chunk("audf", "second")));
    EXPECT_EQ(movie.result, 1);
    EXPECT_EQ(std::string(movie.video.audio.begin(), movie.video.audio.end()), "first");
}

TEST(AvzFiles, EndAtAPictureThatIsNone)
{
    Loaded movie(avz(avzFrame(1, png(2, 2, Qt::red)) + avzFrame(1, "no picture") + avzFrame(1, png(2, 2, Qt::red))));
    EXPECT_EQ(movie.result, 1);
    EXPECT_EQ(movie.video.frames.size(), 1u);
    EXPECT_EQ(Loaded(avz(avzFrame(1, "no picture"))).result, 0);
    EXPECT_EQ(Loaded(avz("")).result, 0);
}

TEST(AviFiles, TakeFramesOfTheThreeDepths)
{
    Loaded bits24(avi(avih(2, 3, 2), chunk("00db", raw(24)) + chunk("01db", raw(24))));
    EXPECT_EQ(bits24.result, 1);
    ASSERT_EQ(bits24.video.frames.size(), 2u);
    EXPECT_EQ(bits24.video.frames[0].image.size(), QSize(3, 2));
    EXPECT_EQ(bits24.video.frames[0].image.toImage().pixelColor(2, 1), QColor(0x7F, 0x7F, 0x7F));
    EXPECT_EQ(bits24.video.frames[1].duration, 40u);
    EXPECT_EQ(Loaded(avi(avih(1, 3, 2), chunk("00db", raw(16)))).video.frames.size(), 1u); // 3 * 2, padded to 8
    EXPECT_EQ(Loaded(avi(avih(1, 5, 3), chunk("00db", raw(60)))).video.frames.size(), 1u); // 5 * 4
    for (int size : {23, 25, 18})
        EXPECT_EQ(Loaded(avi(avih(1, 3, 2), chunk("00db", raw(size)))).result, 0) << size;
}

TEST(AviFiles, NeedFramesAndASize)
{
    EXPECT_EQ(Loaded(avi(avih(0, 3, 2), chunk("00db", raw(24)))).result, 0);
    EXPECT_EQ(Loaded(avi(avih(1, 0, 2), chunk("00db", raw(24)))).result, 0);
    EXPECT_EQ(Loaded(avi(avih(1, 3, 0), chunk("00db", raw(24)))).result, 0);
    EXPECT_EQ(Loaded(avi(avih(1, 4000000000u, 1), chunk("00db", raw(24)))).result, 0);
    EXPECT_EQ(Loaded(avi("", chunk("00db", raw(24)))).result, 0);
    EXPECT_EQ(Loaded(chunk("RIFF", "WAVE")).result, 0);
    EXPECT_EQ(Loaded("").result, 0);
}

TEST(AviFiles, EndAtAChunkThatIsNeitherAFrameNorSound)
{
    Loaded movie(avi(avih(3, 3, 2), chunk("00db", raw(24)) + chunk("idx1", "") + chunk("00db", raw(24))));
    EXPECT_EQ(movie.video.frames.size(), 1u);
}

TEST(AviFiles, PutTheirSoundIntoAWavFile)
{
    Loaded movie(avi(avih(1, 3, 2) + audioStream("FORMAT"),
                     chunk("01wb", "one") + chunk("00db", raw(24)) + chunk("01wb", "two!")));
    ASSERT_EQ(movie.result, 1);
    std::vector<unsigned char> const& audio = movie.video.audio;
    EXPECT_EQ(std::string(audio.begin(), audio.begin() + 4), "RIFF");
    EXPECT_EQ(nativeNumber(audio, 4), audio.size() - 4);
    EXPECT_EQ(std::string(audio.begin() + 8, audio.begin() + 16), "WAVEfmt ");
    EXPECT_EQ(std::string(audio.begin() + 20, audio.begin() + 30), "FORMATdata");
    EXPECT_EQ(nativeNumber(audio, 30), 7u);
    EXPECT_EQ(std::string(audio.begin() + 34, audio.end()), "onetwo!");
    Loaded silent(avi(avih(1, 3, 2), chunk("01wb", "one") + chunk("00db", raw(24))));
    EXPECT_TRUE(silent.video.audio.empty());
    EXPECT_EQ(silent.video.frames.size(), 1u);
}

TEST(BrokenMovies, KeepWhatWasReadBeforeTheFault)
{
    QByteArray const whole = avi(avih(2, 3, 2), chunk("00db", raw(24)) + chunk("00db", raw(24)));
    QByteArray const pictures = avz(avzFrame(1, png(2, 2, Qt::red)) + avzFrame(1, png(2, 2, Qt::red)));
    for (QByteArray const& file : {whole, pictures}) {
        EXPECT_EQ(Loaded(file.left(file.size() - 1)).video.frames.size(), 1u);
        for (qsizetype size = 0; size < file.size(); ++size)
            EXPECT_LE(Loaded(file.left(size)).video.frames.size(), 1u) << size;
    }
}

TEST(BrokenMovies, SizesBeyondTheFileAreNotBelieved)
{
    QByteArray file = avi(avih(1, 3, 2) + audioStream("FORMAT"), chunk("00db", raw(24)));
    for (qsizetype at = 4; at + 4 <= file.size(); ++at) {
        QByteArray broken = file;
        broken.replace(at, 4, "\xFF\xFF\xFF\xFF");
        Loaded movie(broken);
        EXPECT_LE(movie.video.audio.size(), 64u) << at;
    }
}

TEST(MovieNames, AreThoseOfMoviesAndSounds)
{
    EXPECT_TRUE(guiMovie::isMovie("clip.AVZ"));
    EXPECT_TRUE(guiMovie::isMovie("a.wav"));
    EXPECT_FALSE(guiMovie::isMovie("a.png"));
    EXPECT_FALSE(guiMovie::isMovie("avi"));
}
