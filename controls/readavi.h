// controls/readavi.h: reads movies from memory: AVI files of uncompressed frames with PCM sound, and AVZ files, which
// are RIFF files of picture files and one sound file. Files are not trusted: every size is checked against the bytes
// that are left before it is used.
#pragma once

#include "controls/guipicturememory.h"

#include <QPixmap>
#include <cassert>
#include <cstddef>
#include <vector>

/// One picture of a movie.
struct VideoFrame
{
    QPixmap image;
    unsigned duration = 0; ///< milliseconds that it stays on the screen
};

/// A read cursor over bytes that the caller owns. The position is never behind the end.
class DataStream
{
public:
    DataStream(void const* data, std::size_t size) : m_data(static_cast<unsigned char const*>(data)), m_size(size) {}

    /// Copies the next bytes; false, and nothing copied, when fewer remain.
    bool read(void* buffer, std::size_t count);
    std::size_t getPos() const { return m_pos; }
    /// A position behind the end counts as the end.
    void setPos(std::size_t pos) { m_pos = pos < m_size ? pos : m_size; }
    /// To an even position.
    void align() { setPos(m_pos + m_pos % 2); }
    std::size_t left() const
    {
        assert(m_pos <= m_size);
        return m_size - m_pos;
    }
    unsigned char const* here() const { return m_data + m_pos; }

private:
    unsigned char const* m_data; // not owned
    std::size_t m_size;
    std::size_t m_pos = 0;
};

/// The name of a chunk as a number, the first character in the highest byte.
constexpr unsigned BuildFCC(unsigned char a, unsigned char b, unsigned char c, unsigned char d)
{
    return static_cast<unsigned>(a) << 24 | static_cast<unsigned>(b) << 16 | static_cast<unsigned>(c) << 8 | d;
}
/// Whether two names are equal; a character 0 matches any other.
constexpr bool EqualsFCC(unsigned x, unsigned y)
{
    for (unsigned mask : {0xFF000000u, 0xFF0000u, 0xFF00u, 0xFFu})
        if ((x & mask) && (y & mask) && (x & mask) != (y & mask))
            return false;
    return true;
}

/// What a movie holds.
struct guiVideo
{
    std::vector<unsigned char> audio; ///< a WAV file; empty without sound
    std::vector<VideoFrame> frames;
    guiPictureMemory memory; ///< that of the frames
    bool isCut = false;      ///< there was no memory left for the other frames
};

/// Reads a movie. 1 when it has sound or at least one frame; else 0, and `video` is empty. Reading ends at the first
/// error; what comes before it is kept. GUI thread.
int loadVideo(void const* data, std::size_t size, guiVideo& video);
