// page/guihtmlparser-prose.cpp: the elements of prose as it is written today: program text, quotations, small print,
// sections, and what is no text at all.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guihtmltext.h"
#include "page/guitagtable.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr char const* kFixedWidth = "monospace";

/// An element inside a line, and its codes.
struct formatTag
{
    char const* name;
    char const* style;
    char const* font;
};
constexpr formatTag kFormats[] = {
    {"code", "", kFixedWidth}, {"kbd", "", kFixedWidth}, {"samp", "", kFixedWidth}, {"tt", "", kFixedWidth},
    {"small", "", ",8"},       {"big", "", ",12"},       {"sub", "", ",8"},         {"s", "s", ""},
    {"del", "s", ""},          {"ins", "u", ""},         {"mark", "m", ""},
};

struct headingTag
{
    char const* name;
    char const* font;
};
constexpr headingTag kHeadings[] = {{"h4", ",12"}, {"h5", ",10"}, {"h6", ",8"}};

template <typename Tag, std::size_t count>
Tag const& find(Tag const (&tags)[count], mlSection* section)
{
    return *std::find_if(tags, std::end(tags), [section](Tag const& tag) { return section->isNamed(tag.name); });
}

void pullFormat(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    formatTag const& tag = find(kFormats, section);
    parser.pullFormatted(parent, section, tag.style, tag.font);
}

void pullLowHeading(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    parser.pullHeading(parent, section, find(kHeadings, section).font);
}

void pullQuotation(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    constexpr char16_t kOpening = 0x201C;
    constexpr char16_t kClosing = 0x201D;
    parser.pullQuoted(parent, section, kOpening, kClosing);
}

void pullProgram(guiHtmlParser& parser, guiHtml* parent, mlSection* section)
{
    parser.appendParagraph(parent);
    parser.pullSpaced(parent, section, kFixedWidth);
    parser.appendParagraph(parent);
}

void skip(guiHtmlParser&, guiHtml*, mlSection*) {}

struct proseTags
{
    proseTags();
};

proseTags::proseTags()
{
    auto const add = [](std::initializer_list<char const*> names, guiTagReader reader,
                        unsigned traits = kTagNests | kTagText) {
        for (char const* name : names)
            guiTags().add(name, reader, traits);
    };
    for (formatTag const& tag : kFormats)
        add({tag.name}, pullFormat, kTagNests | kTagText | kTagInline);
    for (headingTag const& tag : kHeadings)
        add({tag.name}, pullLowHeading);
    add({"q"}, pullQuotation, kTagNests | kTagText | kTagInline);
    add({"pre"}, pullProgram);
    add({"blockquote"}, guiReadBy<&guiHtmlParser::pullQuotedBlock>);
    add({"figure", "figcaption", "main", "section", "article", "nav", "header", "footer", "aside"},
        guiReadBy<&guiHtmlParser::pullDiv>);
    add({"span", "abbr", "time"}, guiReadBy<&guiHtmlParser::pullContent>, kTagNests | kTagText | kTagInline);
    add({"script", "style", "template", "noscript", "svg"}, skip, kTagSkipped);
}

proseTags const theProseTags;

} // namespace
