// fuzz/bytes.h: reads numbers and choices from the bytes of an input, and makes random numbers that depend only on the
// input.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Reads an input from the front. Past the end every byte is 0, so that every input is valid.
class FuzzBytes
{
public:
    FuzzBytes(uint8_t const* bytes, size_t size) : m_at(bytes), m_end(bytes + size) {}

    bool isEmpty() const { return m_at == m_end; }
    uint8_t byte() { return isEmpty() ? uint8_t{0} : *m_at++; }
    unsigned word() { return byte() * 256u + byte(); }
    /// A number from 0 to bound - 1; bound is 1 to 65536.
    unsigned below(unsigned bound) { return (bound <= 256 ? byte() : word()) % bound; }
    bool flag() { return byte() & 1; }
    /// The next `length` bytes, or as many as are left.
    std::string text(size_t length)
    {
        size_t const count = std::min(length, static_cast<size_t>(m_end - m_at));
        std::string taken(reinterpret_cast<char const*>(m_at), count);
        m_at += count;
        return taken;
    }
    std::string rest() { return text(static_cast<size_t>(m_end - m_at)); }

private:
    uint8_t const* m_at;
    uint8_t const* m_end;
};

/// Random numbers with the input itself as their seed, so that the whole input can be readable text. The generator is
/// Marsaglia's xorshift (Journal of Statistical Software 8, 2003), the seed the FNV-1a hash.
class FuzzRandom
{
public:
    explicit FuzzRandom(std::string_view input)
    {
        for (char c : input)
            m_state = (m_state ^ static_cast<uint8_t>(c)) * 0x100000001B3u;
        m_state |= 1;
    }
    explicit FuzzRandom(unsigned seed) : m_state(seed * 0x9E3779B97F4A7C15u | 1) {}

    unsigned next()
    {
        m_state ^= m_state << 13;
        m_state ^= m_state >> 7;
        m_state ^= m_state << 17;
        return static_cast<unsigned>(m_state >> 32);
    }
    unsigned below(unsigned bound) { return next() % bound; }
    bool oneIn(unsigned bound) { return below(bound) == 0; }

private:
    uint64_t m_state = 0xCBF29CE484222325u;
};
