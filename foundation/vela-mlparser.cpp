// foundation/vela-mlparser.cpp: see the header. How tokens are read is vela-mltokenizer.cpp's business.
#include "foundation/vela-mlparser.h"

#include <cassert>
#include <cerrno>
#include <utility>

#include "foundation/vela-error.h"
#include "foundation/vela-mlwriter.h"

namespace {

constexpr int notOpen = 9;

} // namespace

mlParser::mlParser(textstream const* source)
    : tokens(const_cast<textstream*>(source)), pool(this), root(mlSection::make(&pool)), open{root}
{}

mlParser::mlParser(mlSection const* section)
    : tokens(section->getParser() ? section->getParser()->getStream() : nullptr),
      pool(this),
      root(mlSection::make(&pool)),
      open{root},
      isIncremental(true)
{
    mlSection* copy = section->copyInto(&pool);
    root->link(copy);
    if (mlParser const* other = section->getParser()) {
        tokens.setLine(other->tokens.line());
        tokens.setPendingSpace(other->tokens.pendingSpace());
        pool.setLocale(other->pool.locale);
    }
    // An open section is always the last child of its parent.
    for (; section && section->hasFlag(mlSection::IsOpen);
         section = section->loadedChild(section->getChildCount() - 1)) {
        assert(copy);
        openSection(copy);
        copy = copy->loadedChild(copy->getChildCount() - 1);
    }
    if (open.size() == 1)
        open.clear();
}

mlParser::~mlParser() = default;

void mlParser::requireStream() const
{
    if (!getStream())
        throw velaError(notOpen);
}

void mlParser::fail(mlParseErrorCode code) const { throw mlParseError(code, tokens.line()); }

int mlParser::reopen()
{
    requireStream();
    ++readers;
    return getStream()->reopen();
}

void mlParser::close()
{
    if (readers > 0)
        --readers;
    if (readers > 0 || !getStream())
        return;
    tokens.settle();
    pool.setLocale(getStream()->getLocale());
    places.clear();
    getStream()->close();
}

/// A stream that can not be opened again has its own error once something is read from it; want of memory is told here.
mlParser::Reading::Reading(mlParser& user) : parser(user)
{
    parser.requireStream();
    if (parser.reopen() || FileIO_GetLastErr() != ENOMEM)
        return;
    parser.close();
    throw velaError(ENOMEM);
}

mlSection* mlParser::getSection(unsigned int index)
{
    if (index < root->getChildCount() || !getStream())
        return root->loadedChild(index);
    Reading reading(*this);
    while (index >= root->getChildCount())
        if (!parseNextSection())
            return nullptr;
    return root->loadedChild(index);
}

void mlParser::fullParse()
{
    if (!getStream())
        return;
    {
        Reading reading(*this);
        keepsLongTexts = true;
        while (parseNextSection()) {}
        readLongTexts();
    }
    tokens.setStream(nullptr);
}

void mlParser::readLongTexts()
{
    for (mlSection* section : velaArray<mlSection*>(std::move(longTexts)))
        if (section->isTruncated())
            readFullText(section);
    longTexts.clear();
}

mlSection* mlParser::nextSection()
{
    mlSection* section = innermost()->nextSection();
    section->line = tokens.line();
    return section;
}

void mlParser::append(mlSection* section) { innermost()->append(section); }

mlSection* mlParser::findParsed(sstring const& name)
{
    // Whoever walks the tree may make it grow; here only what is there already is wanted.
    bool const hadFailed = std::exchange(hasFailed, true);
    mlSection* found = root->findSection(name);
    hasFailed = hadFailed;
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
        newest = nullptr;
        if (!parseNextSection())
            return nullptr;
    } while (!newest || newest->getName() != wanted);
    return newest;
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
    return writer.result(pool);
}

void mlParser::pushPos()
{
    requireStream();
    getStream()->pushPos();
    places.push_back({tokens.line(), tokens.pendingSpace()});
}

void mlParser::popPos()
{
    requireStream();
    tokens.settle();
    getStream()->popPos();
    if (places.empty())
        return; // pushed at the stream itself
    tokens.setLine(places.back().line);
    tokens.setPendingSpace(places.back().isSpacePending);
    places.pop_back();
}

bookmark mlParser::getPos()
{
    Reading reading(*this);
    tokens.settle();
    return getStream()->getPos();
}

void mlParser::setPos(bookmark const& place)
{
    Reading reading(*this);
    tokens.settle();
    getStream()->setPos(place);
}

void mlParser::rewind()
{
    Reading reading(*this);
    tokens.settle();
    getStream()->rewind();
    tokens.setLine(1);
    tokens.setPendingSpace(false);
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
    mlTokenType const type = tokens.next(mlContextNone, false);
    mlToken token(type, tokens.tokenText());
    tokens.settle();
    return token;
}

void mlParser::popToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                        unsigned long flags)
{
    Reading reading(*this);
    tokens.next(flags, start && truncated);
    giveToken(type, text, start, truncated, leadingSpace);
    tokens.settle();
}

void mlParser::popTokenSkipComments(mlTokenType* type, sstring* text, bookmark* start, int* truncated,
                                    int* leadingSpace, unsigned long flags)
{
    Reading reading(*this);
    tokens.nextSkippingComments(flags, start && truncated);
    giveToken(type, text, start, truncated, leadingSpace);
    tokens.settle();
}

void mlParser::giveToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace) const
{
    if (type)
        *type = tokens.type();
    if (text)
        *text = tokens.tokenText();
    if (start && tokens.isRun())
        *start = tokens.start();
    if (truncated)
        *truncated = tokens.isTruncated();
    if (leadingSpace)
        *leadingSpace = tokens.hasLeadingSpace();
}

int mlParser::isToken(unsigned long flags)
{
    Reading reading(*this);
    int const token = tokens.tokenAhead(flags);
    tokens.settle();
    return token;
}
