// foundation/vela-mlentities.cpp: see the header. The Latin-1 names are those of HTML 4 (HTMLlat1), in the order of
// their codes.

#include "foundation/vela-mlentities.h"

#include "foundation/vela-comtypes.h"
#include "foundation/vela-mlentities-symbols.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>
#include <iterator>
#include <utility>

namespace {

constexpr mlReference kCommonReferences[] = {{"amp", '&'},   {"lt", '<'},   {"gt", '>'},
                                             {"apos", '\''}, {"quot", '"'}, {"nbsp", ' '}};

constexpr unsigned short kFirstLatin1 = 161;
constexpr std::string_view kLatin1Names[] = {
    "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",   "ordf",   "laquo",
    "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",   "acute",  "micro",  "para",
    "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute",
    "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",
    "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",
    "atilde", "auml",   "aring",  "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute",
    "icirc",  "iuml",   "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash",
    "ugrave", "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};
static_assert(std::size(kLatin1Names) == 95);

bool hasPrefix(unsigned short const* text, unsigned int count, std::string_view prefix)
{
    return prefix.size() <= count && std::equal(prefix.begin(), prefix.end(), text);
}

bool isDigit(unsigned short unit) { return unit >= '0' && unit <= '9'; }

/// A decoded reference and its length after the "&"; length 0 means that it is not a reference.
struct Decoded
{
    unsigned int length = 0;
    uint32_t code = 0;
};

constexpr uint32_t kLastCode = 0x10FFFF;

Decoded decodeNumber(unsigned short const* text, unsigned int count)
{
    Decoded decoded;
    unsigned int i = 1;
    for (; i < count && isDigit(text[i]); ++i)
        decoded.code = std::min<uint32_t>(decoded.code * 10 + (text[i] - '0'), kLastCode + 1);
    decoded.length = i > 1 ? i : 0;
    return decoded;
}

bool isLetter(unsigned short unit) { return (unit >= 'a' && unit <= 'z') || (unit >= 'A' && unit <= 'Z'); }

constexpr unsigned int kLongestName = 32;
constexpr std::size_t kMostUnknown = 1000; // of a page

/// The name that stands before a semicolon, "" when none does.
std::string nameBeforeSemicolon(unsigned short const* text, unsigned int count)
{
    std::string name;
    unsigned int const most = std::min(count, kLongestName);
    for (unsigned int i = 0; i < most && (isLetter(text[i]) || isDigit(text[i])); ++i)
        name += static_cast<char>(text[i]);
    return name.size() < count && text[name.size()] == ';' ? name : std::string();
}

Decoded decodeSymbol(unsigned short const* text, unsigned int count)
{
    std::string const name = nameBeforeSemicolon(text, count);
    auto const* found =
        std::lower_bound(std::begin(kSymbolReferences), std::end(kSymbolReferences), name,
                         [](mlReference const& known, std::string const& wanted) { return known.name < wanted; });
    if (found == std::end(kSymbolReferences) || found->name != name)
        return {};
    return {static_cast<unsigned int>(name.size()), found->code};
}

Decoded decodeName(unsigned short const* text, unsigned int count)
{
    if (count == 0 || !isLetter(text[0]))
        return {};
    if (Decoded const symbol = decodeSymbol(text, count); symbol.length != 0)
        return symbol;
    for (mlReference const& reference : kCommonReferences)
        if (hasPrefix(text, count, reference.name))
            return {static_cast<unsigned int>(reference.name.size()), reference.code};
    auto const* name = std::find_if(std::begin(kLatin1Names), std::end(kLatin1Names),
                                    [&](std::string_view candidate) { return hasPrefix(text, count, candidate); });
    if (name == std::end(kLatin1Names))
        return {};
    return {static_cast<unsigned int>(name->size()),
            kFirstLatin1 + static_cast<uint32_t>(name - std::begin(kLatin1Names))};
}

Decoded decodeOne(unsigned short const* text, unsigned int count)
{
    Decoded decoded = count > 0 && text[0] == '#' ? decodeNumber(text, count) : decodeName(text, count);
    if (decoded.length != 0 && decoded.length < count && text[decoded.length] == ';')
        ++decoded.length;
    return decoded;
}

/// A reference is always longer than its character, so decoding in place never overwrites text not yet read.
unsigned short* writeCode(unsigned short* out, uint32_t code)
{
    if (code == 0)
        return out;
    if (code > kLastCode)
        code = 0xFFFD;
    if (code > 0xFFFF) {
        *out++ = static_cast<unsigned short>(0xD7C0 + (code >> 10));
        code = 0xDC00 | (code & 0x3FF);
    }
    *out++ = static_cast<unsigned short>(code);
    return out;
}

void addUnknown(unsigned short const* text, unsigned int count, std::vector<std::string>& unknown)
{
    std::string name = nameBeforeSemicolon(text, count);
    if (!name.empty() && unknown.size() < kMostUnknown)
        unknown.push_back(std::move(name));
}

} // namespace

unsigned int decodeReferences(unsigned short* text, unsigned int count, std::vector<std::string>* unknown)
{
    unsigned short const* const end = text + count;
    unsigned short const* from = std::find(text, text + count, '&');
    unsigned short* to = text + (from - text);
    while (from != end) {
        Decoded const decoded = *from == '&' ? decodeOne(from + 1, unitsBetween(from + 1, end)) : Decoded();
        if (decoded.length == 0) {
            if (unknown && *from == '&')
                addUnknown(from + 1, unitsBetween(from + 1, end), *unknown);
            *to++ = *from++;
            continue;
        }
        to = writeCode(to, decoded.code);
        from += 1 + decoded.length;
        assert(to <= from && from <= end);
    }
    return unitsBetween(text, to);
}

std::vector<std::string_view> mlReferenceNames()
{
    std::vector<std::string_view> names(std::begin(kLatin1Names), std::end(kLatin1Names));
    for (mlReference const& reference : kCommonReferences)
        names.push_back(reference.name);
    for (mlReference const& reference : kSymbolReferences)
        names.push_back(reference.name);
    return names;
}
