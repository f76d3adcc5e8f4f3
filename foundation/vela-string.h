// foundation/vela-string.h: the text type of the whole system: 16-bit code units, rendered on request as 8-bit text in
// the code set of the string's locale. Also includes the C-string functions (vela-string-c.h) and the conversions
// (vela-string-convert.h).
#pragma once

#include "foundation/vela-locale.h"
#include "foundation/vela-string-c.h"
#include "foundation/vela-string-convert.h"

#include <cstdarg>
#include <cstdint>
#include <cstring>
#include <iosfwd>
#include <type_traits>

class istring;

// Only the four comparisons are virtual, not the destructor: derived strings are never deleted through a pointer to the
// base.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// Zero-terminated text of fewer than 2^31 16-bit code units. Positions, lengths and counts are in code units.
///
/// A string belongs to one thread at a time: even const functions may grow a buffer. Functions that allocate throw
/// velaError 12 when out of memory or when the text would exceed 2^31 units; there are no other errors. A null pointer
/// to text stands for an empty text.
class sstring
{
public:
    /// As a count: up to the terminator. As a result: not found. As a limit: no limit.
    static constexpr unsigned int npos = 0xFFFFFFFF;

    /// Which hits replace() replaces: 0 all of them, any other value only the first.
    enum ReplaceHowMany : int
    {
        kReplaceAll = 0,
        kReplaceFirst = 1
    };

    /// An empty string; it owns a buffer.
    sstring() { setSize(1); }
    /// An empty string that owns no buffer until the first write: for the many that stay empty.
    static sstring unallocated() noexcept { return sstring(NoBuffer{}); }
    /// `count` units of the text from position `start` on. 8-bit text is first converted by the default locale, so both
    /// are in units of the converted text.
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
    /// Also copies the locale. The range is cut at the end of the other text.
    sstring(sstring const& other, unsigned int start = 0, unsigned int count = npos);
    /// Takes over text, buffers and locale. The other string is then empty and has no buffer until the next write.
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
    sstring&
    operator=(char16_t const* text) = delete; // would be formatted as an address; cast to unsigned short const*

    /// Exchanges text, buffers and locale, without copying units.
    void swap(sstring& other) noexcept;

    // Reading. Pointers point into this string's buffers and are valid until it changes; the caller does not free them.

    /// The length, without the terminator.
    unsigned int getLength() const { return m_length; }
    /// The text, zero-terminated.
    unsigned short* getUnicode() const { return m_wideBuffer; }
    unsigned short* toUnicode() const { return m_wideBuffer; }
    operator unsigned short*() const { return m_wideBuffer; }
    /// The address of unit `index`, after making room for that many units.
    unsigned short* getUnicodeAt(unsigned int index) const
    {
        setSize(index);
        return m_wideBuffer + index;
    }

    /// The text in the 8-bit code set of the string's locale, zero-terminated. Each call converts it again; the result
    /// is valid until the next such call on this string.
    unsigned char* getAnsi() const { return getAnsiAt(0); }
    unsigned char* toAnsi() const { return getAnsiAt(0); }
    char* c_str() const { return reinterpret_cast<char*>(getAnsiAt(0)); }
    operator char*() const { return c_str(); }
    operator unsigned char*() const { return getAnsiAt(0); }
    /// The same from unit `index` on; empty if the text ends before.
    unsigned char* getAnsiAt(unsigned int index) const;

    /// The buffer, with room for `units` units, for direct writing. This does not update the length; afterwards assign
    /// the buffer to the string: `s = s.getUnicode()`.
    unsigned short* getBuffer(unsigned int units)
    {
        setSize(units);
        return m_wideBuffer;
    }

    /// Unit `index`. An index beyond the length makes room for the unit, which is not part of the text.
    unsigned short& operator[](int index) { return *getUnicodeAt(static_cast<unsigned int>(index)); }
    unsigned short& operator[](unsigned int index) { return *getUnicodeAt(index); }
    unsigned short const& operator[](int index) const { return *getUnicodeAt(static_cast<unsigned int>(index)); }
    unsigned short const& operator[](unsigned int index) const { return *getUnicodeAt(index); }

