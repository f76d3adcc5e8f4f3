// controls/readavi.cpp: see readavi.h. The numbers in the files are little-endian.
#include "controls/readavi.h"

#include "controls/guipicturereader.h"
#include "foundation/vela-threadrole.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace {

constexpr unsigned kMaxSide = guiPictureReader::kMaxSide;
constexpr unsigned kRiff = BuildFCC('R', 'I', 'F', 'F');
constexpr unsigned kList = BuildFCC('L', 'I', 'S', 'T');

/// Adds a frame from the bytes of a picture file; false when they are none, or when no memory is left for it.
bool addFrame(guiVideo& video, unsigned char const* file, std::size_t size, unsigned duration)
{
    guiPictureReader reader(QByteArray::fromRawData(reinterpret_cast<char const*>(file), static_cast<qsizetype>(size)));
    QSize const pixels = reader.kind().size;
    if (pixels.isEmpty())
        return false;
    video.isCut = !video.memory.take(guiPictureReader::bytesOf(pixels));
    if (video.isCut)
        return false;
    QPixmap const image = reader.decode(pixels);
    if (image.isNull())
        return false;
    video.frames.push_back({image, duration});
    return true;
}

void append(std::vector<unsigned char>& to, void const* bytes, std::size_t count)
{
    if (count == 0)
        return;
    assert(bytes);
    std::size_t const end = to.size();
    to.resize(end + count);
    std::memcpy(to.data() + end, bytes, count);
}

void appendNumber(std::vector<unsigned char>& to, unsigned number, int bytes = 4)
{
    assert(bytes >= 1 && bytes <= 4);
    for (int i = 0; i < bytes; ++i)
        to.push_back(static_cast<unsigned char>(number >> 8 * i));
}

// ---- AVI ----

/// What is used of the main header.
struct aviHeader
{
    unsigned microseconds; // per frame
    unsigned width;
    unsigned height;
};

bool readAviHeader(DataStream& in, aviHeader* out)
{
    constexpr std::size_t kFields = 14;
    unsigned char bytes[4 * kFields] = {};
    riffChunk header;
    if (!readRiffChunk(in, &header) || header.id != BuildFCC('a', 'v', 'i', 'h') ||
        !in.read(bytes, std::min(header.size, sizeof bytes)))
        return false;
    skipRiffChunk(in, header);
    auto field = [&](int index) { return riffNumber(bytes + 4 * index); };
    *out = {field(0), field(8), field(9)};
    return field(4) != 0 && out->width != 0 && out->width <= kMaxSide && out->height != 0 && out->height <= kMaxSide;
}

/// The start of a WAV file in this format; endAudio() fills in its two sizes.
void beginAudio(DataStream& in, riffChunk const& format, std::vector<unsigned char>& audio)
{
    if (format.size > in.left() || !audio.empty())
        return;
    append(audio, "RIFF\0\0\0\0WAVEfmt ", 16);
    appendNumber(audio, static_cast<unsigned>(format.size));
    append(audio, in.here(), format.size);
    append(audio, "data\0\0\0\0", 8);
}

/// Fills in the sizes of the file and of its sound data, which begins at `dataStart`, in the byte order of this
/// machine.
void endAudio(std::vector<unsigned char>& audio, std::size_t dataStart)
{
    if (audio.empty())
        return;
    assert(dataStart >= 8 && dataStart <= audio.size());
    auto const whole = static_cast<std::uint32_t>(audio.size() - 4);
    auto const bytes = static_cast<std::uint32_t>(audio.size() - dataStart);
    std::memcpy(audio.data() + 4, &whole, sizeof whole);
    std::memcpy(audio.data() + dataStart - 4, &bytes, sizeof bytes);
}

void readStream(DataStream& in, riffChunk const& list, std::vector<unsigned char>& audio)
{
    bool isAudio = false;
    riffChunk part;
    while (in.getPos() < list.end() && readRiffChunk(in, &part)) {
        unsigned type = 0;
        if (part.id == BuildFCC('s', 't', 'r', 'h') && readRiffId(in, &type))
            isAudio = type == BuildFCC('a', 'u', 'd', 's');
        else if (part.id == BuildFCC('s', 't', 'r', 'f') && isAudio)
            beginAudio(in, part, audio);
        skipRiffChunk(in, part);
    }
}

bool readListType(DataStream& in, riffChunk const& part, unsigned wanted)
{
    unsigned type = 0;
    return part.id == kList && readRiffId(in, &type) && type == wanted;
}

void readStreams(DataStream& in, riffChunk const& headers, std::vector<unsigned char>& audio)
{
    riffChunk part;
    while (in.getPos() < headers.end() && readRiffChunk(in, &part)) {
        if (readListType(in, part, BuildFCC('s', 't', 'r', 'l')))
            readStream(in, part, audio);
        skipRiffChunk(in, part);
    }
}

