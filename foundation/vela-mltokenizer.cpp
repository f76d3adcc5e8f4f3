// foundation/vela-mltokenizer.cpp: see the header. Text goes through loops over plain stretches; only a unit that a
// table marks for the context gets a closer look.
#include "foundation/vela-mltokenizer.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <cstdint>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "foundation/vela-error.h"
#include "foundation/vela-mlentities.h"

namespace {

enum UnitClass : uint8_t
{
    Plain = 0,
    Space = 1,
    TokenBegin = 2, // some token of the context may begin here
    Reference = 4
};

/// No text may become longer, so that lengths stay below 2^31.
constexpr size_t maxTextUnits = 0x7FFFFFFF;
constexpr size_t keptBufferUnits = 65536;
constexpr unsigned int lookAheadUnits = 20;
constexpr unsigned int contextCount = 16;
constexpr unsigned int beyondTable = 128; // stands for every unit from here on
constexpr long groupUnits = 8;
using ClassTable = std::array<uint8_t, beyondTable + 1>;

/// Whether any token of the context begins with the unit. The longest way on is one of these.
constexpr bool mayBeginToken(unsigned short unit, unsigned long flags)
{
    unsigned short const alone[] = {unit};
    unsigned short const closing[] = {unit, '>'};
    unsigned short const doubled[] = {unit, unit, '>'};
    return mlMatchToken(alone, 1, flags) >= 0 || mlMatchToken(closing, 2, flags) >= 0 ||
           mlMatchToken(doubled, 3, flags) >= 0;
}

constexpr std::array<ClassTable, contextCount> makeTables()
{
    std::array<ClassTable, contextCount> tables{};
    for (unsigned int flags = 0; flags < contextCount; ++flags) {
        for (unsigned short unit = 0; unit < beyondTable; ++unit)
            tables[flags][unit] = mayBeginToken(unit, flags) ? TokenBegin : Plain;
        for (char blank : {' ', '\t', '\r', '\n'})
            tables[flags][static_cast<unsigned char>(blank)] = Space;
        tables[flags]['&'] = Reference;
    }
    return tables;
}

constexpr std::array<ClassTable, contextCount> classTables = makeTables();

ClassTable const& tableFor(unsigned long flags) { return classTables[flags % contextCount]; }

inline uint8_t classOf(ClassTable const& table, unsigned short unit)
{
    return table[std::min<unsigned int>(unit, beyondTable)];
}

inline bool isSpace(unsigned short unit) { return unit == ' ' || unit == '\n' || unit == '\r' || unit == '\t'; }
inline bool isQuote(unsigned short unit) { return unit == '"' || unit == '\''; }

bool spaceEndsRun(unsigned long flags) { return flags == mlContextNone || (flags & mlContextTag); }

/// End of the stretch that ends at white space or where a token may begin.
unsigned short const* plainEnd(unsigned short const* at, unsigned short const* end, ClassTable const& table,
                               bool& hasReference)
{
    unsigned int seen = Plain;
    for (; at != end; ++at) {
        uint8_t const kind = classOf(table, *at);
        if (kind & (Space | TokenBegin))
            break;
        seen |= kind;
    }
    hasReference |= seen == Reference;
    return at;
}

#ifdef __SSE2__

/// Passes over groups of eight units that end no stretch of words whatever the context: no control unit, nothing a
/// token begins with, no two blanks in a row. Stops before the first other group.
unsigned short const* skipPlainGroups(unsigned short const* at, unsigned short const* end, bool& hasReference)
{
    auto const all = [](short unit) { return _mm_set1_epi16(unit); };
    __m128i references = _mm_setzero_si128();
    for (; end - at > groupUnits; at += groupUnits) {
        __m128i const units = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at));
        __m128i const next = _mm_loadu_si128(reinterpret_cast<__m128i const*>(at + 1));
        // Unsigned units up to 0x1F: saturating subtraction leaves zero.
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

/// The same where white space does not end a run: single blanks between words belong to the stretch.
unsigned short const* wordsEnd(unsigned short const* at, unsigned short const* end, ClassTable const& table,
                               bool& hasReference)
{
    for (;;) {
        unsigned short const* const start = at;
        at = skipPlainGroups(at, end, hasReference);
        if (at != start && at[-1] == ' ')
            --at; // whether it ends the stretch depends on what follows
        at = plainEnd(at, end, table, hasReference);
        if (end - at < 2 || *at != ' ' || (classOf(table, at[1]) & (Space | TokenBegin)))
            return at;
        ++at;
    }
}

} // namespace

