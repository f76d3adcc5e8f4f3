// foundation/vela-string-c.cpp: see vela-string-c.h. The 8-bit functions call the C library. strstr16() and both
// strrstr() functions are in vela-string-match.cpp.

#include "foundation/vela-string-c.h"

#include "foundation/vela-array.h"
#include "foundation/vela-comtypes.h"
#include "foundation/vela-string-match.h"

#include <algorithm>
#include <cassert>
#include <cctype>
#include <climits>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

char const* chars(unsigned char const* text) { return reinterpret_cast<char const*>(text); }
char* chars(unsigned char* text) { return reinterpret_cast<char*>(text); }
unsigned char* bytes(char const* text) { return reinterpret_cast<unsigned char*>(const_cast<char*>(text)); }
unsigned short* writable(unsigned short const* text) { return const_cast<unsigned short*>(text); }

} // namespace

unsigned int strlen8(unsigned char const* text) { return static_cast<unsigned int>(std::strlen(chars(text))); }

unsigned int strlen16(unsigned short const* text)
{
    unsigned short const* end = text;
    while (*end)
        ++end;
    return unitsBetween(text, end);
}

// Copying

unsigned char* strcpy8(unsigned char* to, unsigned char const* from)
{
    return bytes(std::strcpy(chars(to), chars(from)));
}
unsigned char* strcat8(unsigned char* to, unsigned char const* from)
{
    return bytes(std::strcat(chars(to), chars(from)));
}

unsigned char* strncat8(unsigned char* to, unsigned char const* from, unsigned int count)
{
    return bytes(std::strncat(chars(to), chars(from), count));
}

unsigned char* strncpy8(unsigned char* to, unsigned char const* from, unsigned int count)
{
    return bytes(std::strncpy(chars(to), chars(from), count));
}

unsigned short* strcpy16(unsigned short* to, unsigned short const* from)
{
    std::copy_n(from, strlen16(from) + 1, to);
    return to;
}

unsigned short* strcat16(unsigned short* to, unsigned short const* from)
{
    strcpy16(to + strlen16(to), from);
    return to;
}

namespace {

unsigned int lengthUpTo(unsigned short const* text, unsigned int count)
{
    unsigned int length = 0;
    while (length < count && text[length])
        ++length;
    return length;
}

} // namespace

unsigned short* strncat16(unsigned short* to, unsigned short const* from, unsigned int count)
{
    *std::copy_n(from, lengthUpTo(from, count), to + strlen16(to)) = 0;
    return to;
}

unsigned short* strncpy16(unsigned short* to, unsigned short const* from, unsigned int count)
{
    unsigned int const copied = lengthUpTo(from, count);
    assert(copied <= count);
    std::fill_n(std::copy_n(from, copied, to), count - copied, static_cast<unsigned short>(0));
    return to;
}

// Comparing

namespace {

/// The difference of the first two characters that differ after folding, among the first `count`. Stops at a terminator
/// in either text, because a unit such as U+0100 folds to zero and so equals one.
template <class Unit, class Fold>
int difference(Unit const* left, Unit const* right, uint64_t count, Fold fold)
{
    for (; count; --count, ++left, ++right) {
        int const foldedLeft = fold(*left);
        int const foldedRight = fold(*right);
        if (foldedLeft != foldedRight || !*left || !*right)
            return foldedLeft - foldedRight;
    }
    return 0;
}

template <class Unit>
Unit unchanged(Unit unit)
{
    return unit;
}

} // namespace

int strcmp8(unsigned char const* left, unsigned char const* right) { return std::strcmp(chars(left), chars(right)); }

int strncmp8(unsigned char const* left, unsigned char const* right, unsigned int count)
{
    return std::strncmp(chars(left), chars(right), count);
}

int strcmp16(unsigned short const* left, unsigned short const* right)
{
    for (; *left && *left == *right; ++right)
        ++left;
    return *left - *right;
}

int strncmp16(unsigned short const* left, unsigned short const* right, unsigned int count)
{
    return difference(left, right, count, unchanged<unsigned short>);
}

int stricmp8(unsigned char const* left, unsigned char const* right)
{
    return difference(left, right, UINT64_MAX, tolower8);
}

int stricmp16(unsigned short const* left, unsigned short const* right)
{
    return difference(left, right, UINT64_MAX, tolower16);
}

int strnicmp8(unsigned char const* left, unsigned char const* right, unsigned int count)
{
    return difference(left, right, count, tolower8);
}

int strnicmp16(unsigned short const* left, unsigned short const* right, unsigned int count)
{
    return difference(left, right, count, tolower16);
}

// Searching

unsigned char* strchr8(unsigned char const* text, unsigned char character)
{
    return bytes(std::strchr(chars(text), character));
}

unsigned char* strrchr8(unsigned char const* text, unsigned char character)
{
    return bytes(std::strrchr(chars(text), character));
}

unsigned char* strstr8(unsigned char const* text, unsigned char const* wanted)
{
    return bytes(std::strstr(chars(text), chars(wanted)));
}

unsigned short* strchr16(unsigned short const* text, unsigned short unit)
{
    while (*text && *text != unit)
        ++text;
    return *text == unit ? writable(text) : nullptr;
}

unsigned short* strrchr16(unsigned short const* text, unsigned short unit)
{
    unsigned short const* last = nullptr;
    for (;; ++text) {
        if (*text == unit)
            last = text;
        if (!*text)
            return writable(last);
    }
}

