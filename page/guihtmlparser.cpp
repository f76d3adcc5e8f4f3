// page/guihtmlparser.cpp: walks the content of an element and hands each tag to its reader.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guihtmltext.h"
#include "page/guinodesource.h"
#include "page/guirareattributes.h"
#include "page/guitagtable.h"

#include <cassert>
#include <string>
#include <utility>

/// Adds the tags that make plain nodes, markers and text. The tags of other nodes are added beside those nodes.
struct pageTags
{
    pageTags();
};

pageTags::pageTags()
{
    using p = guiHtmlParser;
    constexpr auto kContent = guiReadBy<&p::pullContent>;
    constexpr auto kSkipped = guiReadBy<&p::pullNothing>;
    struct row
    {
        char const* name;
        guiTagReader read;
        unsigned traits;
    };
    constexpr row kRows[] = {
        {"h1", guiReadBy<&p::pullHeading1>, kTagNests | kTagText},
        {"h2", guiReadBy<&p::pullHeading2>, kTagNests | kTagText},
        {"h3", guiReadBy<&p::pullHeading3>, kTagNests | kTagText},
        {"dl", kContent, kTagNests | kTagText},
        {"dt", guiReadBy<&p::pullOwnParagraph>, kTagNests | kTagText},
        {"menu", guiReadBy<&p::pullMenuList>, kTagNests | kTagText},
        {"dd", guiReadBy<&p::pullListItem>, kTagNests | kTagText},
        {"ol", guiReadBy<&p::pullList>, kTagNests | kTagText},
        {"ul", guiReadBy<&p::pullList>, kTagNests | kTagText},
        {"li", guiReadBy<&p::pullMarkedItem>, kTagNests | kTagText},
        {"p", guiReadBy<&p::pullParagraph>, kTagNests | kTagText},
        {"div", guiReadBy<&p::pullDiv>, kTagNests | kTagText},
        {"center", guiReadBy<&p::pullContentAndBreak>, kTagNests | kTagText},
        {"hr", guiReadBy<&p::pullRuleTag>, kTagFollowed | kTagText},
        {"table", guiReadBy<&p::pullTableTag>, kTagNests | kTagBlock | kTagText},
        {"tbody", guiReadBy<&p::pullContentAndBreak>, kTagNests | kTagText},
        {"tr", guiReadBy<&p::pullTableRow>, kTagNests | kTagText},
        {"td", guiReadBy<&p::pullTableCellTag>, kTagNests | kTagText},
        {"th", guiReadBy<&p::pullTableHeading>, kTagNests | kTagText},
        {"thead", guiReadBy<&p::pullTableHead>, kTagNests | kTagText},
        {"tfoot", guiReadBy<&p::pullContentAndBreak>, kTagNests | kTagText},
        {"a", guiReadBy<&p::pullHyperlink>, kTagNests | kTagText | kTagInline},
        {"bdi", guiReadBy<&p::pullIsolate>, kTagNests | kTagText | kTagInline},
        {"bdo", guiReadBy<&p::pullOverride>, kTagNests | kTagText},
        {"html", kContent, kTagNests},
        {"body", kContent, kTagNests},
        {"doctype", kContent, kTagNests},
        {"messages", kContent, kTagNests},
        {"head", kSkipped, kTagPlain},
        {"title", kSkipped, kTagPlain},
        {"noframe", kSkipped, kTagPlain},
    };
    for (row const& each : kRows)
        guiTags().add(each.name, each.read, each.traits);
    for (char const* name : {"sup", "font", "br", "strong", "em", "b", "u", "cite", "i", "var"})
        guiTags().add(name, guiReadBy<&p::pullFormattingTag>, kTagFormats | kTagNests | kTagText);
}

namespace {

pageTags const thePageTags;

} // namespace

