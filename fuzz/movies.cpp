// fuzz/movies.cpp: any bytes as a movie. The result is never larger than the bytes allow, and a truncated file has no
// frame that the whole file lacks.

#include "controls/readavi.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"
#include "fuzz/qtapplication.h"

namespace {

constexpr std::size_t kWavHeaders = 64;
constexpr std::size_t kMaxDecoded = std::size_t{512} << 20; // bytes

guiVideo load(uint8_t const* bytes, size_t size)
{
    guiVideo video;
    int const result = loadVideo(bytes, size, video);
    require(result == 0 || result == 1, "a result that is neither 0 nor 1");
    require((result == 1) == (!video.frames.empty() || !video.audio.empty()), "the result is not what was read");
    return video;
}

void check(guiVideo const& video, size_t size)
{
    std::size_t decoded = 0;
    for (VideoFrame const& frame : video.frames) {
        require(!frame.image.isNull(), "a frame without a picture");
        decoded += static_cast<std::size_t>(frame.image.width()) * static_cast<std::size_t>(frame.image.height()) * 4;
    }
    require(decoded <= kMaxDecoded, "frames take more memory than they may");
    // A format chunk that extends beyond its list may still contain valid bytes.
    require(video.audio.size() <= 2 * size + kWavHeaders, "more sound than there are bytes");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    startQt();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    guiVideo const whole = load(bytes, size);
    check(whole, size);
    size_t const cut =
        size ? FuzzRandom(std::string_view(reinterpret_cast<char const*>(bytes), size)).next() % size : 0;
    guiVideo const part = load(bytes, cut);
    check(part, cut);
    require(part.frames.size() <= whole.frames.size(), "a file that is cut off has more frames");
    for (size_t i = 0; i < part.frames.size(); ++i)
        require(part.frames[i].duration == whole.frames[i].duration &&
                    part.frames[i].image.size() == whole.frames[i].image.size(),
                "a file that is cut off has other frames");
    return 0;
}