unsigned int strcspn8(unsigned char const* text, unsigned char const* set)
{
    return static_cast<unsigned int>(std::strcspn(chars(text), chars(set)));
}

unsigned int strspn8(unsigned char const* text, unsigned char const* set)
{
    return static_cast<unsigned int>(std::strspn(chars(text), chars(set)));
}

unsigned char* strpbrk8(unsigned char const* text, unsigned char const* set)
{
    return bytes(std::strpbrk(chars(text), chars(set)));
}

unsigned int strcspn16(unsigned short const* text, unsigned short const* set)
{
    UnitSet const units(set);
    unsigned int length = 0;
    while (text[length] && !units.contains(text[length]))
        ++length;
    return length;
}

unsigned int strspn16(unsigned short const* text, unsigned short const* set)
{
    UnitSet const units(set);
    unsigned int length = 0;
    while (text[length] && units.contains(text[length]))
        ++length;
    return length;
}

unsigned short* strpbrk16(unsigned short const* text, unsigned short const* set)
{
    unsigned short const* hit = text + strcspn16(text, set);
    return *hit ? writable(hit) : nullptr;
}

unsigned char* strtok8(unsigned char* text, unsigned char const* separators)
{
    static char* position = nullptr;
    if (!text && !position)
        return nullptr;
    return bytes(strtok_r(chars(text), chars(separators), &position));
}

unsigned short* strtok16(unsigned short* text, unsigned short const* separators)
{
    static unsigned short* position = nullptr;
    unsigned short* token = text ? text : position;
    if (!token)
        return nullptr;
    token += strspn16(token, separators);
    unsigned short* end = token + strcspn16(token, separators);
    assert(!*end || end > token); // no separator is left at the front
    position = *end ? end + 1 : end;
    *end = 0;
    return end == token ? nullptr : token;
}

// Case

unsigned char tolower8(unsigned char character) { return static_cast<unsigned char>(std::tolower(character)); }
unsigned short tolower16(unsigned short unit) { return static_cast<unsigned short>(std::tolower(unit & 0xFF)); }
unsigned char toupper8(unsigned char character) { return static_cast<unsigned char>(std::toupper(character)); }
unsigned short toupper16(unsigned short unit) { return static_cast<unsigned short>(std::toupper(unit & 0xFF)); }

namespace {

template <class Unit>
Unit* folded(Unit* text, Unit (*fold)(Unit))
{
    for (Unit* unit = text; *unit; ++unit)
        *unit = fold(*unit);
    return text;
}

} // namespace

unsigned char* strlwr8(unsigned char* text) { return folded(text, tolower8); }
unsigned short* strlwr16(unsigned short* text) { return folded(text, tolower16); }
unsigned char* strupr8(unsigned char* text) { return folded(text, toupper8); }
unsigned short* strupr16(unsigned short* text) { return folded(text, toupper16); }

// Numbers

namespace {

bool isSpace(unsigned short unit) { return unit == ' ' || (unit >= '\t' && unit <= '\r'); }

unsigned short const* skipSpaces(unsigned short const* text)
{
    while (isSpace(*text))
        ++text;
    return text;
}

/// The printable ASCII text at the front, after white space.
velaBytes numberText(unsigned short const* text)
{
    velaBytes number;
    for (text = skipSpaces(text); *text > ' ' && *text < 0x7F; ++text)
        number += static_cast<char>(*text);
    return number;
}

} // namespace

int atoi8(unsigned char const* text) { return std::atoi(chars(text)); }
long atol8(unsigned char const* text) { return std::atol(chars(text)); }
double atof8(unsigned char const* text) { return std::atof(chars(text)); }
int atoi16(unsigned short const* text) { return static_cast<int>(atol16(text)); }
double atof16(unsigned short const* text) { return std::atof(numberText(text).c_str()); }

/// Reads only the digits: the text may be long, and this is called often. Saturates like the C library's function.
long atol16(unsigned short const* text)
{
    text = skipSpaces(text);
    bool const negative = *text == '-';
    if (*text == '-' || *text == '+')
        ++text;
    unsigned long const limit = negative ? static_cast<unsigned long>(LONG_MAX) + 1 : LONG_MAX;
    unsigned long value = 0;
    for (; *text >= '0' && *text <= '9'; ++text) {
        unsigned long const digit = *text - '0';
        value = value > (limit - digit) / 10 ? limit : value * 10 + digit;
    }
    return static_cast<long>(negative ? 0 - value : value);
}

// Memory

unsigned char* malloc8(unsigned int count) { return static_cast<unsigned char*>(velaMalloc(count)); }

unsigned short* malloc16(unsigned int count)
{
    return static_cast<unsigned short*>(velaMalloc(size_t{count} * sizeof(unsigned short)));
}

void free8(void* block) { std::free(block); }
void free16(void* block) { std::free(block); }

unsigned char* strdup8(unsigned char const* text)
{
    unsigned char* copy = malloc8(strlen8(text) + 1);
    return copy ? strcpy8(copy, text) : nullptr;
}

unsigned short* strdup16(unsigned short const* text)
{
    unsigned short* copy = malloc16(strlen16(text) + 1);
    return copy ? strcpy16(copy, text) : nullptr;
}
