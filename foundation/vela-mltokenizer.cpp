// foundation/vela-mltokenizer.cpp: see the header. Text is scanned in tight loops; a table for each context marks the
// units that need a closer look.

#include "foundation/vela-mltokenizer.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cerrno>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "foundation/vela-comtypes.h"
#include "foundation/vela-error.h"
#include "foundation/vela-mlentities.h"

namespace {

enum UnitClass : uint8_t
{
    kPlain = 0,
    kSpace = 1,
    kTokenBegin = 2, // a token may begin here
    kReference = 4
};

/// Longer texts are refused, so that lengths stay below 2^31.
constexpr size_t kMaxTextUnits = 0x7FFFFFFF;
constexpr size_t kEptBufferUnits = 65536;
constexpr size_t kMostUnknown = 1000;
constexpr unsigned int kLookAheadUnits = 20;
constexpr unsigned int kContextCount = 16;
constexpr unsigned int kBeyondTable = 128; // the table entry of all units from here on
constexpr long kGroupUnits = 8;
using ClassTable = std::array<uint8_t, kBeyondTable + 1>;

/// Whether a token of the context may begin with the unit. Every token other than the openers, which one unit decides,
/// has one of these three forms.
constexpr bool mayBeginToken(unsigned short unit, unsigned long flags)
{
    unsigned short const alone[] = {unit};
    unsigned short const closing[] = {unit, '>'};
    unsigned short const doubled[] = {unit, unit, '>'};
    return mlMatchToken(alone, 1, flags) >= 0 || mlMatchToken(closing, 2, flags) >= 0 ||
           mlMatchToken(doubled, 3, flags) >= 0;
}

constexpr std::array<ClassTable, kContextCount> makeTables()
{
    std::array<ClassTable, kContextCount> tables{};
    for (unsigned int flags = 0; flags < kContextCount; ++flags) {
        for (unsigned short unit = 0; unit < kBeyondTable; ++unit)
            tables[flags][unit] = mayBeginToken(unit, flags) ? kTokenBegin : kPlain;
        for (char blank : {' ', '\t', '\r', '\n'})
            tables[flags][static_cast<unsigned char>(blank)] = kSpace;
        tables[flags]['&'] = kReference;
    }
    return tables;
}

constexpr std::array<ClassTable, kContextCount> kClassTables = makeTables();

ClassTable const& tableFor(unsigned long flags) { return kClassTables[flags % kContextCount]; }

inline uint8_t classOf(ClassTable const& table, unsigned short unit)
{
    return table[std::min<unsigned int>(unit, kBeyondTable)];
}

inline bool isSpace(unsigned short unit) { return unit == ' ' || unit == '\n' || unit == '\r' || unit == '\t'; }
inline bool isQuote(unsigned short unit) { return unit == '"' || unit == '\''; }

bool spaceEndsRun(unsigned long flags) { return flags == kContextNone || (flags & kContextTag); }

/// The end of the text up to white space or a unit that may begin a token.
unsigned short const* plainEnd(unsigned short const* at, unsigned short const* end, ClassTable const& table,
                               bool& hasReference)
{
    unsigned int seen = kPlain;
    for (; at != end; ++at) {
        uint8_t const kind = classOf(table, *at);
        if (kind & (kSpace | kTokenBegin))
            break;
        seen |= kind;
    }
    hasReference |= seen == kReference;
    return at;
}

#ifdef __SSE2__

/// Skips groups of eight units that are plain text in any context: without control units, units that may begin a token,
/// or two blanks in a row.
unsigned short const* skipPlainGroups(unsigned short const* at, unsigned short const* end, bool& hasReference)
{
    auto const all = [](short unit) { return _mm_set1_epi16(unit); };
    __m128i references = _mm_setzero_si128();
    for (; end - at > kGroupUnits; at += kGroupUnits) {
        __m128i const units = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
        __m128i const next = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at + 1));
        // Saturating subtraction gives zero for units up to 0x1F.
        __m128i special = _mm_cmpeq_epi16(_mm_subs_epu16(units, all(0x1F)), _mm_setzero_si128());
        for (char unit : {'<', ']', '-', '>', '=', '/', '?'})
            special = _mm_or_si128(special, _mm_cmpeq_epi16(units, all(unit)));
        __m128i const blanks = _mm_and_si128(_mm_cmpeq_epi16(units, all(' ')), _mm_cmpeq_epi16(next, all(' ')));
        if (_mm_movemask_epi8(_mm_or_si128(special, blanks)) != 0)
            break;
        references = _mm_or_si128(references, _mm_cmpeq_epi16(units, all('&')));
    }
    hasReference |= _mm_movemask_epi8(references) != 0;
    return at;
}

