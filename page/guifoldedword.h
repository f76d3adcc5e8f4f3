// page/guifoldedword.h: a short word of a page in lower case, for looking it up without making a string.
#pragma once

#include <string_view>

class guiFoldedWord
{
public:
    /// In units.
    static constexpr unsigned kLongest = 16;

    guiFoldedWord(unsigned short const* units, unsigned length)
    {
        if (length > kLongest)
            return;
        for (unsigned i = 0; i < length; ++i) {
            if (units[i] > 0x7F)
                return;
            bool const isUpper = units[i] >= 'A' && units[i] <= 'Z';
            m_letters[i] = static_cast<char>(isUpper ? units[i] + ('a' - 'A') : units[i]);
        }
        m_length = length;
    }

    /// The word; "" for one that is longer or not in ASCII. Valid as long as this.
    std::string_view view() const { return {m_letters, m_length}; }

private:
    char m_letters[kLongest] = {};
    unsigned m_length = 0;
};
