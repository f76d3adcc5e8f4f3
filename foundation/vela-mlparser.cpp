// foundation/vela-mlparser.cpp: see the header. How tokens are read is vela-mltokenizer.cpp's business.
#include "foundation/vela-mlparser.h"

#include <cassert>
#include <cerrno>
#include <utility>

#include "foundation/vela-error.h"
#include "foundation/vela-mlwriter.h"

namespace {

constexpr int kNotOpen = 9;

} // namespace

mlParser::mlParser(textstream const* source)
    : m_tokens(const_cast<textstream*>(source)), m_pool(this), m_root(mlSection::make(&m_pool)), m_open{m_root}
{}

mlParser::mlParser(mlSection const* section)
    : m_tokens(section->getParser() ? section->getParser()->getStream() : nullptr),
      m_pool(this),
      m_root(mlSection::make(&m_pool)),
      m_open{m_root},
      m_isIncremental(true)
{
    mlSection* copy = section->copyInto(&m_pool);
    m_root->link(copy);
    if (mlParser const* other = section->getParser()) {
        m_tokens.setLine(other->m_tokens.line());
        m_tokens.setPendingSpace(other->m_tokens.pendingSpace());
        m_pool.setLocale(other->m_pool.m_locale);
    }
    // An open section is always the last child of its parent.
    for (; section && section->hasFlag(mlSection::kIsOpen);
         section = section->loadedChild(section->getChildCount() - 1)) {
        assert(copy);
        openSection(copy);
        copy = copy->loadedChild(copy->getChildCount() - 1);
    }
    if (m_open.size() == 1)
        m_open.clear();
}

mlParser::~mlParser() = default;

void mlParser::requireStream() const
{
    if (!getStream())
        throw velaError(kNotOpen);
}

void mlParser::fail(mlParseErrorCode code) const { throw mlParseError(code, m_tokens.line()); }

int mlParser::reopen()
{
    requireStream();
    ++m_readers;
    return getStream()->reopen();
}

void mlParser::close()
{
    if (m_readers > 0)
        --m_readers;
    if (m_readers > 0 || !getStream())
        return;
    m_tokens.settle();
    m_pool.setLocale(getStream()->getLocale());
    m_places.clear();
    getStream()->close();
}

/// A stream that can not be opened again has its own error once something is read from it; want of memory is told here.
mlParser::Reading::Reading(mlParser& user) : m_parser(user)
{
    m_parser.requireStream();
    if (m_parser.reopen() || FileIO_GetLastErr() != ENOMEM)
        return;
    m_parser.close();
    throw velaError(ENOMEM);
}

mlSection* mlParser::getSection(unsigned int index)
{
    if (index < m_root->getChildCount() || !getStream())
        return m_root->loadedChild(index);
    Reading reading(*this);
    while (index >= m_root->getChildCount())
        if (!parseNextSection())
            return nullptr;
    return m_root->loadedChild(index);
}

void mlParser::fullParse()
{
    if (!getStream())
        return;
    {
        Reading reading(*this);
        m_keepsLongTexts = true;
        while (parseNextSection()) {}
        readLongTexts();
    }
    m_tokens.setStream(nullptr);
}

void mlParser::readLongTexts()
{
    for (mlSection* section : velaArray<mlSection*>(std::move(m_longTexts)))
        if (section->isTruncated())
            readFullText(section);
    m_longTexts.clear();
}

mlSection* mlParser::nextSection()
{
    mlSection* section = innermost()->nextSection();
    section->m_line = m_tokens.line();
    return section;
}

void mlParser::append(mlSection* section) { innermost()->append(section); }

mlSection* mlParser::findParsed(sstring const& name)
{
    // Whoever walks the tree may make it grow; here only what is there already is wanted.
    bool const hadFailed = std::exchange(m_hasFailed, true);
    mlSection* found = m_root->findSection(name);
    m_hasFailed = hadFailed;
    return found;
}

mlSection* mlParser::findSection(sstring const& name)
{
    if (mlSection* found = findParsed(name))
        return found;
    if (!getStream())
        return nullptr;
    Reading reading(*this);
    // Sections are made in the order of a depth-first walk, so the first new one of that name is the one.
    istring const wanted(name);
    do {
        m_newest = nullptr;
        if (!parseNextSection())
            return nullptr;
    } while (!m_newest || m_newest->getName() != wanted);
    return m_newest;
}

sstring mlParser::toString() { return write(false); }

sstring mlParser::toFormattedString() { return write(true); }

sstring mlParser::write(bool isFormatted)
{
    mlWriter writer;
    if (isFormatted)
        writer.useLines(0);
    for (unsigned int i = 0; mlSection const* section = getSection(i); ++i)
        writer.writeTree(*section);
    return writer.result(m_pool);
}

void mlParser::pushPos()
{
    requireStream();
    getStream()->pushPos();
    m_places.push_back({m_tokens.line(), m_tokens.pendingSpace()});
}

void mlParser::popPos()
{
    requireStream();
    m_tokens.settle();
    getStream()->popPos();
    if (m_places.empty())
        return; // pushed at the stream itself
    m_tokens.setLine(m_places.back().line);
    m_tokens.setPendingSpace(m_places.back().isSpacePending);
    m_places.pop_back();
}

bookmark mlParser::getPos()
{
    Reading reading(*this);
    m_tokens.settle();
    return getStream()->getPos();
}

void mlParser::setPos(bookmark const& place)
{
    Reading reading(*this);
    m_tokens.settle();
    getStream()->setPos(place);
}

void mlParser::rewind()
{
    Reading reading(*this);
    m_tokens.settle();
    getStream()->rewind();
    m_tokens.setLine(1);
    m_tokens.setPendingSpace(false);
}

mlToken mlParser::peekToken()
{
    Reading reading(*this);
    pushPos();
    mlToken token = popToken();
    popPos();
    return token;
}

mlToken mlParser::popToken()
{
    Reading reading(*this);
    mlTokenType const type = m_tokens.next(kContextNone, false);
    mlToken token(type, m_tokens.tokenText());
    m_tokens.settle();
    return token;
}

void mlParser::popToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                        unsigned long flags)
{
    Reading reading(*this);
    m_tokens.next(flags, start && truncated);
    giveToken(type, text, start, truncated, leadingSpace);
    m_tokens.settle();
}

void mlParser::popTokenSkipComments(mlTokenType* type, sstring* text, bookmark* start, int* truncated,
                                    int* leadingSpace, unsigned long flags)
{
    Reading reading(*this);
    m_tokens.nextSkippingComments(flags, start && truncated);
    giveToken(type, text, start, truncated, leadingSpace);
    m_tokens.settle();
}

void mlParser::giveToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace) const
{
    if (type)
        *type = m_tokens.type();
    if (text)
        *text = m_tokens.tokenText();
    if (start && m_tokens.isRun())
        *start = m_tokens.start();
    if (truncated)
        *truncated = m_tokens.isTruncated();
    if (leadingSpace)
        *leadingSpace = m_tokens.hasLeadingSpace();
}

int mlParser::isToken(unsigned long flags)
{
    Reading reading(*this);
    int const token = m_tokens.tokenAhead(flags);
    m_tokens.settle();
    return token;
}