/// One level of content being read: counts the depth, restores m_lastWasBlock of the level around it, and keeps the
/// scope of the node that is being filled.
class guiHtmlParser::level
{
public:
    level(guiHtmlParser& parser, guiHtml* parent)
        : m_parser(parser), m_parent(parent), m_lastWasBlock(parser.m_lastWasBlock)
    {
        m_ownsScope = parser.m_scopes.empty() || parser.m_scopes.back().parent != parent;
        if (m_ownsScope)
            parser.m_scopes.push_back({parent, 0, parent->m.alignX});
        parser.m_lastWasBlock = false;
        ++parser.m_depth;
    }
    ~level()
    {
        assert(m_parser.m_depth > 0 && m_parser.m_scopes.back().parent == m_parent);
        --m_parser.m_depth;
        m_parser.m_lastWasBlock = m_lastWasBlock;
        if (m_ownsScope)
            m_parser.m_scopes.pop_back();
    }
    level(level const&) = delete;
    level& operator=(level const&) = delete;

private:
    guiHtmlParser& m_parser;
    [[maybe_unused]] guiHtml* m_parent; // not owned; only checked
    bool m_lastWasBlock;
    bool m_ownsScope;
};

guiHtmlParser::guiHtmlParser(mlParser* parser, sstring const& directory, sstring const& file)
    : m_parser(parser), m_directory(directory), m_mistakes(file), m_loadsBefore(guiHtml::pendingLoadCount())
{
    assertOnGuiThread();
    if (!parser)
        return;
    for (char const* name : {"textarea", "script", "style"})
        parser->keepContentOf(name);
    for (char const* name : {"code", "kbd", "samp", "tt"})
        parser->keepQuotesIn(name);
    parser->keepSpaceIn("pre");
}

guiHtmlParser::~guiHtmlParser() = default;

bool guiHtmlParser::mayLoad() const { return guiHtml::pendingLoadCount() != m_loadsBefore; }

bool guiHtmlParser::isFormattingTag(sstring const& name)
{
    guiTagTable::entry const* tag = guiTags().find(name);
    return tag && (tag->traits & kTagFormats);
}

// Some elements are never closed (hr, img, ...) and therefore contain everything that follows; thousands of them would
// nest thousands of levels deep. The loop reads their content, and everything beyond the deepest level, without
// recursion.
void guiHtmlParser::pullContent(guiHtml* parent, mlSection* section)
{
    struct place
    {
        mlSection* section;
        unsigned next;
    };
    assert(parent && section);
    level here(*this, parent);
    std::vector<place> outer;
    place at{section, 0};
    while (true) {
        mlSection* item = at.section->getChild(at.next++);
        if (item && pullItem(parent, item)) {
            outer.push_back(at);
            at = {item, 0};
        } else if (!item) {
            if (outer.empty())
                return;
            at = outer.back();
            outer.pop_back();
        }
    }
}

/// Reads one item. True when the caller has to read the item's content, into the same node.
bool guiHtmlParser::pullItem(guiHtml* parent, mlSection* item)
{
    unsigned const before = parent->getChildCount();
    if (!item->isTag()) {
        pullTextItem(parent, item);
        m_lastWasBlock = false;
        noteSource(parent, before, item, true);
        return false;
    }
    unsigned length = 0;
    unsigned short const* name = item->getNameUnits(&length);
    guiTagTable::entry const* tag = guiTags().find(name, length);
    unsigned traits = tag ? tag->traits : kTagNests | kTagBlock;
    if ((traits & kTagNests) && m_depth >= kMaxNesting) {
        warnOfDepth(item->getLine());
        return true;
    }
    if (tag && !(traits & kTagSkipped))
        m_mistakes.checkAttributes(item);
    guiTagReader const reader = tag ? tag->read : guiReadBy<&guiHtmlParser::pullUnknown>;
    if ((traits & kTagText) && item->findAttr("dir"))
        pullDirected(parent, item, reader, traits & (kTagInline | kTagFormats));
    else
        reader(*this, parent, item);
    if ((traits & kTagText) && item->findAttr("id"))
        keepMark(parent, item, before);
    noteSource(parent, before, item, traits & (kTagInline | kTagFormats));
    m_lastWasBlock = traits & kTagBlock;
    return traits & kTagFollowed;
}

