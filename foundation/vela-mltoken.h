// foundation/vela-mltoken.h: the tokens of the markup: their kinds, their texts and where each is recognised. Reading
// them from a stream is vela-mltokenizer.h's business.
#pragma once

#include <iterator>
#include <string_view>

#include "foundation/vela-string.h"

enum mlTokenType : int
{
    mlTokenEnd = 0,
    mlTokenOpenCData = 1,         ///< "<![CDATA["
    mlTokenOpenInclude = 2,       ///< "<!--#"
    mlTokenOpenComment = 3,       ///< "<!--"
    mlTokenOpenDeclaration = 4,   ///< "<!"
    mlTokenOpenClose = 5,         ///< "</"
    mlTokenOpenInstruction = 6,   ///< "<?"
    mlTokenOpen = 7,              ///< "<"
    mlTokenCloseCData = 8,        ///< "]]>"
    mlTokenCloseComment = 9,      ///< "-->"
    mlTokenCloseEmpty = 10,       ///< "/>"
    mlTokenCloseInstruction = 11, ///< "?>"
    mlTokenClose = 12,            ///< ">"
    mlTokenEquals = 13,           ///< "="
    mlTokenText = 14,             ///< a run of text, or a quoted string
    mlTokenNone = 15
};

/// Where the tokenizer reads, as a bit set: which tokens it recognises and whether white space ends a text.
enum mlContext : unsigned long
{
    mlContextNone = 0, ///< like a tag
    mlContextTag = 1,  ///< white space ends a text
    mlContextRaw = 2,  ///< character data: no character references
    mlContextComment = 4,
    mlContextContent = 8 ///< text between tags
};

/// One token with its text: the token's own, or the text read.
class mlToken
{
public:
    mlToken() = default;
    mlToken(mlTokenType kind, sstring const& content) : type(kind), text(content) {}

    mlTokenType getType() const { return type; }
    sstring const& getText() const { return text; }

private:
    mlTokenType type = mlTokenNone;
    sstring text;
};

/// The texts of tokens 1 to 13, zero-terminated, and their lengths in units; empty for the other kinds.
constexpr std::string_view mlTokenTexts[] = {"",  "<![CDATA[", "<!--#", "<!--", "<!", "</", "<?",
                                             "<", "]]>",       "-->",   "/>",   "?>", ">",  "="};
constexpr std::string_view mlTokenText8(int type)
{
    return type > 0 && type < std::ssize(mlTokenTexts) ? mlTokenTexts[type] : std::string_view();
}
constexpr unsigned int mlTokenLength(int type) { return static_cast<unsigned int>(mlTokenText8(type).size()); }
/// The longest token's length in units.
constexpr unsigned int mlTokenMaxLength = 9;

namespace mlTokenMatching {

/// Contexts in which a token is plain text: an opener, and what has a meaning only inside a tag.
constexpr unsigned long notForOpeners = mlContextRaw | mlContextComment;
constexpr unsigned long notForTagTokens = mlContextRaw | mlContextComment | mlContextContent;

constexpr unsigned short unitAt(unsigned short const* units, unsigned int count, unsigned int index)
{
    return index < count ? units[index] : static_cast<unsigned short>(0);
}

constexpr bool beginsCData(unsigned short const* units, unsigned int count)
{
    char const* lower = "<![cdata[";
    for (unsigned int i = 2; i < mlTokenMaxLength; ++i) {
        unsigned short const unit = unitAt(units, count, i);
        bool const isUpper = unit >= 'A' && unit <= 'Z';
        if ((isUpper ? unit + ('a' - 'A') : unit) != lower[i])
            return false;
    }
    return true;
}

constexpr int matchOpener(unsigned short const* units, unsigned int count)
{
    switch (unitAt(units, count, 1)) {
    case '/':
        return mlTokenOpenClose;
    case '?':
        return mlTokenOpenInstruction;
    case '!':
        if (unitAt(units, count, 2) == '-' && unitAt(units, count, 3) == '-')
            return unitAt(units, count, 4) == '#' ? mlTokenOpenInclude : mlTokenOpenComment;
        return beginsCData(units, count) ? mlTokenOpenCData : mlTokenOpenDeclaration;
    default:
        return mlTokenOpen;
    }
}

} // namespace mlTokenMatching

/// The first token in the order of the kinds that the units begin with, without regard to case, and that is recognised
/// in the context; -1 when there is none. Written out as a decision for each unit, since a page asks this for every
/// tag.
constexpr int mlMatchToken(unsigned short const* units, unsigned int count, unsigned long flags)
{
    using namespace mlTokenMatching;
    unsigned short const second = unitAt(units, count, 1);
    bool const isThirdClosing = unitAt(units, count, 2) == '>';
    switch (unitAt(units, count, 0)) {
    case '<':
        return flags & notForOpeners ? -1 : matchOpener(units, count);
    case ']':
        return second == ']' && isThirdClosing && !(flags & mlContextComment) ? mlTokenCloseCData : -1;
    case '-':
        return second == '-' && isThirdClosing && !(flags & (mlContextRaw | mlContextContent)) ? mlTokenCloseComment
                                                                                               : -1;
    case '/':
        return second == '>' && !(flags & notForTagTokens) ? mlTokenCloseEmpty : -1;
    case '?':
        return second == '>' && !(flags & notForTagTokens) ? mlTokenCloseInstruction : -1;
    case '>':
        return flags & notForTagTokens ? -1 : mlTokenClose;
    case '=':
        return flags & notForTagTokens ? -1 : mlTokenEquals;
    default:
        return -1;
    }
}
