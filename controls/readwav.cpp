// controls/readwav.cpp: see readwav.h. The layout is that of RIFF: after the twelve bytes of the file's own header the
// chunks "fmt ", which says how many bytes a second takes, and "data", the samples.
#include "controls/readwav.h"

#include "controls/readriff.h"

#include <algorithm>
#include <cstdint>

namespace {

constexpr std::size_t kFileHeader = 12;

/// Where the parts of a WAV file are; 0 where a part is missing.
struct wavParts
{
    std::size_t format = 0; // data of the chunk "fmt "
    std::size_t data = 0;   // data of the chunk "data"
    std::size_t end = 0;    // of the data
};

wavParts findParts(std::vector<unsigned char> const& file)
{
    constexpr std::size_t kFormat = 16;
    wavParts parts;
    DataStream in(file.data(), file.size());
    in.setPos(kFileHeader);
    for (riffChunk chunk; parts.data == 0 && readRiffChunk(in, &chunk); skipRiffChunk(in, chunk)) {
        chunk.size = std::min(chunk.size, in.left());
        if (chunk.id == BuildFCC('f', 'm', 't', ' ') && chunk.size >= kFormat)
            parts.format = chunk.data;
        if (chunk.id == BuildFCC('d', 'a', 't', 'a')) {
            parts.data = chunk.data;
            parts.end = chunk.end();
        }
    }
    return parts;
}

void putNumber(std::vector<unsigned char>& bytes, std::size_t at, std::size_t number)
{
    for (std::size_t i = 0; i < 4; ++i)
        bytes[at + i] = static_cast<unsigned char>(number >> 8 * i);
}

} // namespace

std::vector<unsigned char> guiSoundFrom(std::vector<unsigned char> const& file, std::chrono::milliseconds position)
{
    wavParts const parts = findParts(file);
    if (position.count() <= 0 || parts.format == 0 || parts.data == 0)
        return file;
    std::uint64_t const bytesPerSecond = riffNumber(&file[parts.format + 8]);
    std::size_t const block = std::max(1u, riffNumber(&file[parts.format + 12], 2));
    std::uint64_t const passed = static_cast<std::uint64_t>(position.count()) * bytesPerSecond / 1000;
    std::size_t const skipped = std::min<std::uint64_t>(passed / block * block, parts.end - parts.data);
    auto const at = [&file](std::size_t offset) { return file.begin() + static_cast<std::ptrdiff_t>(offset); };
    std::vector<unsigned char> rest(file.begin(), at(parts.data));
    rest.insert(rest.end(), at(parts.data + skipped), at(parts.end));
    putNumber(rest, 4, rest.size() - 8);
    putNumber(rest, parts.data - 4, parts.end - parts.data - skipped);
    return rest;
}