sstring mlTokenizer::tokenText() const
{
    sstring result;
    if (stream && stream->getLocale())
        result.setLocale(stream->getLocale());
    if (tokenType == mlTokenText)
        result.set(text(), 0, length());
    else
        result = mlTokenText8(tokenType).empty() ? "" : mlTokenText8(tokenType).data();
    return result;
}

void mlTokenizer::setStream(textstream* source)
{
    forgetAhead();
    stream = source;
}

void mlTokenizer::settle()
{
    assert(at >= base && at <= end);
    if (at != base)
        stream->skipRun(static_cast<unsigned int>(at - base));
    forgetAhead();
}

bool mlTokenizer::refill()
{
    assert(at == end); // or units would be left out
    settle();
    unsigned int count = 0;
    base = at = stream->peekRun(count);
    end = at + count;
    return count != 0;
}

/// Skips white space and counts lines; whether there was any.
bool mlTokenizer::skipSpace()
{
    bool hasSkipped = false;
    while (hasUnit()) {
        unsigned short const* p = at;
        for (; p != end && isSpace(*p); ++p)
            currentLine += *p == '\n';
        hasSkipped |= p != at;
        at = p;
        if (p != end)
            break;
    }
    return hasSkipped;
}

/// The token at the reading place, which must not be the end.
inline int mlTokenizer::matchHere(unsigned long flags)
{
    bool const isAllHere = end - at >= static_cast<long>(mlTokenMaxLength);
    return isAllHere ? mlMatchToken(at, mlTokenMaxLength, flags) : matchAcross(flags);
}

/// The same where a token may go on in the next chunk.
int mlTokenizer::matchAcross(unsigned long flags)
{
    settle();
    unsigned short ahead[lookAheadUnits + 1];
    unsigned int const count = stream->peek(ahead, lookAheadUnits);
    refill();
    return mlMatchToken(ahead, count, flags);
}

inline void mlTokenizer::consume(unsigned int count)
{
    while (count != 0 && hasUnit()) {
        unsigned int const step = std::min(count, static_cast<unsigned int>(end - at));
        at += step;
        count -= step;
    }
    assert(count == 0); // a token was seen there
}

int mlTokenizer::tokenAhead(unsigned long flags) { return hasUnit() ? matchHere(flags) : -1; }

mlTokenType mlTokenizer::next(unsigned long flags, bool isLimited)
{
    if (buffer.capacity() > keptBufferUnits)
        buffer = {};
    buffer.clear();
    truncated = run = hasReference = false;
    bool const wasPending = isSpacePending;
    isSpacePending = false;
    leadingSpace = skipSpace() || wasPending;
    if (at == end)
        return tokenType = mlTokenEnd;
    unsigned short const unit = *at;
    if (isQuote(unit)) {
        readQuoted(flags);
        return tokenType = mlTokenText;
    }
    if (classOf(tableFor(flags), unit) & TokenBegin) {
        int const token = matchHere(flags);
        if (token >= 0) {
            consume(mlTokenLength(token));
            return tokenType = static_cast<mlTokenType>(token);
        }
    }
    readRun(flags, isLimited);
    return tokenType = mlTokenText;
}