#else

unsigned short const* skipPlainGroups(unsigned short const* at, unsigned short const*, bool&) { return at; }

#endif

/// Like plainEnd(), for contexts in which single blanks between words belong to the text.
unsigned short const* wordsEnd(unsigned short const* at, unsigned short const* end, ClassTable const& table,
                               bool& hasReference)
{
    for (;;) {
        unsigned short const* const start = at;
        at = skipPlainGroups(at, end, hasReference);
        if (at != start && at[-1] == ' ')
            --at; // it belongs to the text only if a word follows
        at = plainEnd(at, end, table, hasReference);
        if (end - at < 2 || *at != ' ' || (classOf(table, at[1]) & (kSpace | kTokenBegin)))
            return at;
        ++at;
    }
}

} // namespace

sstring mlTokenizer::tokenText() const
{
    sstring result;
    if (m_stream && m_stream->getLocale())
        result.setLocale(m_stream->getLocale());
    if (m_tokenType == kTokenText)
        result.set(text(), 0, length());
    else
        result = mlTokenText8(m_tokenType).empty() ? "" : mlTokenText8(m_tokenType).data();
    return result;
}

void mlTokenizer::setStream(textstream* source)
{
    dropLookAhead();
    m_stream = source;
}

void mlTokenizer::syncStream()
{
    assert(m_at >= m_base && m_at <= m_end);
    if (m_at != m_base)
        m_stream->skipRun(unitsBetween(m_base, m_at));
    dropLookAhead();
}

bool mlTokenizer::refill()
{
    assert(m_at == m_end); // otherwise units would be skipped
    syncStream();
    unsigned int count = 0;
    m_base = m_at = m_stream->peekRun(count);
    m_end = m_at + count;
    return count != 0;
}

/// Skips white space, counting lines. Returns whether there was any.
bool mlTokenizer::skipSpace()
{
    bool hasSkipped = false;
    while (hasUnit()) {
        unsigned short const* p = m_at;
        for (; p != m_end && isSpace(*p); ++p)
            m_currentLine += *p == '\n';
        hasSkipped |= p != m_at;
        m_at = p;
        if (p != m_end)
            break;
    }
    return hasSkipped;
}

/// The token at the current position, which must not be the end.
inline int mlTokenizer::matchHere(unsigned long flags)
{
    bool const isAllHere = m_end - m_at >= static_cast<long>(kTokenMaxLength);
    return isAllHere ? mlMatchToken(m_at, kTokenMaxLength, flags) : matchAcross(flags);
}

/// The same for a token that may continue in the next chunk.
int mlTokenizer::matchAcross(unsigned long flags)
{
    syncStream();
    unsigned short ahead[kLookAheadUnits + 1];
    unsigned int const count = m_stream->peek(ahead, kLookAheadUnits);
    refill();
    return mlMatchToken(ahead, count, flags);
}

inline void mlTokenizer::consume(unsigned int count)
{
    while (count != 0 && hasUnit()) {
        unsigned int const step = std::min(count, unitsBetween(m_at, m_end));
        m_at += step;
        count -= step;
    }
    assert(count == 0); // the token was there a moment ago
}

int mlTokenizer::tokenAhead(unsigned long flags) { return hasUnit() ? matchHere(flags) : -1; }

