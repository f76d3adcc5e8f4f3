// foundation/vela-string.h: the text type of the whole system. A string keeps 16-bit code units and renders them as
// 8-bit text on request, in the code set of its locale. This header alone also brings the C-string functions
// (vela-string-c.h) and the conversions between the two flavours (vela-string-convert.h).
#pragma once

#include "foundation/vela-string-c.h"
#include "foundation/vela-string-convert.h"

#include <cstdarg>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <type_traits>

struct LOCALE;
class istring;

// The four comparisons are the only virtual operations, so the destructor is not one of them: nobody deletes a derived
// string through a pointer to its base.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Text of 16-bit code units, zero-terminated, always with a length below 2^31. Positions, lengths and counts are code
/// units.
///
/// One string belongs to one thread at a time: even const reads may grow a buffer. Every operation that needs memory
/// throws velaError 12 when there is none, or when the text would pass 2^31 units; nothing else fails. A null pointer
/// given as text is an empty text.
class sstring
{
public:
    /// As a count: up to the terminator. As a result: not found. As a limit: no limit.
    static constexpr unsigned int npos = 0xFFFFFFFF;

    /// How many hits replace() works on: 0 is every one, any other value only the first.
    enum ReplaceHowMany : int
    {
        kReplaceAll = 0,
        kReplaceFirst = 1
    };

    /// An empty string; it owns a buffer.
    sstring() { setSize(1); }
    /// `count` units of the text from position `start` on. 8-bit text is converted in the process default locale first,
    /// so start and count index the converted text.
    sstring(char const* text, unsigned int start = 0, unsigned int count = npos) : sstring(NoBuffer{})
    {
        set(text, start, count);
    }
    sstring(unsigned char const* text, unsigned int start = 0, unsigned int count = npos) : sstring(NoBuffer{})
    {
        set(text, start, count);
    }
    sstring(unsigned short const* text, unsigned int start = 0, unsigned int count = npos) : sstring(NoBuffer{})
    {
        set(text, start, count);
    }
    /// Also copies the locale. A range that leaves the other text is cut at its end.
    sstring(sstring const& other, unsigned int start = 0, unsigned int count = npos);
    /// Takes everything over; the other string is empty afterwards, without a buffer until the next write.
    sstring(sstring&& other) noexcept { swap(other); }
    ~sstring();

    sstring& operator=(char const* text) { return set(text); }
    sstring& operator=(unsigned char const* text) { return set(text); }
    sstring& operator=(unsigned short const* text) { return set(text); }
    /// Also copies the locale.
    sstring& operator=(sstring const& other);
    sstring& operator=(sstring&& other) noexcept
    {
        swap(other);
        return *this;
    }
    /// The number in decimal digits, as "%ld" prints it.
    sstring& operator=(int number);
    /// The address as "0x%08lX" prints it.
    sstring& operator=(void const* address);
    sstring& operator=(char16_t const* text) = delete; // would be taken for an address: cast to unsigned short const*

    /// Exchanges text, buffers and locale with the other string; no unit is copied.
    void swap(sstring& other) noexcept;

    // Reading. Pointers are into buffers of this string and valid until its next change; nothing handed out is to be
    // freed.

    /// Length in code units, without the terminator.
    unsigned int getLength() const { return m_length; }
    /// The text itself, zero-terminated.
    unsigned short* getUnicode() const { return m_wideBuffer; }
    unsigned short* toUnicode() const { return m_wideBuffer; }
    operator unsigned short*() const { return m_wideBuffer; }
    /// Address of unit `index`; makes room for that many units first.
    unsigned short* getUnicodeAt(unsigned int index) const
    {
        setSize(index);
        return m_wideBuffer + index;
    }

    /// The text in the 8-bit code set of the string's locale, zero-terminated, converted anew by each request. Valid
    /// until the next 8-bit request on this string.
    unsigned char* getAnsi() const { return getAnsiAt(0); }
    unsigned char* toAnsi() const { return getAnsiAt(0); }
    char* c_str() const { return reinterpret_cast<char*>(getAnsiAt(0)); }
    operator char*() const { return c_str(); }
    operator unsigned char*() const { return getAnsiAt(0); }
    /// The same from unit `index` on; empty when the text ends before.
    unsigned char* getAnsiAt(unsigned int index) const;

    /// The text's buffer with room for `units` units, for direct writing. The length is not updated; assign the buffer
    /// to the string when done: `s = s.getUnicode()`.
    unsigned short* getBuffer(unsigned int units)
    {
        setSize(units);
        return m_wideBuffer;
    }

