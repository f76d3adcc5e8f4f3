// foundation/vela-mlparser.h: parses markup into sections, on demand. This header also includes those of tokens,
// attributes, sections and errors.
#pragma once

#include "foundation/vela-array.h"
#include "foundation/vela-mlparseerror.h"
#include "foundation/vela-mlpool.h"
#include "foundation/vela-mlsection.h"
#include "foundation/vela-mltoken.h"
#include "foundation/vela-mltokenizer.h"
#include "foundation/vela-textstream.h"

#include <algorithm>
#include <cassert>
#include <memory>

/// A tolerant parser. Unless it is given the stream, that must live as long as the parser reads from it; it opens the
/// stream only for the duration of a call and leaves it at the position reached. A syntax error throws mlParseError and
/// keeps what has been parsed; other errors are velaErrors of the stream. A parser, its sections and its stream belong
/// to one thread at a time.
class mlParser
{
public:
    explicit mlParser(textstream const* source);
    /// Owns the stream, and frees it at the end of fullParse(): the text of a large page is not kept beside its nodes.
    explicit mlParser(std::unique_ptr<textstream> source);
    /// Parses the rest of an element of another parser, from that one's position in the same stream. The first section
    /// is a copy of the given one; the parser ends with that element.
    explicit mlParser(mlSection const* section);
    ~mlParser();
    mlParser(mlParser const&) = delete;
    mlParser& operator=(mlParser const&) = delete;

    /// From now on what stands in an ordinary tag of that name is one text, kept as it is written but for character
    /// references, up to the closing tag or the end. A literal of at most 16 small letters; may be called several
    /// times.
    void keepContentOf(char const* name) { m_keptNames.push_back(name); }
    /// From now on texts in an ordinary tag of that name keep their white space and line ends as they are written. A
    /// literal of ASCII.
    void keepSpaceIn(char const* name);
    /// From now on a text in an ordinary tag of that name keeps the quotation marks that it begins with. A literal of
    /// ASCII; may be called several times.
    void keepQuotesIn(char const* name);

    /// The outermost section with that index, which exists as soon as its tag has been read; null after the last.
    mlSection* getSection(unsigned int index);
    /// Parses everything, including long texts, and detaches from the stream, which may then be destroyed before the
    /// parser.
    void fullParse();
    /// Adds an empty section at the current position: inside the innermost open section, or as an outermost one.
    mlSection* nextSection();
    /// Adds a section made with `new` at that position and takes ownership.
    void append(mlSection* section);
    /// The first tag of that name in depth-first order, parsing until it is found; null if there is none.
    mlSection* findSection(sstring const& name);

    /// The whole text as markup; parses to the end.
    sstring toString();
    /// The same with one item per line, indented by depth.
    sstring toFormattedString();

    /// Opens the stream for several calls, until the matching close(). Returns 0 if the stream can not be opened.
    int reopen();
    /// Ends a reopen(); the last one closes the stream and discards the pushed positions.
    void close();

    // The stream's position. Positions can be pushed between reopen() and close().
    void pushPos();
    void popPos();
    bookmark getPos();
    void setPos(bookmark const& place);
    void rewind();

    /// The next token without a context: white space ends a text.
    mlToken peekToken();
    mlToken popToken();
    /// Reads one token in a context of mlContext bits. Any pointer may be null. `start` receives the position of an
    /// unquoted text. If both `start` and `truncated` are given, a text longer than 1,024 units is truncated and its
    /// rest is skipped.
    void popToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                  unsigned long flags);
    /// The same, skipping comments.
    void popTokenSkipComments(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                              unsigned long flags);
    /// The type of the token at the current position, or -1 if there is none.
    int isToken(unsigned long flags);

    /// The character references that nobody knows, in what has been read.
    velaArray<mlUnknownReference> const& unknownReferences() const { return m_tokens.unknownReferences(); }
    /// The current line, from 1.
    unsigned int getLine() const { return m_tokens.line(); }
    /// The stream; null after fullParse().
    textstream* getStream() const { return m_tokens.getStream(); }

private:
    friend class mlSection;

    class OpenStream;
    struct Place
    {
        unsigned int line;
        bool hasPendingSpace;
    };

    void requireStream() const;
    [[noreturn]] void fail(mlParseErrorCode code) const;
    mlName* foldedName(char const* name);
    mlTokenType nextInContent();
    bool parseNextSection();
    void parseItem(mlTokenType type);
    void parseTag(mlTagType type);
    void parseAttributes(mlSection* section);
    bool parseAttribute();
    void readTagName();
    void parseClose();
    void parseCData();
    void addText(bool isCData);
    void parseKeptContent(char const* name);
    bool areQuotesKept() const
    {
        return std::any_of(m_quotingNames.begin(), m_quotingNames.end(),
                           [](mlName const* name) { return name->openSections != 0; });
    }
    bool isSpaceKept() const { return m_spacedName && m_spacedName->openSections != 0; }
    bool parseUntilChild(mlSection const* section, unsigned int index);
    void readFullText(mlSection* section);
    void readLongTexts();
    void openSection(mlSection* section);
    void closeInnermost();
    mlSection* innermost() const { return m_openSections.empty() ? m_root : m_openSections.back(); }
    mlSection* findAmongParsed(sstring const& name);
    sstring write(bool isFormatted);
    void reportToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace) const;

    std::unique_ptr<textstream> m_ownSource; // null when the stream belongs to somebody else
    mlTokenizer m_tokens;
    mlPool m_pool;
    mlSection* m_root;                    // parent of the outermost sections; in the pool, like all sections
    velaArray<mlSection*> m_openSections; // outermost first, from the root; empty once an incremental parser has ended
    velaArray<Place> m_pushedPlaces;      // what the tokenizer adds to each pushed position of the stream
    unsigned int m_readers = 0;           // calls of reopen() not yet closed
    bool m_isIncremental = false;         // ends with the element that it was made for
    velaArray<char const*> m_keptNames;   // of the tags whose content is kept as it is written
    velaArray<mlName*> m_quotingNames;    // of the tags that keep quotation marks; in the pool, folded
    mlName* m_spacedName = nullptr;       // of the tag that keeps white space; in the pool, folded
    bool m_keepsLongTexts = false;        // fullParse(): the stream will not be there to read them later
    bool m_hasFailed = false;             // after a syntax error only an explicit call continues
    mlSection* m_newestTag = nullptr;     // the last tag parsed, for findSection()
    velaArray<mlAttr> m_attributes;       // of the tag being parsed
    velaArray<mlSection*> m_longTexts;    // truncated texts, to be read in full by fullParse(); not owned
};

/// Keeps the stream open while it lives.
class mlParser::OpenStream
{
public:
    explicit OpenStream(mlParser& user);
    ~OpenStream()
    {
        assert(m_parser.m_readers > 0);
        m_parser.close();
    }
    OpenStream(OpenStream const&) = delete;
    OpenStream& operator=(OpenStream const&) = delete;

private:
    mlParser& m_parser;
};