    /// The number at the start of the text, 0 if there is none.
    operator int() const { return static_cast<int>(atol16(m_wideBuffer)); }
    /// Whether the text is empty.
    bool operator!() const { return m_wideBuffer[0] == 0; }

    /// The string's own locale or, if it has none, the process default. The caller does not own it.
    LOCALE* getLocale() const;
    /// Sets a copy of `locale` as the string's own; null or the process default removes the own one. Returns the locale
    /// that is now used.
    LOCALE* setLocale(LOCALE* locale);

    // Writing.

    /// Writes `count` units of the text, from `start` on, at position 0, as setAt() does.
    sstring& set(char const* text, unsigned int start = 0, unsigned int count = npos);
    sstring& set(unsigned char const* text, unsigned int start = 0, unsigned int count = npos);
    sstring& set(unsigned short const* text, unsigned int start = 0, unsigned int count = npos);
    /// Copies the text, not the locale. The range is cut at the end of the other text.
    sstring& set(sstring const& text, unsigned int start = 0, unsigned int count = npos);

    /// Writes `count` units of the text, from `start` on, at position `pos`; a gap before `pos` is filled with spaces.
    /// With npos it writes the rest of the text, and the string ends there. With an explicit count that ends inside the
    /// string it overwrites units and keeps the length. The text may be part of this string.
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
    /// Appends an 8-bit character, converted.
    sstring& operator+=(char character) { return *this += static_cast<unsigned char>(character); }
    sstring& operator+=(unsigned char character);
    /// Appends a code unit.
    inline sstring& operator+=(unsigned short unit);
    sstring& operator+=(int number) { return append(number); }
    sstring& operator+=(void const* address) { return append(address); }
    sstring& operator+=(char16_t unit) = delete; // would be formatted as a number; cast to unsigned short
    sstring& operator+=(char16_t const* text) = delete;

    sstring operator+(sstring const& other) const { return joined(other); }
    sstring operator+(char const* text) const { return joined(text); }
    sstring operator+(unsigned char const* text) const { return joined(text); }
    sstring operator+(unsigned short const* text) const { return joined(text); }
    // Pointers to writable text need overloads of their own: the conversion to int would make built-in pointer
    // arithmetic a candidate.
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

    /// Appends `copies` copies of the text to this string itself, which then holds copies + 1 of them.
    sstring& operator*(int copies);

    /// A new string of the same locale with `count` units from `start` on, cut at the end of the text.
    sstring subString(unsigned int start, unsigned int count = npos) const { return sstring(*this, start, count); }

    /// Replaces the `count` units at `pos`, both cut at the end of the text, with `with`. Returns the new length.
    unsigned int replace(unsigned int pos, unsigned int count, sstring const& with);
    /// Replaces `from` with `to`, at every hit or only the first, from left to right; replacements are not searched
    /// again. Does nothing if `from` is empty. Returns the new length. Takes linear time.
    unsigned int replace(sstring const& from, sstring const& to, ReplaceHowMany howMany = kReplaceAll);
    unsigned int replace(unsigned char const* from, unsigned char const* to, ReplaceHowMany howMany = kReplaceAll);
    unsigned int replace(unsigned short const* from, unsigned short const* to, ReplaceHowMany howMany = kReplaceAll);

    /// Make room for n units of text, n bytes in the 8-bit cache, or n units in the scratch buffer. Do nothing if n +
    /// 16 fits; otherwise the buffer grows to n + 16, rounded up to a multiple of the text's length, or of 32 for a
    /// shorter text, or of 1,048,576 for a longer one.
    void setSize(unsigned int units) const
    {
        if (uint64_t{units} + kHeadroom > m_wideCapacity)
            growWide(units);
    }
    void setSizeA(unsigned int bytes) const;
    void setSizeW(unsigned int units) const;
    /// The capacities of the three buffers in units, bytes and units.
    unsigned int getCapacity() const { return m_wideCapacity; }
    unsigned int getCapacityA() const { return m_ansiCapacity; }
    unsigned int getCapacityW() const { return m_scratchCapacity; }

