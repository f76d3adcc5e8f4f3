// page/guihtmlparser.cpp: walks the content of an element and hands each tag to its reader.
#include "page/guihtmlparser.h"

#include "controls/guiimagemap.h"
#include "foundation/vela-mlparser.h"
#include "page/guihtml.h"
#include "page/guihtmltext.h"
#include "runtime/gui.h"

#include <string_view>
#include <unordered_map>

/// The tags of the page language.
struct guiHtmlTags
{
    enum trait : unsigned
    {
        kFormats = 1,  ///< formats text, makes no block
        kNests = 2,    ///< reads its content as a level of its own
        kFollowed = 4, ///< is never closed: its content stands behind it
        kBlock = 8,    ///< is a block object to a table that comes next
    };

    struct tag
    {
        guiHtmlParser::reader read;
        unsigned traits;
    };

    /// Null for a tag that the language does not have.
    static tag const* find(unsigned short const* units, unsigned length);

private:
    static std::unordered_map<std::string_view, tag> makeTable();
};

std::unordered_map<std::string_view, guiHtmlTags::tag> guiHtmlTags::makeTable()
{
    using p = guiHtmlParser;
    constexpr unsigned kFormatting = kFormats | kNests;
    std::unordered_map<std::string_view, tag> table{
        {"h1", {&p::pullHeading1, kNests}},
        {"h2", {&p::pullHeading2, kNests}},
        {"h3", {&p::pullHeading3, kNests}},
        {"dl", {&p::pullContent, kNests}},
        {"dt", {&p::pullOwnParagraph, kNests}},
        {"menu", {&p::pullMenuList, kNests}},
        {"dd", {&p::pullListItem, kNests}},
        {"ol", {&p::pullListItem, kNests}},
        {"ul", {&p::pullListItem, kNests}},
        {"li", {&p::pullListItem, kNests}},
        {"p", {&p::pullParagraph, kNests}},
        {"div", {&p::pullDiv, kNests}},
        {"hr", {&p::pullRuleTag, kFollowed}},
        {"table", {&p::pullTableTag, kNests | kBlock}},
        {"tr", {&p::pullTableRow, kNests}},
        {"td", {&p::pullTableCellTag, kNests}},
        {"form", {&p::pullFormTag, kNests}},
        {"img", {&p::pullImageTag, kFollowed | kBlock}},
        {"input", {&p::pullInput, kFollowed}},
        {"textarea", {&p::pullInputEditField, 0}},
        {"select", {&p::pullInputList, 0}},
        {"center", {&p::pullContentAndBreak, kNests}},
        {"tbody", {&p::pullContentAndBreak, kNests}},
        {"a", {&p::pullHyperlink, kNests}},
        {"frameset", {&p::pullFrameset, kNests | kBlock}},
        {"frame", {&p::pullFrameTag, kFollowed | kBlock}},
        {"noframe", {&p::pullNothing, 0}},
        {"head", {&p::pullNothing, 0}},
        {"title", {&p::pullNothing, 0}},
        {"html", {&p::pullContent, kNests}},
        {"body", {&p::pullContent, kNests}},
        {"doctype", {&p::pullContent, kNests}},
        {"messages", {&p::pullContent, kNests}},
        {"object", {&p::pullObject, kBlock}},
        {"map", {&p::pullImageMap, 0}},
    };
    for (std::string_view name : {"sup", "font", "br", "strong", "em", "b", "u", "cite", "i", "var"})
        table.emplace(name, tag{&p::pullFormattingTag, kFormatting});
    return table;
}

guiHtmlTags::tag const* guiHtmlTags::find(unsigned short const* units, unsigned length)
{
    // For ever: the GUI thread still parses while the process exits.
    static auto const& table = *new std::unordered_map<std::string_view, tag>(makeTable());
    constexpr unsigned kLongest = 8;
    if (length > kLongest)
        return nullptr;
    char folded[kLongest];
    for (unsigned i = 0; i < length; ++i) {
        if (units[i] > 0x7F)
            return nullptr;
        bool isUpper = units[i] >= 'A' && units[i] <= 'Z';
        folded[i] = static_cast<char>(isUpper ? units[i] + ('a' - 'A') : units[i]);
    }
    auto found = table.find(std::string_view(folded, length));
    return found == table.end() ? nullptr : &found->second;
}

