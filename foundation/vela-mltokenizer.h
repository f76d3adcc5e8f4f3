// foundation/vela-mltokenizer.h: reads tokens from a text stream. It scans the stream's decoded units in place and
// moves the stream's own position only on request (syncStream).
#pragma once

#include "foundation/vela-array.h"
#include "foundation/vela-mltoken.h"
#include "foundation/vela-textstream.h"

#include <string>
#include <string_view>

/// A character reference that nobody knows, without "&" and ";", and the line on which its text begins.
struct mlUnknownReference
{
    std::string name;
    unsigned int line;
};

/// Does not own the stream, which must be open while tokens are read. One thread at a time.
class mlTokenizer
{
public:
    explicit mlTokenizer(textstream* source) : m_stream(source) {}

    /// Reads the next token in a context of mlContext bits. With `isLimited`, an unquoted text longer than kLengthLimit
    /// is truncated and its rest is skipped. The results below are valid until the next call.
    mlTokenType next(unsigned long flags, bool isLimited);
    /// The same, skipping comments. White space before a comment counts as leading space of the next token.
    mlTokenType nextSkippingComments(unsigned long flags, bool isLimited);
    /// Reads all that stands before the closing tag of that name, small letters, or before the end, as one text. White
    /// space is kept, character references are decoded, and nothing else means anything.
    void readUntilClosed(std::string_view name);
    /// The next token between tags; a text goes up to the next tag, with its white space, and character references are
    /// decoded.
    mlTokenType nextSpaced();
    /// The type of the token at the current position, or -1 if there is none.
    int tokenAhead(unsigned long flags);

    /// The longest unquoted text that a limited read keeps, in units before character references are decoded.
    static constexpr unsigned int kLengthLimit = 1024;

    mlTokenType type() const { return m_tokenType; }
    /// The units of a text token, not terminated.
    unsigned short const* text() const { return m_buffer.data(); }
    unsigned int length() const { return static_cast<unsigned int>(m_buffer.size()); }
    /// The text of a token of any type.
    sstring tokenText() const;
    /// Whether white space preceded the token.
    bool hasLeadingSpace() const { return m_hasLeadingSpace; }
    bool isTruncated() const { return m_isTruncated; }
    /// Whether the token is a text without quotation marks; start() is then its position.
    bool isUnquotedText() const { return m_isUnquotedText; }
    bookmark const& start() const { return m_textStart; }

    /// The names of references that nobody knows, in the texts read so far; at most 1,000.
    velaArray<mlUnknownReference> const& unknownReferences() const { return m_unknownReferences; }

    /// The current line, from 1.
    unsigned int line() const { return m_currentLine; }
    void setLine(unsigned int line) { m_currentLine = line; }
    /// Whether the last text ended in white space, which is leading space of the next token.
    bool hasPendingSpace() const { return m_hasPendingSpace; }
    void setPendingSpace(bool isPending) { m_hasPendingSpace = isPending; }

    /// Moves the stream to the tokenizer's position. Needed before other code uses or closes the stream.
    void syncStream();
    /// Discards the units read ahead. Needed after other code has moved the stream.
    void dropLookAhead() { m_base = m_at = m_end = nullptr; }
    void setStream(textstream* source);
    textstream* getStream() const { return m_stream; }

private:
    bool hasUnit() { return m_at != m_end || refill(); }
    bool refill();
    bool skipSpace();
    int matchHere(unsigned long flags);
    int matchAcross(unsigned long flags);
    bool isClosingTagHere(std::string_view name);
    void startKeptText();
    void keepUntil(unsigned short const* end);
    void consume(unsigned int count);
    void readQuoted(unsigned long flags);
    void readRun(unsigned long flags, bool isLimited);
    void append(unsigned short const* from, unsigned short const* to, bool afterBlank, bool isLimited);
    void decode(unsigned long flags);
    void skipComment();
    void skipQuoted();
    void skipToHyphens();

    textstream* m_stream;
    // The decoded units being read: the stream's position is at m_base, the tokenizer's at m_at.
    unsigned short const* m_base = nullptr;
    unsigned short const* m_at = nullptr;
    unsigned short const* m_end = nullptr;

    velaArray<unsigned short> m_buffer; // the text token
    mlTokenType m_tokenType = kTokenNone;
    bookmark m_textStart;
    bool m_hasLeadingSpace = false;
    bool m_isTruncated = false;
    bool m_isUnquotedText = false;
    bool m_hasReference = false; // the text contains an "&": references may have to be decoded
    bool m_hasPendingSpace = false;
    unsigned int m_currentLine = 1;
    unsigned int m_firstLine = 1; // of the token
    velaArray<mlUnknownReference> m_unknownReferences;
};
