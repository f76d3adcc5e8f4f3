// fuzz/stream.cpp: reading a text in any pieces, going back, closing and reopening, from memory or a file, gives the
// same units as reading it once; and these are the text in its code set.
//
// Input: the seed of the moves, the code set, whether and how far filler before the text moves it to the end of a
// chunk, then the text.

#include "foundation/vela-textstream.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"

#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include <sys/mman.h>
#include <unicode/ucnv.h>
#include <unistd.h>

namespace {

using Units = std::u16string;

/// The locales' code sets, and others that pages may declare; "" declares none.
char const* const kCodeSets[] = {"",       "utf-8",        "iso-8859-1", "shift_jis",   "euc-kr",  "gb2312",
                                 "big5",   "IBM-850",      "IBM-932",    "ksc_5601",    "GBK",     "koi8-r",
                                 "euc-jp", "windows-1252", "utf-7",      "iso-2022-jp", "gb18030", "no-such-set"};
constexpr unsigned kCodeSetCount = sizeof kCodeSets / sizeof *kCodeSets;
/// After the code sets: UTF-16 in both byte orders.
constexpr unsigned kEncodingCount = kCodeSetCount + 2;

struct Source
{
    std::string bytes;
    bool isExpected = false; // the units are known in advance
    Units expected;
};

Units withoutZeros(Units units)
{
    std::erase(units, u'\0');
    return units;
}

Units unitsOfPairs(std::string const& bytes, bool isBig)
{
    Units units;
    for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
        auto const first = static_cast<unsigned char>(bytes[i]);
        auto const second = static_cast<unsigned char>(bytes[i + 1]);
        units += static_cast<char16_t>(isBig ? first << 8 | second : second << 8 | first);
    }
    return units;
}

/// The text in a code set, if ICU can decode it without substitutions.
bool decodeStrictly(std::string const& bytes, char const* codeSet, Units& out)
{
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open(codeSet, &status);
    if (U_FAILURE(status))
        return false;
    ucnv_setToUCallBack(converter, UCNV_TO_U_CALLBACK_STOP, nullptr, nullptr, nullptr, &status);
    out.assign(bytes.size() * 2 + 16, 0);
    int const length = ucnv_toUChars(converter, out.data(), static_cast<int>(out.size()), bytes.data(),
                                     static_cast<int>(bytes.size()), &status);
    ucnv_close(converter);
    out.resize(U_SUCCESS(status) ? static_cast<size_t>(length) : 0);
    return U_SUCCESS(status);
}

/// Stateless code sets, for which chunks decode to the same units as the whole text.
bool isStateless(std::string const& codeSet)
{
    return codeSet == "utf-8" || codeSet == "iso-8859-1" || codeSet == "IBM-850" || codeSet == "koi8-r";
}

/// The size of the filler for a text that begins `before` units before the end of a chunk.
size_t filling(unsigned chunks, size_t before)
{
    return chunks == 1 || chunks == 2 ? chunks * size_t{tsCache::kChunkSize} - before : 0;
}

Source makeSource(FuzzBytes& input)
{
    unsigned const encoding = input.below(kEncodingCount);
    unsigned const chunks = input.below(8);
    unsigned const before = input.byte();
    Source source;
    if (encoding >= kCodeSetCount) {
        bool const isBig = encoding == kCodeSetCount;
        std::string const text = std::string(filling(chunks, before) * 2, 'a') + input.rest();
        source.expected = withoutZeros(unitsOfPairs(text, isBig));
        source.isExpected = true;
        source.bytes = (isBig ? "\xFE\xFF" : "\xFF\xFE") + text;
        return source;
    }
    std::string const codeSet = kCodeSets[encoding];
    std::string const declaration = codeSet.empty() ? "" : "<meta charset=\"" + codeSet + "\">";
    source.bytes = declaration + std::string(filling(chunks, before + declaration.size()), 'x') + input.rest();
    if (isStateless(codeSet) && source.bytes.find('\0') == std::string::npos)
        source.isExpected = decodeStrictly(source.bytes, codeSet.c_str(), source.expected);
    return source;
}

Units readStraight(textstream& stream)
{
    Units units;
    while (unsigned short unit = stream.pop())
        units += static_cast<char16_t>(unit);
    return units;
}

/// Moves around in a stream and compares every unit with the known text.
class Walker
{
public:
    Walker(textstream& stream, Units const& text, FuzzRandom& random) : m_stream(stream), m_text(text), m_random(random)
    {}