mlTokenType mlTokenizer::next(unsigned long flags, bool isLimited)
{
    if (m_buffer.capacity() > kEptBufferUnits)
        m_buffer = {};
    m_buffer.clear();
    m_isTruncated = m_isUnquotedText = m_hasReference = false;
    bool const wasPending = m_hasPendingSpace;
    m_hasPendingSpace = false;
    m_hasLeadingSpace = skipSpace() || wasPending;
    m_firstLine = m_currentLine;
    if (m_at == m_end)
        return m_tokenType = kTokenEnd;
    unsigned short const unit = *m_at;
    if (isQuote(unit) && !(flags & kContextCode)) {
        readQuoted(flags);
        return m_tokenType = kTokenText;
    }
    if (classOf(tableFor(flags), unit) & kTokenBegin) {
        int const token = matchHere(flags);
        if (token >= 0) {
            consume(mlTokenLength(token));
            return m_tokenType = static_cast<mlTokenType>(token);
        }
    }
    readRun(flags, isLimited);
    return m_tokenType = kTokenText;
}

mlTokenType mlTokenizer::nextSkippingComments(unsigned long flags, bool isLimited)
{
    bool hadSpace = false;
    while (next(flags, isLimited) == kTokenOpenComment) {
        hadSpace |= m_hasLeadingSpace;
        skipComment();
    }
    m_hasLeadingSpace |= hadSpace;
    return m_tokenType;
}

/// Reads a quoted text of any length. Between tags a "<" ends it, too, so that a single quotation mark in a text does
/// not consume the rest of the page.
void mlTokenizer::readQuoted(unsigned long flags)
{
    assert(m_at != m_end && isQuote(*m_at));
    unsigned short const quote = *m_at++;
    unsigned short const stop = flags & kContextContent ? static_cast<unsigned short>('<') : quote;
    bool isClosed = false;
    while (!isClosed && hasUnit()) {
        unsigned short const* p = m_at;
        for (; p != m_end && *p != quote && *p != stop; ++p) {
            m_currentLine += *p == '\n';
            m_hasReference |= *p == '&';
        }
        append(m_at, p, false, false);
        isClosed = p != m_end;
        m_at = p + (isClosed && *p == quote);
    }
    decode(flags);
}

void mlTokenizer::readRun(unsigned long flags, bool isLimited)
{
    ClassTable const& table = tableFor(flags);
    bool const isWord = spaceEndsRun(flags);
    bool isBlank = false; // white space has been read but not yet stored
    m_isUnquotedText = true;
    assert(m_at != m_end && m_at >= m_stream->cacheBegin());
    m_textStart = bookmark(m_stream->cacheStart(), unitsBetween(m_stream->cacheBegin(), m_at));
    while (hasUnit()) {
        unsigned short const* p =
            isWord ? plainEnd(m_at, m_end, table, m_hasReference) : wordsEnd(m_at, m_end, table, m_hasReference);
        if (p == m_at && isSpace(*p)) {
            if (isWord)
                break;
            isBlank |= skipSpace();
            continue;
        }
        if (p == m_at) {
            if (matchHere(flags) >= 0)
                break;
            p = m_at + 1;
        }
        append(m_at, p, isBlank, isLimited);
        isBlank = false;
        m_at = p;
    }
    m_hasPendingSpace = isBlank && (flags & kContextContent);
    decode(flags);
}

/// Whether "</", the name in letters of any case and something that ends a name come next.
bool mlTokenizer::isClosingTagHere(std::string_view name)
{
    assert(name.size() + 3 <= kLookAheadUnits);
    syncStream();
    unsigned short ahead[kLookAheadUnits + 1];
    unsigned int const count = m_stream->peek(ahead, kLookAheadUnits);
    refill();
    unsigned int const end = static_cast<unsigned int>(name.size()) + 2;
    if (count < end || ahead[0] != '<' || ahead[1] != '/')
        return false;
    auto isSame = [](unsigned short unit, char letter) { return unit < 128 && (unit | 0x20) == letter; };
    bool const isNamed = std::equal(ahead + 2, ahead + end, name.begin(), isSame);
    return isNamed && (count == end || ahead[end] == '>' || ahead[end] == '/' || isSpace(ahead[end]));
}

