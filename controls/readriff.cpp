// controls/readriff.cpp: see readriff.h.
#include "controls/readriff.h"

#include <cstring>

bool DataStream::read(void* buffer, std::size_t count)
{
    if (count > left())
        return false;
    std::memcpy(buffer, here(), count);
    m_pos += count;
    return true;
}

unsigned riffNumber(unsigned char const* bytes, int count)
{
    assert(count >= 1 && count <= 4);
    unsigned number = 0;
    for (int i = 0; i < count; ++i)
        number |= static_cast<unsigned>(bytes[i]) << 8 * i;
    return number;
}

bool readRiffId(DataStream& in, unsigned* id)
{
    unsigned char bytes[4];
    if (!in.read(bytes, sizeof bytes))
        return false;
    *id = BuildFCC(bytes[0], bytes[1], bytes[2], bytes[3]);
    return true;
}

bool readRiffNumber(DataStream& in, unsigned* number)
{
    unsigned char bytes[4];
    if (!in.read(bytes, sizeof bytes))
        return false;
    *number = riffNumber(bytes);
    return true;
}

bool readRiffChunk(DataStream& in, riffChunk* out)
{
    unsigned size = 0;
    if (!readRiffId(in, &out->id) || !readRiffNumber(in, &size))
        return false;
    out->data = in.getPos();
    out->size = size;
    return true;
}

void skipRiffChunk(DataStream& in, riffChunk const& done)
{
    in.setPos(done.end());
    in.align();
}