    void walk(unsigned steps)
    {
        for (unsigned i = 0; i < steps; ++i)
            step();
        m_stream.rewind();
        require(readStraight(m_stream) == m_text, "a second straight read differs");
    }

private:
    /// Mostly a few units, sometimes about a chunk.
    unsigned count() { return m_random.oneIn(8) ? m_random.below(20000) : m_random.below(30); }

    void step()
    {
        switch (m_random.below(10)) {
        case 0:
            return popOne();
        case 1:
            return readPart(false);
        case 2:
            return readPart(true);
        case 3:
            return advance();
        case 4:
            m_pushed.push_back(m_place);
            return m_stream.pushPos();
        case 5:
            return popPlace();
        case 6:
            m_kept.push_back({m_place, m_stream.getPos()});
            return;
        case 7:
            return goToKept();
        case 8:
            return reopen();
        default:
            return readRun();
        }
    }

    void popOne()
    {
        unsigned short const expected = m_place < m_text.size() ? m_text[m_place] : 0;
        require(m_stream.peek() == expected, "peek() sees another unit");
        require(m_stream.pop() == expected, "pop() gives another unit");
        m_place += expected != 0;
    }

    void readPart(bool isConsumed)
    {
        unsigned const wanted = count();
        std::vector<unsigned short> out(wanted + 1, 0xFFFF);
        unsigned const got = isConsumed ? m_stream.pop(out.data(), wanted) : m_stream.peek(out.data(), wanted);
        require(got == std::min<size_t>(wanted, m_text.size() - m_place), "another count of units was read");
        require(std::equal(out.begin(), out.begin() + got, m_text.begin() + static_cast<long>(m_place)),
                "other units were read");
        require(out[got] == 0, "the units read are not terminated");
        m_place += isConsumed ? got : 0;
    }

    void advance()
    {
        unsigned const wanted = count();
        unsigned const got = m_stream.advance(wanted);
        require(got == std::min<size_t>(wanted, m_text.size() - m_place), "advance() went another way");
        m_place += got;
    }

    void popPlace()
    {
        if (m_pushed.empty())
            return;
        m_stream.popPos();
        m_place = m_pushed.back();
        m_pushed.pop_back();
    }

    void goToKept()
    {
        if (m_kept.empty())
            return;
        Kept const& to = m_kept[m_random.below(static_cast<unsigned>(m_kept.size()))];
        m_stream.setPos(bookmark(to.mark.toString()));
        m_place = to.place;
    }

    void reopen()
    {
        m_stream.close();
        m_pushed.clear();
        require(m_stream.reopen() == 1, "the stream can not be opened again");
    }

    void readRun()
    {
        unsigned got = 0;
        unsigned short const* units = m_stream.peekRun(got);
        require((got == 0) == (m_place == m_text.size()), "peekRun() is empty before the end, or not at the end");
        require(got <= m_text.size() - m_place, "peekRun() gives more than there is");
        require(std::equal(units, units + got, m_text.begin() + static_cast<long>(m_place)), "peekRun() differs");
        unsigned const taken = got == 0 ? 0 : m_random.below(got + 1);
        m_stream.skipRun(taken);
        m_place += taken;
    }

    struct Kept
    {
        size_t place;
        bookmark mark;
    };

    textstream& m_stream;
    Units const& m_text;
    FuzzRandom& m_random;
    size_t m_place = 0;
    std::vector<size_t> m_pushed;
    std::vector<Kept> m_kept;
};

/// A file in memory.
class MemoryFile
{
public:
    explicit MemoryFile(std::string const& bytes) : m_descriptor(memfd_create("stream", 0))
    {
        require(write(m_descriptor, bytes.data(), bytes.size()) == static_cast<ssize_t>(bytes.size()), "no room");
    }
    ~MemoryFile() { close(m_descriptor); }
    MemoryFile(MemoryFile const&) = delete;
    MemoryFile& operator=(MemoryFile const&) = delete;
    sstring name() const { return sstring(("/proc/self/fd/" + std::to_string(m_descriptor)).c_str()); }

private:
    int m_descriptor;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    FuzzBytes input(bytes, size);
    FuzzRandom random(input.word());
    Source source = makeSource(input);
    // A copy of exactly that size, so that a sanitizer notices reads past the end.
    std::vector<unsigned char> memory(source.bytes.begin(), source.bytes.end());
    textstream straight(memory.data(), static_cast<unsigned>(memory.size()), 0);
    Units const text = readStraight(straight);
    if (source.isExpected && source.expected != text)
        finding("the stream reads other units than the code set says");

    textstream wandering(memory.data(), static_cast<unsigned>(memory.size()), 0);
    Walker(wandering, text, random).walk(30);

    MemoryFile file(source.bytes);
    textstream fromFile(file.name());
    Walker(fromFile, text, random).walk(10);
    return 0;
}