/// Bits per pixel of a raw frame of `size` bytes, 0 when no number of bits gives that size.
unsigned bitsOf(std::size_t size, aviHeader const& header)
{
    auto rows = [&](std::size_t bytes) { return (header.width * bytes + 3) / 4 * 4 * header.height; };
    if (size == rows(3))
        return 24;
    if (size == rows(2))
        return 16;
    return size == std::size_t{header.width} * 4 * header.height ? 32 : 0;
}

/// The raw frame as a picture file that the toolkit can read.
std::vector<unsigned char> toBmp(unsigned char const* pixels, std::size_t size, aviHeader const& header, unsigned bits)
{
    assert(bits == 16 || bits == 24 || bits == 32);
    constexpr unsigned kHeaders = 54;
    std::vector<unsigned char> file;
    file.reserve(size + kHeaders);
    append(file, "BM", 2);
    appendNumber(file, static_cast<unsigned>(size) + kHeaders);
    appendNumber(file, 0);
    appendNumber(file, kHeaders);
    appendNumber(file, 40);
    appendNumber(file, header.width);
    appendNumber(file, header.height);
    appendNumber(file, 1, 2);
    appendNumber(file, bits, 2);
    for (unsigned number : {0u, 0u, 0u, 0u, 1u << bits % 32, 0u})
        appendNumber(file, number);
    append(file, pixels, size);
    return file;
}

bool readFrame(DataStream& in, riffChunk const& part, aviHeader const& header, guiVideo& video)
{
    unsigned const bits = part.size <= in.left() ? bitsOf(part.size, header) : 0;
    if (bits == 0)
        return false;
    std::vector<unsigned char> const file = toBmp(in.here(), part.size, header, bits);
    return addFrame(video, file.data(), file.size(), header.microseconds / 1000);
}

void readMovie(DataStream& in, aviHeader const& header, guiVideo& video)
{
    riffChunk part;
    while (readRiffChunk(in, &part)) {
        if (EqualsFCC(part.id, BuildFCC(0, 0, 'd', 'b'))) {
            if (!readFrame(in, part, header, video))
                return;
        } else if (!EqualsFCC(part.id, BuildFCC(0, 0, 'w', 'b')) || part.size > in.left()) {
            return;
        } else if (!video.audio.empty()) {
            append(video.audio, in.here(), part.size);
        }
        skipRiffChunk(in, part);
    }
}

bool loadVideo_avi(DataStream& in, guiVideo& video)
{
    riffChunk part;
    aviHeader header{};
    if (!readRiffChunk(in, &part) || !readListType(in, part, BuildFCC('h', 'd', 'r', 'l')) ||
        !readAviHeader(in, &header))
        return false;
    readStreams(in, part, video.audio);
    std::size_t const dataStart = video.audio.size();
    skipRiffChunk(in, part);
    while (readRiffChunk(in, &part)) {
        if (readListType(in, part, BuildFCC('m', 'o', 'v', 'i'))) {
            readMovie(in, header, video);
            break;
        }
        skipRiffChunk(in, part);
    }
    endAudio(video.audio, dataStart);
    return !video.audio.empty() || !video.frames.empty();
}

// ---- AVZ ----

bool readPicture(DataStream& in, riffChunk const& part, guiVideo& video)
{
    unsigned duration = 0;
    return part.size >= 4 && part.size <= in.left() && readRiffNumber(in, &duration) &&
           addFrame(video, in.here(), part.size - 4, duration);
}

bool loadVideo_avz(DataStream& in, guiVideo& video)
{
    riffChunk part;
    while (readRiffChunk(in, &part)) {
        if (part.id == BuildFCC('v', 'i', 'd', 'f') && !readPicture(in, part, video))
            break;
        if (part.id == BuildFCC('a', 'u', 'd', 'f') && video.audio.empty() && part.size <= in.left())
            append(video.audio, in.here(), part.size);
        skipRiffChunk(in, part);
    }
    return !video.audio.empty() || !video.frames.empty();
}

bool loadByForm(DataStream& in, guiVideo& video)
{
    riffChunk riff;
    unsigned form = 0;
    if (!readRiffChunk(in, &riff) || riff.id != kRiff || !readRiffId(in, &form))
        return false;
    if (form == BuildFCC('A', 'V', 'I', ' '))
        return loadVideo_avi(in, video);
    return form == BuildFCC('A', 'V', 'Z', ' ') && loadVideo_avz(in, video);
}

} // namespace

int loadVideo(void const* data, std::size_t size, guiVideo& video)
{
    assertOnGuiThread();
    video = {};
    DataStream in(data, size);
    if (loadByForm(in, video))
        return 1;
    video = {};
    return 0;
}
