// tests/support/repeated.h: long texts.
#pragma once

#include <cstddef>
#include <string>

inline std::string repeated(std::string const& text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}