    /// Unit `index`. One beyond the length makes room for it instead of failing; what stands there is not part of the
    /// text.
    unsigned short& operator[](int index) { return *getUnicodeAt(static_cast<unsigned int>(index)); }
    unsigned short& operator[](unsigned int index) { return *getUnicodeAt(index); }
    unsigned short const& operator[](int index) const { return *getUnicodeAt(static_cast<unsigned int>(index)); }
    unsigned short const& operator[](unsigned int index) const { return *getUnicodeAt(index); }

    /// The number that the text begins with, 0 when there is none.
    operator int() const { return static_cast<int>(atol16(m_wideBuffer)); }
    /// True for an empty text.
    bool operator!() const { return m_wideBuffer[0] == 0; }

    /// The string's own locale or, when it has none, the process default. Not for the caller to destroy.
    LOCALE* getLocale() const;
    /// Takes a copy, or none when `locale` is null or the process default. Returns the locale now in effect.
    LOCALE* setLocale(LOCALE* locale);

    // Writing.

    /// Makes `count` units of the text, from `start` on, the content. The same as setAt() with position 0.
    sstring& set(char const* text, unsigned int start = 0, unsigned int count = npos);
    sstring& set(unsigned char const* text, unsigned int start = 0, unsigned int count = npos);
    sstring& set(unsigned short const* text, unsigned int start = 0, unsigned int count = npos);
    /// Takes the text, not the locale. A range that leaves the other text is cut at its end.
    sstring& set(sstring const& text, unsigned int start = 0, unsigned int count = npos);

    /// Writes `count` units of the text, from `start` on, at position `pos`; a gap before `pos` is filled with spaces.
    /// A count of npos writes the rest of the text and ends the string behind it. An explicit count that ends inside
    /// the string overwrites in place and leaves the length alone. The text may be a part of this string.
    void setAt(unsigned int pos, char const* text, unsigned int start = 0, unsigned int count = npos);
    void setAt(unsigned int pos, unsigned char const* text, unsigned int start = 0, unsigned int count = npos);
    void setAt(unsigned int pos, unsigned short const* text, unsigned int start = 0, unsigned int count = npos);
    void setAt(unsigned int pos, sstring const& text, unsigned int start = 0, unsigned int count = npos);

    sstring& append(char const* text);
    sstring& append(unsigned char const* text);
    inline sstring& append(unsigned short const* text);
    sstring& append(sstring const& text) { return append(text.m_wideBuffer); }
    sstring& append(int number);
    sstring& append(void const* address);
    sstring& append(char16_t const* text) = delete;

    sstring& operator+=(sstring const& other) { return append(other.m_wideBuffer); }
    sstring& operator+=(char const* text) { return append(text); }
    sstring& operator+=(unsigned char const* text) { return append(text); }
    sstring& operator+=(unsigned short const* text) { return append(text); }
    /// One 8-bit character, converted.
    sstring& operator+=(char character) { return *this += static_cast<unsigned char>(character); }
    sstring& operator+=(unsigned char character);
    /// One code unit, as it is.
    inline sstring& operator+=(unsigned short unit);
    sstring& operator+=(int number) { return append(number); }
    sstring& operator+=(void const* address) { return append(address); }
    sstring& operator+=(char16_t unit) = delete; // would be taken for a number: cast to unsigned short
    sstring& operator+=(char16_t const* text) = delete;

    sstring operator+(sstring const& other) const { return joined(other); }
    sstring operator+(char const* text) const { return joined(text); }
    sstring operator+(unsigned char const* text) const { return joined(text); }
    sstring operator+(unsigned short const* text) const { return joined(text); }
    // Pointers to writable text once more: without them the conversion to int would offer pointer arithmetic as well.
    sstring operator+(char* text) const { return joined(text); }
    sstring operator+(unsigned char* text) const { return joined(text); }
    sstring operator+(unsigned short* text) const { return joined(text); }
    sstring operator+(char character) const { return joined(character); }
    sstring operator+(unsigned char character) const { return joined(character); }
    sstring operator+(unsigned short unit) const { return joined(unit); }
    sstring operator+(int number) const { return joined(number); }
    sstring operator+(void const* address) const { return joined(address); }
    sstring operator+(char16_t unit) const = delete;
    sstring operator+(char16_t const* text) const = delete;

    /// Appends `copies` copies of the present text to this string itself, which then holds copies + 1 of them.
    sstring& operator*(int copies);

    /// A new string with `count` units from `start` on, cut at the end of the text, in the same locale.
    sstring subString(unsigned int start, unsigned int count = npos) const { return sstring(*this, start, count); }