    /// Sets a flag that this library does not use.
    void tare() { m_tareFlag = 1; }
    unsigned int isTare() const { return m_tareFlag; }

    // Searching. Functions that return a position return npos if there is no hit.

    /// The first occurrence at or after `from`. An empty text is found at `from`.
    unsigned int find(unsigned short unit, unsigned int from = 0) const;
    unsigned int find(sstring const& text, unsigned int from = 0) const;
    /// The first unit at or after `from` that is, or is not, in `set`.
    unsigned int find_any(sstring const& set, unsigned int from = 0) const;
    unsigned int find_none(sstring const& set, unsigned int from = 0) const;
    /// The last occurrence at or before `limit`.
    unsigned int rfind(unsigned short unit, unsigned int limit = npos) const;
    unsigned int rfind(sstring const& text, unsigned int limit = npos) const;
    unsigned int rfind_any(sstring const& set, unsigned int limit = npos) const;
    unsigned int rfind_none(sstring const& set, unsigned int limit = npos) const;

    /// The first and last occurrence as a pointer into the text; null if there is none. The unit 0 finds the
    /// terminator.
    unsigned short* strchr(unsigned short unit) const;
    unsigned short* strrchr(unsigned short unit) const;
    /// The first and last occurrence of the first `count` units of the text (npos: all); null if there is none.
    unsigned short* strstr(char const* text, unsigned int count = npos) const;
    unsigned short* strstr(unsigned char const* text, unsigned int count = npos) const;
    unsigned short* strstr(unsigned short const* text, unsigned int count = npos) const;
    unsigned short* strstr(sstring const& text, unsigned int count = npos) const;
    unsigned short* strrstr(char const* text, unsigned int count = npos) const;
    unsigned short* strrstr(unsigned char const* text, unsigned int count = npos) const;
    unsigned short* strrstr(unsigned short const* text, unsigned int count = npos) const;
    unsigned short* strrstr(sstring const& text, unsigned int count = npos) const;

    /// The rest of the text from the first occurrence on; empty if there is none.
    sstring operator%(char character) const;
    sstring operator%(sstring const& text) const { return tailFrom(find(text)); }
    sstring operator%(char const* text) const { return tailFrom(find(inMyLocale(bytes(text)))); }
    sstring operator%(unsigned char const* text) const { return tailFrom(find(inMyLocale(text))); }
    sstring operator%(unsigned short const* text) const { return tailFrom(find(sstring(text))); }
    /// The rest of the text from the last occurrence on; empty if there is none.
    sstring operator^(char character) const;
    sstring operator^(sstring const& text) const { return tailFrom(rfind(text)); }
    sstring operator^(char const* text) const { return tailFrom(rfind(inMyLocale(bytes(text)))); }
    sstring operator^(unsigned char const* text) const { return tailFrom(rfind(inMyLocale(text))); }
    sstring operator^(unsigned short const* text) const { return tailFrom(rfind(sstring(text))); }

    // Comparing. Negative, zero or positive if this text is less than, equal to or greater than the argument, looking
    // at `count` units at most. The `i` forms fold case with tolower16(). 8-bit arguments are converted by the string's
    // locale.

    virtual int compare(unsigned char const* text, unsigned int count) const;
    virtual int compare(unsigned short const* text, unsigned int count) const;
    virtual int comparei(unsigned char const* text, unsigned int count) const;
    virtual int comparei(unsigned short const* text, unsigned int count) const;
    int compare(sstring const& text, unsigned int count) const { return compare(text.m_wideBuffer, count); }
    int comparei(sstring const& text, unsigned int count) const { return comparei(text.m_wideBuffer, count); }

    /// The six comparison operators compare with text through the virtual compare(), with an istring ignoring case, and
    /// with an int as numbers. Pointers to writable text have overloads of their own, because built-in pointer
    /// comparison would otherwise be a candidate.
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
    /// An empty string without a buffer, like one that was moved from. Needs no memory, so an error about memory can
    /// hold one.
    struct NoBuffer
    {};
    explicit sstring(NoBuffer) noexcept {}

