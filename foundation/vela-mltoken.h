// foundation/vela-mltoken.h: the tokens of the markup: their types, their texts and the contexts in which they are
// recognised. vela-mltokenizer.h reads them from a stream.
#pragma once

#include "foundation/vela-string.h"

#include <iterator>
#include <string_view>

enum mlTokenType : int
{
    kTokenEnd = 0,
    kTokenOpenCData = 1,         ///< "<![CDATA["
    kTokenOpenInclude = 2,       ///< "<!--#"
    kTokenOpenComment = 3,       ///< "<!--"
    kTokenOpenDeclaration = 4,   ///< "<!"
    kTokenOpenClose = 5,         ///< "</"
    kTokenOpenInstruction = 6,   ///< "<?"
    kTokenOpen = 7,              ///< "<"
    kTokenCloseCData = 8,        ///< "]]>"
    kTokenCloseComment = 9,      ///< "-->"
    kTokenCloseEmpty = 10,       ///< "/>"
    kTokenCloseInstruction = 11, ///< "?>"
    kTokenClose = 12,            ///< ">"
    kTokenEquals = 13,           ///< "="
    kTokenText = 14,             ///< a run of text, or a quoted string
    kTokenNone = 15
};

/// The contexts of the tokenizer, as bits. They determine which tokens are recognised and whether white space ends a
/// text.
enum mlContext : unsigned long
{
    kContextNone = 0, ///< as inside a tag
    kContextTag = 1,  ///< inside a tag: white space ends a text
    kContextRaw = 2,  ///< character data: character references are not decoded
    kContextComment = 4,
    kContextContent = 8, ///< text between tags
    kContextCode = 16    ///< with kContextContent: a quotation mark is a character like any other
};

/// A token with its text.
class mlToken
{
public:
    mlToken() = default;
    mlToken(mlTokenType kind, sstring const& content) : m_type(kind), m_text(content) {}

    mlTokenType getType() const { return m_type; }
    sstring const& getText() const { return m_text; }

private:
    mlTokenType m_type = kTokenNone;
    sstring m_text;
};

/// The texts of tokens 1 to 13, zero-terminated; empty for the other types.
constexpr std::string_view kTokenTexts[] = {"",  "<![CDATA[", "<!--#", "<!--", "<!", "</", "<?",
                                            "<", "]]>",       "-->",   "/>",   "?>", ">",  "="};
constexpr std::string_view mlTokenText8(int type)
{
    return type > 0 && type < std::ssize(kTokenTexts) ? kTokenTexts[type] : std::string_view();
}
constexpr unsigned int mlTokenLength(int type) { return static_cast<unsigned int>(mlTokenText8(type).size()); }
/// The length of the longest token.
constexpr unsigned int kTokenMaxLength = 9;

namespace mlTokenMatching {

/// The contexts in which openers, and tokens that end or divide a tag, are plain text.
constexpr unsigned long kNotForOpeners = kContextRaw | kContextComment;
constexpr unsigned long kNotForTagTokens = kContextRaw | kContextComment | kContextContent;

constexpr unsigned short unitAt(unsigned short const* units, unsigned int count, unsigned int index)
{
    return index < count ? units[index] : static_cast<unsigned short>(0);
}

constexpr bool beginsCData(unsigned short const* units, unsigned int count)
{
    char const* lower = "<![cdata[";
    for (unsigned int i = 2; i < kTokenMaxLength; ++i) {
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
        return kTokenOpenClose;
    case '?':
        return kTokenOpenInstruction;
    case '!':
        if (unitAt(units, count, 2) == '-' && unitAt(units, count, 3) == '-')
            return unitAt(units, count, 4) == '#' ? kTokenOpenInclude : kTokenOpenComment;
        return beginsCData(units, count) ? kTokenOpenCData : kTokenOpenDeclaration;
    default:
        return kTokenOpen;
    }
}

} // namespace mlTokenMatching

/// The first token, in the order of mlTokenType, that the units begin with and that the context recognises; -1 if there
/// is none. Ignores case. A hand-written decision tree, because it runs for every tag.
constexpr int mlMatchToken(unsigned short const* units, unsigned int count, unsigned long flags)
{
    using mlTokenMatching::kNotForTagTokens;
    using mlTokenMatching::unitAt;
    unsigned short const second = unitAt(units, count, 1);
    bool const isThirdClosing = unitAt(units, count, 2) == '>';
    switch (unitAt(units, count, 0)) {
    case '<':
        return flags & mlTokenMatching::kNotForOpeners ? -1 : mlTokenMatching::matchOpener(units, count);
    case ']':
        return second == ']' && isThirdClosing && !(flags & kContextComment) ? kTokenCloseCData : -1;
    case '-':
        return second == '-' && isThirdClosing && !(flags & (kContextRaw | kContextContent)) ? kTokenCloseComment : -1;
    case '/':
        return second == '>' && !(flags & kNotForTagTokens) ? kTokenCloseEmpty : -1;
    case '?':
        return second == '>' && !(flags & kNotForTagTokens) ? kTokenCloseInstruction : -1;
    case '>':
        return flags & kNotForTagTokens ? -1 : kTokenClose;
    case '=':
        return flags & kNotForTagTokens ? -1 : kTokenEquals;
    default:
        return -1;
    }
}