    /// Puts `with` in the place of the `count` units at `pos` (both cut at the end of the text). Returns the new
    /// length.
    unsigned int replace(unsigned int pos, unsigned int count, sstring const& with);
    /// Puts `to` in the place of `from`, at every hit or only the first, from left to right; what was put in is not
    /// searched again. Nothing is done for an empty `from`. Returns the new length. Takes time in proportion to the
    /// text.
    unsigned int replace(sstring const& from, sstring const& to, ReplaceHowMany howMany = kReplaceAll);
    unsigned int replace(unsigned char const* from, unsigned char const* to, ReplaceHowMany howMany = kReplaceAll);
    unsigned int replace(unsigned short const* from, unsigned short const* to, ReplaceHowMany howMany = kReplaceAll);

    /// Room for n units in the text's buffer, n bytes in the 8-bit cache, n units in the scratch buffer. Nothing
    /// happens when n + 16 fits; otherwise the buffer becomes n + 16, rounded up to a multiple of the text's length,
    /// which counts as at least 32 and at most 1,048,576.
    void setSize(unsigned int units) const
    {
        if (uint64_t{units} + kHeadroom > m_wideCapacity)
            growWide(units);
    }
    void setSizeA(unsigned int bytes) const;
    void setSizeW(unsigned int units) const;
    /// What the three buffers hold at present, in units, bytes, units.
    unsigned int getCapacity() const { return m_wideCapacity; }
    unsigned int getCapacityA() const { return m_ansiCapacity; }
    unsigned int getCapacityW() const { return m_scratchCapacity; }

    /// Sets the tare flag, which nothing here reads.
    void tare() { m_tareFlag = 1; }
    unsigned int isTare() const { return m_tareFlag; }

    // Searching. Positions are code units; npos when absent.

    /// First occurrence at or after `from`. An empty text is found at `from`.
    unsigned int find(unsigned short unit, unsigned int from = 0) const;
    unsigned int find(sstring const& text, unsigned int from = 0) const;
    /// First unit at or after `from` that is, or is not, one of `set`.
    unsigned int find_any(sstring const& set, unsigned int from = 0) const;
    unsigned int find_none(sstring const& set, unsigned int from = 0) const;
    /// Last occurrence whose position does not exceed `limit`.
    unsigned int rfind(unsigned short unit, unsigned int limit = npos) const;
    unsigned int rfind(sstring const& text, unsigned int limit = npos) const;
    unsigned int rfind_any(sstring const& set, unsigned int limit = npos) const;
    unsigned int rfind_none(sstring const& set, unsigned int limit = npos) const;

    /// First and last occurrence as a pointer into the text, null when absent. A unit of 0 finds the terminator.
    unsigned short* strchr(unsigned short unit) const;
    unsigned short* strrchr(unsigned short unit) const;
    /// First and last occurrence of the first `count` units of the text (npos: all), null when absent.
    unsigned short* strstr(char const* text, unsigned int count = npos) const;
    unsigned short* strstr(unsigned char const* text, unsigned int count = npos) const;
    unsigned short* strstr(unsigned short const* text, unsigned int count = npos) const;
    unsigned short* strstr(sstring const& text, unsigned int count = npos) const;
    unsigned short* strrstr(char const* text, unsigned int count = npos) const;
    unsigned short* strrstr(unsigned char const* text, unsigned int count = npos) const;
    unsigned short* strrstr(unsigned short const* text, unsigned int count = npos) const;
    unsigned short* strrstr(sstring const& text, unsigned int count = npos) const;

    /// The tail of the text from the first occurrence on; empty when absent.
    sstring operator%(char character) const;
    sstring operator%(sstring const& text) const { return tailFrom(find(text)); }
    sstring operator%(char const* text) const { return tailFrom(find(inMyLocale(bytes(text)))); }
    sstring operator%(unsigned char const* text) const { return tailFrom(find(inMyLocale(text))); }
    sstring operator%(unsigned short const* text) const { return tailFrom(find(sstring(text))); }
    /// The tail of the text from the last occurrence on; empty when absent.
    sstring operator^(char character) const;
    sstring operator^(sstring const& text) const { return tailFrom(rfind(text)); }
    sstring operator^(char const* text) const { return tailFrom(rfind(inMyLocale(bytes(text)))); }
    sstring operator^(unsigned char const* text) const { return tailFrom(rfind(inMyLocale(text))); }
    sstring operator^(unsigned short const* text) const { return tailFrom(rfind(sstring(text))); }

