// foundation/vela-mlparser.h: turns markup text into sections, as far as somebody asks for them. This header alone
// brings everything of the markup: tokens, attributes, sections and errors.
#pragma once

#include <cassert>

#include "foundation/vela-array.h"
#include "foundation/vela-mlparseerror.h"
#include "foundation/vela-mlpool.h"
#include "foundation/vela-mlsection.h"
#include "foundation/vela-mltoken.h"
#include "foundation/vela-mltokenizer.h"
#include "foundation/vela-textstream.h"

/// A tolerant parser. The stream is not owned and must outlive the parser's reading; it is open only while a call
/// reads, and is left at the place the parser reached. Bad syntax throws mlParseError; what was parsed before stays.
/// Other errors are the stream's (velaError). A parser, its sections and its stream belong to one thread at a time.
class mlParser
{
public:
    explicit mlParser(textstream const* source);
    /// Parses the rest of one element of another parser, from where that one stands on the same stream. The first
    /// section is a copy of the given one, and there are others only inside of it: when its element ends, so does the
    /// parser.
    explicit mlParser(mlSection const* section);
    ~mlParser();
    mlParser(mlParser const&) = delete;
    mlParser& operator=(mlParser const&) = delete;

    /// The outermost section of that number, which exists as soon as its tag is read; null past the last.
    mlSection* getSection(unsigned int index);
    /// Parses everything, long texts included, and lets go of the stream, which may then end before the parser.
    void fullParse();
    /// A new empty section at the place where parsing is: inside the innermost open section, or outermost.
    mlSection* nextSection();
    /// Puts a section made with `new` at that place and takes it over.
    void append(mlSection* section);
    /// The first tag of that name, depth first, parsing on until it turns up; null when there is none.
    mlSection* findSection(sstring const& name);

    /// Everything as markup; parses to the end.
    sstring toString();
    /// The same with one item on a line, indented by depth.
    sstring toFormattedString();

    /// Opens the stream for several calls; each needs its close(). Returns 0 when the stream can not be opened.
    int reopen();
    /// Ends what the last reopen() began; the last one closes the stream and drops the pushed positions.
    void close();

    // The stream's position. Between reopen() and close(), positions can be pushed.
    void pushPos();
    void popPos();
    bookmark getPos();
    void setPos(bookmark const& place);
    void rewind();

    /// The next token in no particular context (white space ends a text), consumed or not.
    mlToken peekToken();
    mlToken popToken();
    /// Reads one token in a context (mlContext bits). Any pointer may be null. `start` receives the place of a text
    /// run; with both `start` and `truncated` a run longer than 1,024 units is cut there, skipped to its end and
    /// reported as truncated.
    void popToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                  unsigned long flags);
    /// The same, comments passed over.
    void popTokenSkipComments(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace,
                              unsigned long flags);
    /// The kind of the token at the stream's position, or -1.
    int isToken(unsigned long flags);

    /// The current line, from 1.
    unsigned int getLine() const { return m_tokens.line(); }
    /// The stream; null after fullParse().
    textstream* getStream() const { return m_tokens.getStream(); }

private:
    friend class mlSection;

    class Reading;
    struct Place
    {
        unsigned int line;
        bool isSpacePending;
    };

    void requireStream() const;
    [[noreturn]] void fail(mlParseErrorCode code) const;
    bool parseNextSection();
    void parseItem(mlTokenType opener);
    void parseTag(mlTagType type);
    void parseAttributes(mlSection* section);
    bool parseAttribute();
    void readTagName();
    void parseClose();
    void parseCData();
    void addText(bool isCData);
    bool parseUntilChild(mlSection const* section, unsigned int index);
    void readFullText(mlSection* section);
    void readLongTexts();
    void openSection(mlSection* section);
    void closeInnermost();
    mlSection* innermost() const { return m_open.empty() ? m_root : m_open.back(); }
    mlSection* findParsed(sstring const& name);
    sstring write(bool isFormatted);
    void giveToken(mlTokenType* type, sstring* text, bookmark* start, int* truncated, int* leadingSpace) const;

    mlTokenizer m_tokens;
    mlPool m_pool;
    mlSection* m_root;                 // its children are the outermost sections; in the pool, like all sections
    velaArray<mlSection*> m_open;      // open[0] is the root; empty once an incremental parser has ended
    velaArray<Place> m_places;         // what belongs to the stream's pushed positions
    unsigned int m_readers = 0;        // reopen() calls without their close()
    bool m_isIncremental = false;      // ends with its first element
    bool m_keepsLongTexts = false;     // fullParse(): nothing can be read again later
    bool m_hasFailed = false;          // bad syntax was met: only an explicit call reads on
    mlSection* m_newest = nullptr;     // the last tag made, for findSection()
    velaArray<mlAttr> m_attributes;    // of the tag being read
    velaArray<mlSection*> m_longTexts; // cut texts that nobody asked for yet; not owned
};

/// Keeps the stream open for one piece of work.
class mlParser::Reading
{
public:
    explicit Reading(mlParser& user);
    ~Reading()
    {
        assert(m_parser.m_readers > 0);
        m_parser.close();
    }
    Reading(Reading const&) = delete;
    Reading& operator=(Reading const&) = delete;

private:
    mlParser& m_parser;
};
