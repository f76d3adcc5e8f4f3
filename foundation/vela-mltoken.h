// foundation/vela-mltoken.h: the tokens of the markup: their kinds, their texts and where each is recognised. Reading
// them from a stream is vela-mltokenizer.h's business.
#pragma once

#include "vela-string.h"

enum mlTokenType
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

/// The longest token's length in units.
constexpr unsigned int mlTokenMaxLength = 9;

/// The text of tokens 1 to 13 and its length; empty for the other kinds.
char const* mlTokenText8(int type);
unsigned int mlTokenLength(int type);

/// The first token in the order of the kinds whose text the units begin with, without regard to case, and which is
/// recognised in the context; -1 when there is none.
int mlMatchToken(unsigned short const* units, unsigned int count, unsigned long flags);

/// Whether a token recognised in the context may begin with `unit`, so that nothing else needs a look.
bool mlMayBeginToken(unsigned short unit, unsigned long flags);
