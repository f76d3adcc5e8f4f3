// controls/readriff.h: walks the chunks of a file in the RIFF layout (AVI, WAV): a name of four characters, a
// little-endian size, the data, and a byte more when their number is odd. Files are not trusted.
#pragma once

#include <cassert>
#include <cstddef>
#include <initializer_list>

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

/// A chunk as its header describes it. The data may be more than the file has.
struct riffChunk
{
    unsigned id = 0;
    std::size_t data = 0; // where its bytes begin
    std::size_t size = 0;

    std::size_t end() const { return data + size; }
};

/// The number in `count` little-endian bytes, 1 to 4.
unsigned riffNumber(unsigned char const* bytes, int count = 4);
/// Each reads what comes next; false when fewer bytes remain than it takes.
bool readRiffId(DataStream& in, unsigned* id);
bool readRiffNumber(DataStream& in, unsigned* number);
bool readRiffChunk(DataStream& in, riffChunk* out);
/// Goes to the next chunk.
void skipRiffChunk(DataStream& in, riffChunk const& done);
