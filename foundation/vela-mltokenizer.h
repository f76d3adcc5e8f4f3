// foundation/vela-mltokenizer.h: reads tokens from a text stream. It scans the stream's decoded units where they lie
// and tells the stream how far it came only when asked to (settle).
#pragma once

#include "foundation/vela-array.h"
#include "foundation/vela-mltoken.h"
#include "foundation/vela-textstream.h"

/// The stream is not owned and must be open while tokens are read. One thread at a time.
class mlTokenizer
{
public:
    explicit mlTokenizer(textstream* source) : m_stream(source) {}

    /// Reads the next token in a context (mlContext bits). With `isLimited` a text run that is longer than
    /// `lengthLimit` is cut there, skipped to its end and reported as truncated. The results below hold until the next
    /// call.
    mlTokenType next(unsigned long flags, bool isLimited);
    /// The same; comments are passed over. White space before a comment still counts for what follows it.
    mlTokenType nextSkippingComments(unsigned long flags, bool isLimited);
    /// The token at the stream's position, -1 when there is none.
    int tokenAhead(unsigned long flags);

    /// Longest text run, in units before character references are decoded, that a limited read keeps.
    static constexpr unsigned int kLengthLimit = 1024;

    mlTokenType type() const { return m_tokenType; }
    /// Units of a text token; not terminated.
    unsigned short const* text() const { return m_buffer.data(); }
    unsigned int length() const { return static_cast<unsigned int>(m_buffer.size()); }
    /// The text of the token, whatever its kind.
    sstring tokenText() const;
    /// White space stood before the token.
    bool hasLeadingSpace() const { return m_leadingSpace; }
    bool isTruncated() const { return m_truncated; }
    /// Whether the token is a text run that is not quoted; then start() is where it begins.
    bool isRun() const { return m_run; }
    bookmark const& start() const { return m_runStart; }

    /// Current line, from 1: one more than the newlines consumed.
    unsigned int line() const { return m_currentLine; }
    void setLine(unsigned int line) { m_currentLine = line; }
    /// The last text run ended in white space, which the next token is told.
    bool pendingSpace() const { return m_isSpacePending; }
    void setPendingSpace(bool isPending) { m_isSpacePending = isPending; }

    /// Moves the stream to where reading stands. Needed before anybody else uses or closes it.
    void settle();
    /// The stream was moved by somebody else: forget what was ahead.
    void forgetAhead() { m_base = m_at = m_end = nullptr; }
    void setStream(textstream* source);
    textstream* getStream() const { return m_stream; }

private:
    bool hasUnit() { return m_at != m_end || refill(); }
    bool refill();
    bool skipSpace();
    int matchHere(unsigned long flags);
    int matchAcross(unsigned long flags);
    void consume(unsigned int count);
    void readQuoted(unsigned long flags);
    void readRun(unsigned long flags, bool isLimited);
    void append(unsigned short const* from, unsigned short const* to, bool afterBlank, bool isLimited);
    void skipComment();
    void skipQuoted();
    void skipToHyphens();

    textstream* m_stream;
    // The stretch of decoded units being read: the stream stands at `base`, reading at `at`.
    unsigned short const* m_base = nullptr;
    unsigned short const* m_at = nullptr;
    unsigned short const* m_end = nullptr;

    velaArray<unsigned short> m_buffer; // the text token
    mlTokenType m_tokenType = kTokenNone;
    bookmark m_runStart;
    bool m_leadingSpace = false;
    bool m_truncated = false;
    bool m_run = false;
    bool m_hasReference = false; // an "&" was read: references may have to be decoded
    bool m_isSpacePending = false;
    unsigned int m_currentLine = 1;
};
