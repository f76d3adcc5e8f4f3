// fuzz/bytes.h: the bytes of one input as numbers and choices, and random numbers that depend on an input alone.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

/// Reads an input from its front. Behind the end everything is 0, so that every input means something.
class FuzzBytes
{
public:
    FuzzBytes(uint8_t const* bytes, size_t size) : at_(bytes), end_(bytes + size) {}

    bool isEmpty() const { return at_ == end_; }
    uint8_t byte() { return isEmpty() ? uint8_t{0} : *at_++; }
    unsigned word() { return byte() * 256u + byte(); }
    /// 0 to bound - 1; bound is 1 to 65536.
    unsigned below(unsigned bound) { return (bound <= 256 ? byte() : word()) % bound; }
    bool flag() { return byte() & 1; }
    /// Up to `length` bytes.
    std::string text(size_t length)
    {
        size_t const count = std::min(length, static_cast<size_t>(end_ - at_));
        std::string taken(reinterpret_cast<char const*>(at_), count);
        at_ += count;
        return taken;
    }
    std::string rest() { return text(static_cast<size_t>(end_ - at_)); }

private:
    uint8_t const* at_;
    uint8_t const* end_;
};

/// Random numbers whose seed is the input itself: the whole input can then be readable text. The generator is
/// Marsaglia's xorshift (Journal of Statistical Software 8, 2003), the seed the FNV-1a hash.
class FuzzRandom
{
public:
    explicit FuzzRandom(std::string_view input)
    {
        for (char c : input)
            state_ = (state_ ^ static_cast<uint8_t>(c)) * 0x100000001B3u;
        state_ |= 1;
    }
    explicit FuzzRandom(unsigned seed) : state_(seed * 0x9E3779B97F4A7C15u | 1) {}

    unsigned next()
    {
        state_ ^= state_ << 13;
        state_ ^= state_ >> 7;
        state_ ^= state_ << 17;
        return static_cast<unsigned>(state_ >> 32);
    }
    unsigned below(unsigned bound) { return next() % bound; }
    bool oneIn(unsigned bound) { return below(bound) == 0; }

private:
    uint64_t state_ = 0xCBF29CE484222325u;
};
