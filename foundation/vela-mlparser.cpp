// foundation/vela-mlparser.cpp: see the header. Tokens are read in vela-mltokenizer.cpp, sections are parsed in
// vela-mlparser-sections.cpp.

#include "foundation/vela-mlparser.h"

#include "foundation/vela-error.h"
#include "foundation/vela-mlwriter.h"

#include <cassert>
#include <cerrno>
#include <utility>

mlParser::mlParser(textstream const* source)
    : m_tokens(const_cast<textstream*>(source)), m_pool(this), m_root(mlSection::make(&m_pool)), m_openSections{m_root}
{}

mlParser::mlParser(std::unique_ptr<textstream> source) : mlParser(source.get()) { m_ownSource = std::move(source); }

mlParser::mlParser(mlSection const* section)
    : m_tokens(section->getParser() ? section->getParser()->getStream() : nullptr),
      m_pool(this),
      m_root(mlSection::make(&m_pool)),
      m_openSections{m_root},
      m_isIncremental(true)
{
    mlSection* copy = section->copyInto(&m_pool);
    m_root->linkChild(copy);
    if (mlParser const* other = section->getParser()) {
        m_tokens.setLine(other->m_tokens.line());
        m_tokens.setPendingSpace(other->m_tokens.hasPendingSpace());
        m_pool.setLocale(other->m_pool.m_locale);
    }
    // An open section is always its parent's last child.
    for (; section && section->hasFlag(mlSection::kIsOpen);
         section = section->parsedChild(section->getChildCount() - 1)) {
        assert(copy);
        openSection(copy);
        copy = copy->parsedChild(copy->getChildCount() - 1);
    }
    if (m_openSections.size() == 1)
        m_openSections.clear();
}

mlParser::~mlParser() = default;

void mlParser::requireStream() const
{
    if (!getStream())
        throw velaError(EBADF);
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
    m_tokens.syncStream();
    m_pool.setLocale(getStream()->getLocale());
    m_pushedPlaces.clear();
    getStream()->close();
}

/// If the stream can not be opened, reading from it throws; only running out of memory is reported here.
mlParser::OpenStream::OpenStream(mlParser& user) : m_parser(user)
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
        return m_root->parsedChild(index);
    OpenStream const open(*this);
    while (index >= m_root->getChildCount())
        if (!parseNextSection())
            return nullptr;
    return m_root->parsedChild(index);
}

void mlParser::fullParse()
{
    if (!getStream())
        return;
    {
        OpenStream const open(*this);
        m_keepsLongTexts = true;
        while (parseNextSection()) {}
        readLongTexts();
    }
    m_tokens.setStream(nullptr);
    m_ownSource.reset();
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

mlSection* mlParser::findAmongParsed(sstring const& name)
{
    // Walking the tree would make it grow; here only the existing sections count.
    bool const hadFailed = std::exchange(m_hasFailed, true);
    mlSection* found = m_root->findSection(name);
    m_hasFailed = hadFailed;
    return found;
}

mlSection* mlParser::findSection(sstring const& name)
{
    if (mlSection* found = findAmongParsed(name))
        return found;
    if (!getStream())
        return nullptr;
    OpenStream const open(*this);
    // Sections are made in depth-first order, so the first new one of that name is the result.
    istring const wanted(name);
    do {
        m_newestTag = nullptr;
        if (!parseNextSection())
            return nullptr;
    } while (!m_newestTag || m_newestTag->getName() != wanted);
    return m_newestTag;
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
    m_pushedPlaces.push_back({m_tokens.line(), m_tokens.hasPendingSpace()});
}

void mlParser::popPos()
{
    requireStream();
    m_tokens.syncStream();
    getStream()->popPos();
    if (m_pushedPlaces.empty())
        return; // it was pushed directly on the stream
    m_tokens.setLine(m_pushedPlaces.back().line);
    m_tokens.setPendingSpace(m_pushedPlaces.back().hasPendingSpace);
    m_pushedPlaces.pop_back();
}

bookmark mlParser::getPos()
{
    OpenStream const open(*this);
    m_tokens.syncStream();
    return getStream()->getPos();
}

void mlParser::setPos(bookmark const& place)
{
    OpenStream const open(*this);
    m_tokens.syncStream();
    getStream()->setPos(place);
}

void mlParser::rewind()
{
    OpenStream const open(*this);
    m_tokens.syncStream();
    getStream()->rewind();
    m_tokens.setLine(1);
    m_tokens.setPendingSpace(false);
}

mlToken mlParser::peekToken()
{
    OpenStream const open(*this);
    pushPos();
    mlToken token = popToken();
    popPos();
    return token;
}

mlToken mlParser::popToken()
{
    OpenStream const open(*this);
    mlTokenType const type = m_tokens.next(kContextNone, false);
    mlToken token(type, m_tokens.tokenText());
    m_tokens.syncStream();
    return token;
}

void mlParser::popToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                        unsigned long flags)
{
    OpenStream const open(*this);
    m_tokens.next(flags, start && truncated);
    reportToken(type, text, start, truncated, leadingSpace);
    m_tokens.syncStream();
}

void mlParser::popTokenSkipComments(mlTokenType* type, sstring* text, bookmark* start, int* truncated,
                                    int* leadingSpace, unsigned long flags)
{
    OpenStream const open(*this);
    m_tokens.nextSkippingComments(flags, start && truncated);
    reportToken(type, text, start, truncated, leadingSpace);
    m_tokens.syncStream();
}

void mlParser::reportToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace) const
{
    if (type)
        *type = m_tokens.type();
    if (text)
        *text = m_tokens.tokenText();
    if (start && m_tokens.isUnquotedText())
        *start = m_tokens.start();
    if (truncated)
        *truncated = m_tokens.isTruncated();
    if (leadingSpace)
        *leadingSpace = m_tokens.hasLeadingSpace();
}

int mlParser::isToken(unsigned long flags)
{
    OpenStream const open(*this);
    int const token = m_tokens.tokenAhead(flags);
    m_tokens.syncStream();
    return token;
}