mlTokenType mlTokenizer::nextSkippingComments(unsigned long flags, bool isLimited)
{
    bool hadSpace = false;
    while (next(flags, isLimited) == mlTokenOpenComment) {
        hadSpace |= leadingSpace;
        skipComment();
    }
    leadingSpace |= hadSpace;
    return tokenType;
}

/// A quotation mark up to its match, without a limit; between tags a "<" ends it as well, so that a lone mark in a text
/// does not swallow the page.
void mlTokenizer::readQuoted(unsigned long flags)
{
    assert(at != end && isQuote(*at));
    unsigned short const quote = *at++;
    unsigned short const stop = flags & mlContextContent ? static_cast<unsigned short>('<') : quote;
    bool isClosed = false;
    while (!isClosed && hasUnit()) {
        unsigned short const* p = at;
        for (; p != end && *p != quote && *p != stop; ++p) {
            currentLine += *p == '\n';
            hasReference |= *p == '&';
        }
        append(at, p, false, false);
        isClosed = p != end;
        at = p + (isClosed && *p == quote);
    }
    if (hasReference && !(flags & mlContextRaw))
        buffer.resize(decodeReferences(buffer.data(), length()));
}

void mlTokenizer::readRun(unsigned long flags, bool isLimited)
{
    ClassTable const& table = tableFor(flags);
    bool const isWord = spaceEndsRun(flags);
    bool isBlank = false; // white space was read and not yet written
    run = true;
    assert(at != end && at >= stream->cacheBegin());
    runStart = bookmark(stream->cacheStart(), static_cast<unsigned int>(at - stream->cacheBegin()));
    while (hasUnit()) {
        unsigned short const* p =
            isWord ? plainEnd(at, end, table, hasReference) : wordsEnd(at, end, table, hasReference);
        if (p == at && isSpace(*p)) {
            if (isWord)
                break;
            isBlank |= skipSpace();
            continue;
        }
        if (p == at) {
            if (matchHere(flags) >= 0)
                break;
            p = at + 1;
        }
        append(at, p, isBlank, isLimited);
        isBlank = false;
        at = p;
    }
    isSpacePending = isBlank && (flags & mlContextContent);
    if (hasReference && !(flags & mlContextRaw))
        buffer.resize(decodeReferences(buffer.data(), length()));
}

void mlTokenizer::append(unsigned short const* from, unsigned short const* to, bool afterBlank, bool isLimited)
{
    size_t const total = buffer.size() + afterBlank + static_cast<size_t>(to - from);
    if (total > maxTextUnits)
        throw velaError(12);
    assert(!truncated || buffer.size() == lengthLimit);
    if (truncated)
        return;
    truncated = isLimited && total > lengthLimit;
    if (afterBlank)
        buffer.push_back(' ');
    buffer.insert(buffer.end(), from, truncated ? from + std::min<long>(to - from, lengthLimit) : to);
    if (truncated)
        buffer.resize(lengthLimit);
}

/// Passes over a comment whose opener was read. What begins with a quotation mark is a quoted string here too, so that
/// a "-->" inside it does not end the comment.
void mlTokenizer::skipComment()
{
    for (;;) {
        skipSpace();
        if (at == end)
            return;
        if (isQuote(*at))
            skipQuoted();
        else if (matchHere(mlContextComment) >= 0)
            return consume(mlTokenLength(mlTokenCloseComment));
        else
            skipToHyphens();
    }
}

void mlTokenizer::skipQuoted()
{
    unsigned short const quote = *at++;
    while (hasUnit()) {
        unsigned short const unit = *at++;
        currentLine += unit == '\n';
        if (unit == quote)
            return;
    }
}

/// Passes over the rest of a run in a comment, up to "-->" or the end.
void mlTokenizer::skipToHyphens()
{
    while (hasUnit()) {
        unsigned short const* p = at;
        for (; p != end && *p != '-'; ++p)
            currentLine += *p == '\n';
        at = p;
        if (p == end)
            continue;
        if (matchHere(mlContextComment) >= 0)
            return;
        ++at;
    }
}