/// One level of content being read: counts the depth, keeps the flag of the level around, and remembers the alignment
/// of the node that is being filled.
class guiHtmlParser::level
{
public:
    level(guiHtmlParser& parser, guiHtml* parent) : m_parser(parser), m_lastWasBlock(parser.m_lastWasBlock)
    {
        m_ownsScope = parser.m_scopes.empty() || parser.m_scopes.back().parent != parent;
        if (m_ownsScope)
            parser.m_scopes.push_back({parent, 0, parent->m.alignX});
        parser.m_lastWasBlock = false;
        ++parser.m_depth;
    }
    ~level()
    {
        --m_parser.m_depth;
        m_parser.m_lastWasBlock = m_lastWasBlock;
        if (m_ownsScope)
            m_parser.m_scopes.pop_back();
    }
    level(level const&) = delete;
    level& operator=(level const&) = delete;

private:
    guiHtmlParser& m_parser;
    bool m_lastWasBlock;
    bool m_ownsScope;
};

guiHtmlParser::guiHtmlParser(mlParser* parser, sstring const& directory)
    : m_parser(parser), m_directory(directory), m_loadsBefore(guiHtml::namedLoads())
{}

guiHtmlParser::~guiHtmlParser() = default;

bool guiHtmlParser::mayLoad() const { return guiHtml::namedLoads() != m_loadsBefore; }

bool guiHtmlParser::isFormattingTag(sstring const& name)
{
    guiHtmlTags::tag const* tag = guiHtmlTags::find(name.getUnicode(), name.getLength());
    return tag && (tag->traits & guiHtmlTags::kFormats);
}

// Some elements are never closed (hr, img, ...) and so contain all that follows them; a page of thousands of them nests
// as deeply. Their content, and everything beyond the deepest level, is read here in a loop instead.
void guiHtmlParser::pullContent(guiHtml* parent, mlSection* section)
{
    struct place
    {
        mlSection* section;
        unsigned next;
    };
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

/// Reads one item. Whether its own content is still to be read, into the same node.
bool guiHtmlParser::pullItem(guiHtml* parent, mlSection* item)
{
    if (!item->isTag()) {
        pullTextItem(parent, item);
        m_lastWasBlock = false;
        return false;
    }
    unsigned length = 0;
    unsigned short const* name = item->getNameUnits(&length);
    guiHtmlTags::tag const* tag = guiHtmlTags::find(name, length);
    unsigned traits = tag ? tag->traits : guiHtmlTags::kNests | guiHtmlTags::kBlock;
    if ((traits & guiHtmlTags::kNests) && m_depth >= kMaxNesting) {
        warnOfDepth();
        return true;
    }
    (this->*(tag ? tag->read : &guiHtmlParser::pullUnknown))(parent, item);
    m_lastWasBlock = traits & guiHtmlTags::kBlock;
    return traits & guiHtmlTags::kFollowed;
}

void guiHtmlParser::pullUnknown(guiHtml* parent, mlSection* section)
{
    guiComponent::logError("guiHtmlParser::pullContent() - ignoring unrecognized tag <%s> (warning)\n",
                           guiComponent::printable(section->getName()).c_str());
    pullContent(parent, section);
}

void guiHtmlParser::warnOfDepth()
{
    if (m_warnedOfDepth)
        return;
    m_warnedOfDepth = true;
    guiComponent::logError(
        "guiHtmlParser::pullContent() - elements nested deeper than %u levels are flattened (warning)\n", kMaxNesting);
}

void guiHtmlParser::pullNothing(guiHtml*, mlSection*) {}

void guiHtmlParser::pullOwnParagraph(guiHtml* parent, mlSection* section)
{
    appendParagraph(parent);
    pullContent(parent, section);
    appendParagraph(parent);
}

void guiHtmlParser::pullHeading(guiHtml* parent, mlSection* section, char const* codes)
{
    appendParagraph(parent);
    findOrCreateText(parent)->editText() += codes;
    pullContent(parent, section);
    appendParagraph(parent);
}

void guiHtmlParser::pullHeading1(guiHtml* parent, mlSection* section) { pullHeading(parent, section, "[[b]][[,24]]"); }
void guiHtmlParser::pullHeading2(guiHtml* parent, mlSection* section) { pullHeading(parent, section, "[[b]][[,18]]"); }
void guiHtmlParser::pullHeading3(guiHtml* parent, mlSection* section) { pullHeading(parent, section, "[[b]][[,14]]"); }

void guiHtmlParser::pullMenuList(guiHtml* parent, mlSection* section)
{
    if (++m_listDepth == 1)
        appendParagraph(parent);
    else
        appendLineBreak(parent);
    pullContent(parent, section);
    if (--m_listDepth != 0)
        appendLineBreak(parent);
    else
        appendParagraph(parent);
}

void guiHtmlParser::pullListItem(guiHtml* parent, mlSection* section)
{
    unsigned outer = m_listDepth;
    if (m_listDepth == 0)
        m_listDepth = 1;
    pullOwnParagraph(parent, section);
    m_listDepth = outer;
}

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
