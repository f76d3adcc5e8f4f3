// tests/foundation/streams.h: sources for streams, and text that assertions can compare and print.
#pragma once

#include "foundation/vela-textstream.h"
#include "tests/foundation/strings.h"

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <unistd.h>

/// A stream with the bytes that it reads.
class MemorySource
{
public:
    explicit MemorySource(std::string bytes) : m_data(bytes.begin(), bytes.end())
    {
        m_data.push_back(0);
        m_stream = std::make_unique<textstream>(m_data.data(), static_cast<unsigned int>(bytes.size()), 0);
    }
    textstream* operator->() { return m_stream.get(); }
    textstream* get() { return m_stream.get(); }

private:
    std::vector<unsigned char> m_data;
    std::unique_ptr<textstream> m_stream;
};

/// A file that is deleted at the end of the test.
class TemporaryFile
{
public:
    explicit TemporaryFile(std::string const& bytes)
    {
        char pattern[] = "/tmp/tarn-stream-XXXXXX";
        int const descriptor = mkstemp(pattern);
        m_path = pattern;
        EXPECT_EQ(write(descriptor, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        close(descriptor);
    }
    ~TemporaryFile() { unlink(m_path.c_str()); }
    TemporaryFile(TemporaryFile const&) = delete;
    TemporaryFile& operator=(TemporaryFile const&) = delete;
    sstring name() const { return sstring(m_path.c_str()); }

private:
    std::string m_path;
};

inline std::u16string text16(sstring const& text)
{
    return std::u16string(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength());
}

/// UTF-8, so that failed assertions are legible.
inline std::string text8(std::u16string const& units)
{
    std::string out;
    for (size_t i = 0; i < units.size(); ++i) {
        unsigned long code = units[i];
        if (code >= 0xD800 && code < 0xDC00 && i + 1 < units.size())
            code = 0x10000 + ((code - 0xD800) << 10) + (units[++i] - 0xDC00u);
        if (code < 0x80)
            out += static_cast<char>(code);
        else if (code < 0x800)
            out += {static_cast<char>(0xC0 | code >> 6), static_cast<char>(0x80 | (code & 0x3F))};
        else if (code < 0x10000)
            out += {static_cast<char>(0xE0 | code >> 12), static_cast<char>(0x80 | (code >> 6 & 0x3F)),
                    static_cast<char>(0x80 | (code & 0x3F))};
        else
            out += {static_cast<char>(0xF0 | code >> 18), static_cast<char>(0x80 | (code >> 12 & 0x3F)),
                    static_cast<char>(0x80 | (code >> 6 & 0x3F)), static_cast<char>(0x80 | (code & 0x3F))};
    }
    return out;
}
inline std::string text8(sstring const& text) { return text8(text16(text)); }

/// The bytes of UTF-16 text with a byte-order mark.
inline std::string utf16Bytes(std::u16string const& units, bool isBig)
{
    std::string out = isBig ? "\xFE\xFF" : "\xFF\xFE";
    for (char16_t unit : units) {
        char const high = static_cast<char>(unit >> 8);
        char const low = static_cast<char>(unit & 0xFF);
        out += isBig ? high : low;
        out += isBig ? low : high;
    }
    return out;
}

inline std::u16string allUnits(textstream& stream)
{
    std::u16string units;
    while (unsigned short unit = stream.pop())
        units += static_cast<char16_t>(unit);
    return units;
}

/// The code of the velaError that `action` throws; 0 if it throws none.
template <class Action>
int errorOf(Action action)
{
    try {
        action();
    } catch (velaError const& error) {
        return error.getCode();
    }
    return 0;
}