void guiHtmlParser::noteSource(guiHtml* parent, unsigned before, mlSection* item, bool isWithin)
{
    if (guiAreNodeSourcesKept())
        guiNoteNodeSource(parent, before, item, isWithin, m_mistakes.file());
}

/// A link to the element's id jumps to the first node that came with it, or to the run that it is a part of.
void guiHtmlParser::keepMark(guiHtml* parent, mlSection* section, unsigned before)
{
    guiHtml* target = getLastIfText(parent);
    for (unsigned i = before; i < parent->getChildCount(); ++i)
        if (guiChildList::isNode(parent->getChild(i))) {
            target = parent->getChild(i);
            break;
        }
    if (target && !target->hasString(kStringBookmark))
        target->setString(kStringBookmark, pullData(section, "id"));
}

void guiHtmlParser::pullUnknown(guiHtml* parent, mlSection* section)
{
    m_mistakes.addUnknownTag(section);
    pullContent(parent, section);
}

void guiHtmlParser::warnOfDepth(unsigned line)
{
    if (!std::exchange(m_warnedOfDepth, true) && m_mistakes.mayAdd())
        m_mistakes.add("guiHtmlParser::pullContent() - elements nested deeper than " + std::to_string(kMaxNesting) +
                           " levels are flattened (warning)",
                       line);
}

void guiHtmlParser::pullNothing(guiHtml*, mlSection*) {}

void guiHtmlParser::pullOwnParagraph(guiHtml* parent, mlSection* section)
{
    appendParagraph(parent);
    pullContent(parent, section);
    appendParagraph(parent);
}

void guiHtmlParser::pullHeading(guiHtml* parent, mlSection* section, char const* font)
{
    appendParagraph(parent);
    guiRunText& text = findOrCreateText(parent)->editText();
    text += "[[b]][[";
    text += font;
    text += "]]";
    sstring const outer = std::exchange(m_fontInForce, font);
    unsigned const first = parent->getChildCount() - 1;
    pullContent(parent, section);
    m_fontInForce = outer;
    markHeading(parent, first, section);
    appendParagraph(parent);
}

namespace {

/// "1" to "6".
sstring levelOf(mlSection* heading)
{
    for (char const* name : {"h1", "h2", "h3", "h4", "h5"})
        if (heading->isNamed(name))
            return sstring(name + 1);
    return sstring("6");
}

} // namespace

/// The runs of text from an entry on are those of the heading.
void guiHtmlParser::markHeading(guiHtml* parent, unsigned first, mlSection* section)
{
    sstring const level = levelOf(section);
    for (unsigned i = first; i < parent->getChildCount(); ++i)
        if (guiHtml* child = parent->getChild(i); guiChildList::isNode(child) && child->getType() == guiHtml::kTypeText)
            guiSetRareAttribute(child, guiRareAttribute::kHeading, level);
}

void guiHtmlParser::pullHeading1(guiHtml* parent, mlSection* section) { pullHeading(parent, section, ",24"); }
void guiHtmlParser::pullHeading2(guiHtml* parent, mlSection* section) { pullHeading(parent, section, ",18"); }
void guiHtmlParser::pullHeading3(guiHtml* parent, mlSection* section) { pullHeading(parent, section, ",14"); }

void guiHtmlParser::pullParagraph(guiHtml* parent, mlSection* section)
{
    appendParagraph(parent);
    pullDivider(parent, section);
    appendParagraph(parent);
}

void guiHtmlParser::pullDiv(guiHtml* parent, mlSection* section)
{
    appendLineBreak(parent);
    pullDivider(parent, section);
    appendLineBreak(parent);
}

void guiHtmlParser::pullContentAndBreak(guiHtml* parent, mlSection* section)
{
    pullContent(parent, section);
    appendLineBreak(parent);
}