    // Comparing. Negative, zero or positive as this text stands before, equals or stands behind the argument; at most
    // `count` units count. The `i` forms fold case as tolower16() does. 8-bit arguments are converted in the string's
    // locale.

    virtual int compare(unsigned char const* text, unsigned int count) const;
    virtual int compare(unsigned short const* text, unsigned int count) const;
    virtual int comparei(unsigned char const* text, unsigned int count) const;
    virtual int comparei(unsigned short const* text, unsigned int count) const;
    int compare(sstring const& text, unsigned int count) const { return compare(text.m_wideBuffer, count); }
    int comparei(sstring const& text, unsigned int count) const { return comparei(text.m_wideBuffer, count); }

    /// The six comparison operators: with text through the virtual compare(), with an istring without regard to case,
    /// with an int as numbers. Pointers to writable text have their own, or built-in pointer comparison would compete.
#define TARN_COMPARISON(op)                                                                                            \
    bool operator op(sstring const& other) const { return compare(other.m_wideBuffer, npos) op 0; }                    \
    bool operator op(char const* text) const { return compare(bytes(text), npos) op 0; }                               \
    bool operator op(char* text) const { return compare(bytes(text), npos) op 0; }                                     \
    bool operator op(unsigned char const* text) const { return compare(text, npos) op 0; }                             \
    bool operator op(unsigned char* text) const { return compare(text, npos) op 0; }                                   \
    bool operator op(unsigned short const* text) const { return compare(text, npos) op 0; }                            \
    bool operator op(unsigned short* text) const { return compare(text, npos) op 0; }                                  \
    bool operator op(int number) const { return static_cast<int>(*this) op number; }                                   \
    inline bool operator op(istring const& other) const;
    TARN_COMPARISON(<)
    TARN_COMPARISON(>)
    TARN_COMPARISON(<=)
    TARN_COMPARISON(>=)
    TARN_COMPARISON(==)
    TARN_COMPARISON(!=)
#undef TARN_COMPARISON

protected:
    friend class velaError;
    /// An empty string that owns no buffer yet: what a moved-from string is, and what an error about missing memory can
    /// carry.
    struct NoBuffer
    {};
    explicit sstring(NoBuffer) noexcept {}

    /// The largest number of units a buffer is made for.
    static constexpr uint64_t kMaxUnits = uint64_t{1} << 31;
    /// Spare units or bytes that every request is given.
    static constexpr unsigned int kHeadroom = 16;
    /// What a buffer request makes of the present capacity: itself when n + 16 fits, else the next step. Throws
    /// velaError 12.
    unsigned int capacityFor(uint64_t n, unsigned int present) const;

private:
    static unsigned char const* bytes(char const* text) { return reinterpret_cast<unsigned char const*>(text); }

    void growWide(uint64_t units) const;
    void growWideFor(unsigned int more);
    void growAnsi(uint64_t bytes) const;
    void growScratch(uint64_t units) const;
    bool ownsUnit(unsigned short const* unit) const;
    unsigned short* openRange(unsigned int pos, unsigned int count);
    void closeRange(uint64_t end, bool endsText);
    void writeUnits(unsigned int pos, unsigned short const* source, unsigned int count, bool endsText);
    void writePlainAscii(unsigned int pos, unsigned char const* source, unsigned int count, bool endsText);
    unsigned short const* widened(unsigned char const* text) const;
    sstring inMyLocale(unsigned char const* text) const;
    void replaceHits(sstring const& from, sstring const& to, unsigned short const* hit);
    sstring tailFrom(unsigned int pos) const;
    template <class Right>
    sstring joined(Right const& right) const;

    /// What wideBuffer points to while the string owns no block (capacity 0). Never written.
    static unsigned short emptyText[1];

    mutable unsigned short* m_wideBuffer = emptyText; ///< the text, zero-terminated; owned when wideCapacity is not 0
    mutable unsigned int m_wideCapacity = 0;          ///< of wideBuffer, in units
    unsigned int m_length = 0;                        ///< in units, without the terminator
    mutable unsigned char* m_ansiCache = nullptr;     ///< last 8-bit rendering handed out; owned
    mutable unsigned int m_ansiCapacity = 0;          ///< of ansiCache, in bytes
    mutable unsigned short* m_wideScratch = nullptr;  ///< 8-bit arguments after their conversion; owned
    mutable unsigned int m_scratchCapacity = 0;       ///< of wideScratch, in units
    unsigned int m_tareFlag = 0;                      ///< 1 once tare() was called
    LOCALE* m_ownLocale = nullptr;                    ///< owned copy; null: the process default
};

