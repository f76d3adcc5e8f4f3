// fuzz/markup.cpp: any text as markup. In whatever order sections are requested they are the same, and writing and
// parsing them gives the same sections again. The input is the markup itself.

#include "foundation/vela-mlparser.h"
#include "fuzz/bytes.h"
#include "fuzz/finding.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace {

using Units = std::u16string;

Units unitsOf(sstring const& text)
{
    return Units(reinterpret_cast<char16_t const*>(text.getUnicode()), text.getLength());
}

bool isBlank(char16_t unit) { return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n'; }

/// Reduces each sequence of blanks to one, as in text between tags.
Units collapsed(Units const& text)
{
    Units out;
    for (char16_t unit : text)
        if (!isBlank(unit))
            out += unit;
        else if (out.empty() || out.back() != ' ')
            out += u' ';
    return out;
}

/// All sections of a parser as a line of text, and whether writing and parsing them should give the same.
struct Outline
{
    Units line;
    unsigned depth = 0;
    bool survives = true;
};

/// Limits of the format: adjacent texts become one; a reference such as "&amp;lt;" is decoded again; a text that begins
/// with a quotation mark becomes a quoted string; blanks in quoted strings are collapsed; character data ends at the
/// first "]]>".
bool textSurvives(Units const& text, bool isData)
{
    if (isData)
        return text.find(u"]]>") == Units::npos && text == collapsed(text) && !text.starts_with(u"\"") &&
               !text.starts_with(u"'") && (text.empty() || (!isBlank(text.front()) && !isBlank(text.back())));
    return !text.empty() && text.find(u'&') == Units::npos && !text.starts_with(u"'") && text == collapsed(text) &&
           !isBlank(text.front()) && !isBlank(text.back()) && text.find(u"]]>") == Units::npos;
}

bool nameSurvives(Units const& name)
{
    static Units const special = u" \t\r\n<>=/?!-]\"'&"; // an element "!" is written like a declaration
    return !name.empty() && name.find_first_of(special) == Units::npos;
}

void addText(Outline& out, mlSection const& section, bool followsText)
{
    Units const data = unitsOf(section.getData());
    out.survives = out.survives && !followsText && textSurvives(data, section.isCData());
    out.line += section.isCData() ? u"#" : section.hasLeadingSpace() ? u" '" : u"'";
    out.line += data + u"'";
}

void addSection(Outline& out, mlSection const& section, bool followsText);

void addChildren(Outline& out, mlSection const& section)
{
    // Too deep to compare recursively.
    if (++out.depth > 2000)
        out.survives = false;
    else {
        out.line += u"[";
        bool followsText = false;
        for (unsigned i = 0; mlSection* child = section.getChild(i); ++i) {
            addSection(out, *child, followsText);
            followsText = child->isText();
        }
        out.line += u"]";
    }
    --out.depth;
}

void addSection(Outline& out, mlSection const& section, bool followsText)
{
    if (section.isText())
        return addText(out, section, followsText);
    static char16_t const* const openers[] = {u"<", u"<!", u"<?", u"<!--#"};
    Units const name = unitsOf(section.getName());
    out.survives = out.survives && nameSurvives(name);
    out.line += openers[section.getType()] + name;
    for (unsigned i = 0; mlAttr* attr = section.getAttr(i); ++i) {
        Units const value = unitsOf(attr->getRHS());
        Units const left = unitsOf(attr->getLHS());
        out.survives = out.survives && value.find(u'&') == Units::npos && left.find(u'&') == Units::npos;
        out.line.append(u" ").append(left).append(u"=").append(value);
    }
    out.line += u">";
    addChildren(out, section);
}

Outline outlineOf(mlParser& parser)
{
    Outline out;
    bool followsText = false;
    for (unsigned i = 0; mlSection* section = parser.getSection(i); ++i) {
        addSection(out, *section, followsText);
        followsText = section->isText();
    }
    return out;
}

/// A parser with the bytes that it reads.
struct Page
{
    explicit Page(std::string const& text)
        : bytes(text.begin(), text.end()), stream(bytes.data(), static_cast<unsigned>(bytes.size()), 0), parser(&stream)
    {}
    explicit Page(sstring text) : written(std::make_unique<datastream>(text)), parser(written.get()) {}

    std::vector<unsigned char> bytes;
    textstream stream;
    std::unique_ptr<datastream> written;
    mlParser parser;
};

/// Runs `read`. Returns false on a syntax error.
bool reads(std::function<void()> const& read)
{
    try {
        read();
        return true;
    } catch (mlParseError const& error) {
        require(error.toEnglishString().getLength() != 0, "an error without a text");
        return false;
    }
}

/// Requests a few random sections before the rest.
void readInJumps(mlParser& parser, FuzzRandom& random)
{
    for (unsigned i = 0; i < 8; ++i) {
        mlSection* section = parser.getSection(random.below(6));
        for (unsigned down = 0; section && section->isTag() && down < 6; ++down) {
            section->getAttr(random.below(3));
            section = section->getChild(random.below(4));
        }
        if (section && section->isText())
            section->getData();
    }
}

/// A parser for the rest of an element gives the content of that element and ends with it.
void readElsewhere(std::string const& text, FuzzRandom& random)
{
    Page page(text);
    mlSection* section = page.parser.getSection(random.below(3));
    for (unsigned down = 0; section && section->isTag() && down < random.below(4); ++down)
        section = section->getChild(0);
    if (!section)
        return;
    mlParser rest(section);
    outlineOf(rest);
    rest.toString();
}

void requireWrittenReadsBack(mlParser& parser, Outline const& outline)
{
    sstring const written = parser.toString();
    parser.toFormattedString();
    Page again(written);
    Outline second;
    bool const isRead = reads([&] { second = outlineOf(again.parser); });
    if (!outline.survives)
        return;
    require(isRead, "what was written has an error");
    require(second.line == outline.line, "what was written reads back differently");
    require(unitsOf(again.parser.toString()) == unitsOf(written), "written twice it differs");
}

/// A stream decodes its source in chunks. With a comment in front, which moves the first chunk boundary to some
/// position in the text, the sections are the same.
void requireNoTraceOfChunks(std::string const& text, FuzzRandom& random)
{
    Page page(text);
    sstring const units = page.stream.toString();
    unsigned const inFront = tsCache::kChunkSize - random.below(std::min(units.getLength(), 8000u) + 1);
    sstring const comment(("<!--" + std::string(inFront - 7, 'x') + "-->").c_str());
    Page alone(units);
    Page moved(comment + units);
    Outline first;
    Outline second;
    bool const isWhole = reads([&] { first = outlineOf(alone.parser); });
    require(reads([&] { second = outlineOf(moved.parser); }) == isWhole, "where a chunk ends decides on an error");
    require(!isWhole || first.line == second.line, "where a chunk ends changes the sections");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(uint8_t const* bytes, size_t size)
{
    std::string const text(reinterpret_cast<char const*>(bytes), size);
    FuzzRandom random{std::string_view(text)};

    Page asked(text);
    Outline onRequest;
    bool const isWhole = reads([&] { onRequest = outlineOf(asked.parser); });

    Page full(text);
    Outline atOnce;
    require(reads([&] {
                full.parser.fullParse();
                atOnce = outlineOf(full.parser);
            }) == isWhole,
            "reading at once and on request end differently");
    Page jumping(text);
    Outline inJumps;
    bool const jumpsEnd = reads([&] {
        readInJumps(jumping.parser, random);
        inJumps = outlineOf(jumping.parser);
    });
    require(jumpsEnd == isWhole, "reading in jumps ends differently");
    if (isWhole) {
        require(atOnce.line == onRequest.line, "reading at once gives other sections");
        require(inJumps.line == onRequest.line, "reading in jumps gives other sections");
        requireWrittenReadsBack(asked.parser, onRequest);
    }
    reads([&] { readElsewhere(text, random); });
    requireNoTraceOfChunks(text, random);
    return 0;
}