    /// The largest buffer, in units.
    static constexpr uint64_t kMaxUnits = uint64_t{1} << 31;
    /// Units or bytes added to every request.
    static constexpr unsigned int kHeadroom = 16;
    /// The capacity after a request for n units: the present one if n + kHeadroom fits, otherwise the next step. Throws
    /// velaError 12.
    unsigned int capacityFor(uint64_t n, unsigned int present) const;

private:
    static unsigned char const* bytes(char const* text) { return reinterpret_cast<unsigned char const*>(text); }

    void growWide(uint64_t units) const;
    void growWideFor(unsigned int more);
    void growAnsi(uint64_t bytes) const;
    void growScratch(uint64_t units) const;
    bool isInBuffer(unsigned short const* unit) const;
    unsigned short* makeRoomAt(unsigned int pos, unsigned int count);
    void endWriteAt(uint64_t end, bool endsText);
    void writeUnits(unsigned int pos, unsigned short const* source, unsigned int count, bool endsText);
    void writePlainAscii(unsigned int pos, unsigned char const* source, unsigned int count, bool endsText);
    unsigned short const* widened(unsigned char const* text) const;
    sstring inMyLocale(unsigned char const* text) const;
    void replaceHits(sstring const& from, sstring const& to, unsigned short const* hit);
    sstring tailFrom(unsigned int pos) const;
    template <class Right>
    sstring joined(Right const& right) const;

    /// The text of a string without a buffer (capacity 0). Never written.
    static unsigned short emptyText[1];

    mutable unsigned short* m_wideBuffer = emptyText; ///< the text, zero-terminated; owned if the capacity is not 0
    mutable unsigned int m_wideCapacity = 0;          ///< of m_wideBuffer, in units
    unsigned int m_length = 0;                        ///< in units, without the terminator
    mutable unsigned char* m_ansiCache = nullptr;     ///< the last 8-bit rendering; owned
    mutable unsigned int m_ansiCapacity = 0;          ///< of m_ansiCache, in bytes
    mutable unsigned short* m_wideScratch = nullptr;  ///< an 8-bit argument after conversion; owned
    mutable unsigned int m_scratchCapacity = 0;       ///< of m_wideScratch, in units
    unsigned int m_tareFlag = 0;                      ///< 1 after tare()
    velaLocale m_ownLocale;                           ///< null: the process default
};

/// A string whose comparisons ignore case, even if it is the right operand.
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
    /// With the inherited operators alone, comparing two istrings would be ambiguous in C++20, which tries both orders.
    bool operator==(istring const& other) const { return comparei(other.getUnicode(), npos) == 0; }
    bool operator!=(istring const& other) const { return comparei(other.getUnicode(), npos) != 0; }

    using sstring::compare;
    int compare(unsigned char const* text, unsigned int count) const override { return comparei(text, count); }
    int compare(unsigned short const* text, unsigned int count) const override { return comparei(text, count); }
};

/// A string made from a printf-style format. If the result in 8 bits does not fit the formatting buffer of at least
/// 2,064 bytes, it throws velaError 7 and keeps the text unchanged. Arguments may point into this string's own text.
class sformat : public sstring
{
public:
    sformat() = default;
    explicit sformat(char const* format, ...) __attribute__((format(printf, 2, 3)));
    explicit sformat(unsigned char const* format, ...);
    explicit sformat(unsigned short const* format, ...);

    using sstring::operator=;

    /// Replace the content.
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

/// A unit of zero-terminated text that a string compares with.
template <class Text>
concept StringText = std::is_same_v < std::remove_const_t<Text>,
char > || std::is_same_v<std::remove_const_t<Text>, unsigned char> ||
    std::is_same_v<std::remove_const_t<Text>, unsigned short>;

/// With the text on the left. Otherwise the built-in operators would compare addresses.
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

/// Writes the text in 8 bits.
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

#include "foundation/vela-error.h" // included last, because the error that strings throw holds a string