/// A string whose comparisons ignore case, also when it is the right operand.
class istring : public sstring
{
public:
    istring() = default;
    istring(char const* text, unsigned int start = 0, unsigned int count = npos) : sstring(text, start, count) {}
    istring(unsigned char const* text, unsigned int start = 0, unsigned int count = npos) : sstring(text, start, count)
    {}
    istring(unsigned short const* text, unsigned int start = 0, unsigned int count = npos) : sstring(text, start, count)
    {}
    istring(sstring const& other, unsigned int start = 0, unsigned int count = npos) : sstring(other, start, count) {}

    using sstring::operator=;
    using sstring::operator==;
    using sstring::operator!=;
    /// Spelled out for two istrings: with only the inherited one, C++20 could take either of them as the left operand.
    bool operator==(istring const& other) const { return comparei(other.getUnicode(), npos) == 0; }
    bool operator!=(istring const& other) const { return comparei(other.getUnicode(), npos) != 0; }

    using sstring::compare;
    int compare(unsigned char const* text, unsigned int count) const override { return comparei(text, count); }
    int compare(unsigned short const* text, unsigned int count) const override { return comparei(text, count); }
};

/// A string made from a printf-style format. The result, rendered in 8 bits, must stay below the formatting buffer (at
/// least 2,064 bytes), else velaError 7 is thrown and the text stays as it was. Arguments may point into this string's
/// own text.
class sformat : public sstring
{
public:
    sformat() = default;
    explicit sformat(char const* format, ...) __attribute__((format(printf, 2, 3)));
    explicit sformat(unsigned char const* format, ...);
    explicit sformat(unsigned short const* format, ...);

    using sstring::operator=;

    /// Replaces the content.
    sformat& format(char const* format, ...) __attribute__((format(printf, 2, 3)));
    sformat& format(unsigned char const* format, ...);
    sformat& format(unsigned short const* format, ...);
    sformat& vformat(char const* format, va_list arguments) __attribute__((format(printf, 2, 0)));
    sformat& vformat(unsigned char const* format, va_list arguments);
    sformat& vformat(unsigned short const* format, va_list arguments);
    sformat& vformat(sstring const& format, va_list arguments);
};

#pragma GCC diagnostic pop

sstring operator+(char const* left, sstring const& right);
sstring operator+(unsigned char const* left, sstring const& right);
sstring operator+(unsigned short const* left, sstring const& right);
sstring operator+(char* left, sstring const& right);
sstring operator+(unsigned char* left, sstring const& right);
sstring operator+(unsigned short* left, sstring const& right);

/// Any zero-terminated text that a string compares with.
template <class Text>
concept StringText = std::is_same_v < std::remove_const_t<Text>,
char > || std::is_same_v<std::remove_const_t<Text>, unsigned char> ||
    std::is_same_v<std::remove_const_t<Text>, unsigned short>;

/// With the text on the left; otherwise the addresses would be compared.
template <StringText Text>
bool operator<(Text* left, sstring const& right)
{
    return right > left;
}
template <StringText Text>
bool operator>(Text* left, sstring const& right)
{
    return right < left;
}
template <StringText Text>
bool operator<=(Text* left, sstring const& right)
{
    return right >= left;
}
template <StringText Text>
bool operator>=(Text* left, sstring const& right)
{
    return right <= left;
}

/// Writes the 8-bit rendering.
std::ostream& operator<<(std::ostream& stream, sstring const& text);

inline sstring& sstring::append(unsigned short const* text)
{
    if (text)
        writeUnits(m_length, text, strlen16(text), true);
    return *this;
}

inline sstring& sstring::operator+=(unsigned short unit)
{
    if (uint64_t{m_length} + 2 + kHeadroom > m_wideCapacity)
        growWide(uint64_t{m_length} + 2);
    m_wideBuffer[m_length++] = unit;
    m_wideBuffer[m_length] = 0;
    return *this;
}

template <class Right>
sstring sstring::joined(Right const& right) const
{
    sstring result(*this);
    result += right;
    return result;
}

#define TARN_COMPARISON(op)                                                                                            \
    inline bool sstring::operator op(istring const& other) const { return comparei(other.getUnicode(), npos) op 0; }
TARN_COMPARISON(<)
TARN_COMPARISON(>)
TARN_COMPARISON(<=)
TARN_COMPARISON(>=)
TARN_COMPARISON(==)
TARN_COMPARISON(!=)
#undef TARN_COMPARISON

#include "foundation/vela-error.h" // what every string can throw; it holds a string itself, so it stands behind them