void mlTokenizer::startKeptText()
{
    m_buffer.clear();
    m_tokenType = kTokenText;
    m_isTruncated = m_isUnquotedText = m_hasReference = m_hasPendingSpace = m_hasLeadingSpace = false;
    m_firstLine = m_currentLine;
}

/// Adds what stands before `end` to the text as it is.
void mlTokenizer::keepUntil(unsigned short const* end)
{
    m_currentLine += static_cast<unsigned int>(std::count(m_at, end, '\n'));
    m_hasReference |= std::find(m_at, end, '&') != end;
    append(m_at, end, false, false);
    m_at = end;
}

void mlTokenizer::readUntilClosed(std::string_view name)
{
    startKeptText();
    while (hasUnit()) {
        if (*m_at == '<' && isClosingTagHere(name))
            break;
        keepUntil(std::find(m_at + 1, m_end, '<'));
    }
    decode(kContextContent);
}

mlTokenType mlTokenizer::nextSpaced()
{
    if (!hasUnit() || *m_at == '<')
        return nextSkippingComments(kContextContent, false);
    startKeptText();
    while (hasUnit() && *m_at != '<')
        keepUntil(std::find(m_at, m_end, '<'));
    decode(kContextContent);
    return m_tokenType;
}

/// A text that was cut is read once more when its end is asked for, and speaks then of what is unknown in it.
void mlTokenizer::decode(unsigned long flags)
{
    if (!m_hasReference || (flags & kContextRaw))
        return;
    std::vector<std::string> unknown;
    m_buffer.resize(decodeReferences(m_buffer.data(), length(), m_isTruncated ? nullptr : &unknown));
    for (std::string& name : unknown)
        if (m_unknownReferences.size() < kMostUnknown)
            m_unknownReferences.push_back({std::move(name), m_firstLine});
}

void mlTokenizer::append(unsigned short const* from, unsigned short const* to, bool afterBlank, bool isLimited)
{
    size_t const total = m_buffer.size() + afterBlank + unitsBetween(from, to);
    if (total > kMaxTextUnits)
        throw velaError(ENOMEM);
    assert(!m_isTruncated || m_buffer.size() == kLengthLimit);
    if (m_isTruncated)
        return;
    m_isTruncated = isLimited && total > kLengthLimit;
    if (afterBlank)
        m_buffer.push_back(' ');
    m_buffer.insert(m_buffer.end(), from, m_isTruncated ? from + std::min<long>(to - from, kLengthLimit) : to);
    if (m_isTruncated)
        m_buffer.resize(kLengthLimit);
}

/// Skips a comment whose opener has been read. Quoted texts are recognised here, too: a "-->" inside one does not end
/// the comment.
void mlTokenizer::skipComment()
{
    for (;;) {
        skipSpace();
        if (m_at == m_end)
            return;
        if (isQuote(*m_at))
            skipQuoted();
        else if (matchHere(kContextComment) >= 0)
            return consume(mlTokenLength(kTokenCloseComment));
        else
            skipToHyphens();
    }
}

void mlTokenizer::skipQuoted()
{
    unsigned short const quote = *m_at++;
    while (hasUnit()) {
        unsigned short const unit = *m_at++;
        m_currentLine += unit == '\n';
        if (unit == quote)
            return;
    }
}

/// Skips the text of a comment up to "-->" or the end.
void mlTokenizer::skipToHyphens()
{
    while (hasUnit()) {
        unsigned short const* p = m_at;
        for (; p != m_end && *p != '-'; ++p)
            m_currentLine += *p == '\n';
        m_at = p;
        if (p == m_end)
            continue;
        if (matchHere(kContextComment) >= 0)
            return;
        ++m_at;
    }
}
