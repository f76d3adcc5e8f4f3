// controls/readavi.h: reads movies from memory: AVI files of uncompressed frames with PCM sound, and AVZ files, RIFF
// files of ready-made pictures and one sound file. Nothing in a file is believed: every size is checked against the
// bytes that remain before anything is made of it.
#pragma once

#include <QPixmap>
#include <cstddef>
#include <vector>

/// One picture of a movie.
struct VideoFrame
{
    QPixmap image;
    unsigned duration = 0; ///< milliseconds that it stays on the screen
};

/// A read cursor over bytes that somebody else owns.
class DataStream
{
public:
    DataStream(void const* data, std::size_t size) : m_data(static_cast<unsigned char const*>(data)), m_size(size) {}

    /// Copies the next bytes; false, and nothing copied, when fewer remain.
    bool read(void* buffer, std::size_t count);
    std::size_t getPos() const { return m_pos; }
    /// Beyond the end is the end.
    void setPos(std::size_t pos) { m_pos = pos < m_size ? pos : m_size; }
    /// To an even position.
    void align() { setPos(m_pos + m_pos % 2); }
    std::size_t left() const { return m_size - m_pos; }
    unsigned char const* here() const { return m_data + m_pos; }

private:
    unsigned char const* m_data;
    std::size_t m_size;
    std::size_t m_pos = 0;
};

/// A chunk's name as a number, the first character in the highest byte.
constexpr unsigned BuildFCC(unsigned char a, unsigned char b, unsigned char c, unsigned char d)
{
    return static_cast<unsigned>(a) << 24 | static_cast<unsigned>(b) << 16 | static_cast<unsigned>(c) << 8 | d;
}
/// Whether two names are equal in every character that neither leaves open as 0.
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
};

/// Reads a movie. 1 when it has sound or at least one frame; else 0, and `video` is empty. A fault ends the reading,
/// what was read before it stays. GUI thread.
int loadVideo(void const* data, std::size_t size, guiVideo& video);
