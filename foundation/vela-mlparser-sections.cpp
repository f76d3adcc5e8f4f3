// foundation/vela-mlparser-sections.cpp: the grammar of the markup: how tokens become sections, and which tags close
// which.

#include "foundation/vela-mlparser.h"

#include <algorithm>
#include <cstring>
#include <vector>

#include <cassert>

namespace {

mlTagType tagTypeOf(mlTokenType opener)
{
    switch (opener) {
    case kTokenOpenDeclaration:
        return kTagDeclaration;
    case kTokenOpenInstruction:
        return kTagInstruction;
    case kTokenOpenInclude:
        return kTagInclude;
    default:
        return kTagOrdinary;
    }
}

bool endsTag(mlTokenType type)
{
    return type == kTokenClose || type == kTokenCloseEmpty || type == kTokenCloseInstruction ||
           type == kTokenCloseComment;
}

bool neverNests(mlSection const& section)
{
    return section.isNamed("p") || section.isNamed("br") || section.isNamed("li");
}

} // namespace

mlTokenType mlParser::nextInContent()
{
    if (isSpaceKept())
        return m_tokens.nextSpaced();
    if (areQuotesKept())
        return m_tokens.nextSkippingComments(kContextContent | kContextCode, false);
    return m_tokens.nextSkippingComments(kContextContent, !m_keepsLongTexts);
}

/// Parses one item. Returns false at the end.
bool mlParser::parseNextSection()
{
    if (m_openSections.empty())
        return false;
    m_hasFailed = true; // stays so if the item throws
    mlTokenType const type = nextInContent();
    if (type != kTokenEnd)
        parseItem(type);
    m_hasFailed = false;
    if (m_isIncremental && m_openSections.size() == 1)
        m_openSections.clear();
    return type != kTokenEnd;
}

void mlParser::parseItem(mlTokenType type)
{
    if (type == kTokenText)
        return addText(false);
    // White space before a tag separates the texts around the tag: "a <b>c</b>" is two words.
    bool const hadSpace = m_tokens.hasLeadingSpace();
    switch (type) {
    case kTokenOpenCData:
        m_tokens.setPendingSpace(hadSpace);
        return parseCData();
    case kTokenOpenInclude:
    case kTokenOpenDeclaration:
    case kTokenOpenInstruction:
    case kTokenOpen:
        parseTag(tagTypeOf(type));
        break;
    case kTokenOpenClose:
        parseClose();
        break;
    default:
        fail(kErrorUnexpectedSymbol);
    }
    m_tokens.setPendingSpace(hadSpace);
}

/// Reads the name of an opening or closing tag; it is then the tokenizer's text.
void mlParser::readTagName()
{
    if (m_tokens.next(kContextTag, true) != kTokenText)
        fail(kErrorNoTagName);
    if (m_tokens.isTruncated())
        fail(kErrorTagNameLength);
}

void mlParser::parseTag(mlTagType type)
{
    readTagName();
    mlName* const name = m_pool.name(m_tokens.text(), m_tokens.length());
    mlSection const* outer = innermost();
    if (m_openSections.size() > 1 && outer->m_tag.name->folded == name->folded && neverNests(*outer))
        closeInnermost();
    mlSection* section = nextSection();
    section->setFlag(mlSection::kIsTag, true);
    section->m_tagType = static_cast<uint8_t>(type);
    section->m_tag.name = name;
    m_newestTag = section;
    parseAttributes(section);
    if (type != kTagOrdinary || m_tokens.type() == kTokenCloseEmpty || section->isNamed("br"))
        return;
    openSection(section);
    auto const isIt = [section](char const* kept) { return section->isNamed(kept); };
    if (auto const kept = std::find_if(m_keptNames.begin(), m_keptNames.end(), isIt); kept != m_keptNames.end())
        parseKeptContent(*kept);
}

mlName* mlParser::foldedName(char const* name)
{
    std::vector<unsigned short> const units(name, name + std::strlen(name));
    return m_pool.name(units.data(), static_cast<unsigned int>(units.size()))->folded;
}

void mlParser::keepSpaceIn(char const* name) { m_spacedName = foldedName(name); }
void mlParser::keepQuotesIn(char const* name) { m_quotingNames.push_back(foldedName(name)); }

void mlParser::parseKeptContent(char const* name)
{
    m_tokens.readUntilClosed(name);
    if (m_tokens.length() != 0)
        addText(false);
}

/// Reads the attributes and the token that ends the tag. Attributes read before an error are kept.
void mlParser::parseAttributes(mlSection* section)
{
    m_attributes.clear();
    try {
        m_tokens.next(kContextTag, true);
        while (!endsTag(m_tokens.type())) {
            if (m_tokens.type() != kTokenText)
                fail(kErrorNoTagClosure);
            if (parseAttribute())
                m_tokens.next(kContextTag, true);
        }
    } catch (mlParseError const&) {
        section->setAttrs(m_attributes);
        throw;
    }
    if (!m_attributes.empty())
        section->setAttrs(m_attributes);
}

/// Reads the attribute whose name is the current token. Returns false if it has no value and the token after the name
/// has already been read.
bool mlParser::parseAttribute()
{
    if (m_tokens.isTruncated())
        fail(kErrorAttributeNameLength);
    mlAttr& attr = m_attributes.emplace_back(mlAttr(&m_pool));
    attr.setName(m_tokens.text(), m_tokens.length());
    attr.m_line = m_tokens.line();
    mlTokenType const type = m_tokens.next(kContextTag, true);
    if (endsTag(type) || type == kTokenText)
        return false;
    if (type != kTokenEquals || m_tokens.next(kContextTag, true) != kTokenText)
        fail(kErrorNoAttributeValue);
    if (m_tokens.isTruncated())
        fail(kErrorAttributeValueLength);
    m_pool.setText(attr.m_value, m_tokens.text(), m_tokens.length());
    attr.m_hasValue = true;
    return true;
}

/// Closes the innermost open section of that name and all sections inside it. The counter in the name saves a search
/// when none is open.
void mlParser::parseClose()
{
    readTagName();
    mlName const* name = m_pool.findFolded(m_tokens.text(), m_tokens.length());
    bool const isOpen = name && name->openSections != 0;
    while (isOpen) {
        bool const isLast = innermost()->m_tag.name->folded == name;
        closeInnermost();
        if (isLast)
            break;
    }
    if (m_tokens.next(kContextTag, true) != kTokenClose && isOpen)
        fail(kErrorNoTagClosure);
}

void mlParser::parseCData()
{
    mlTokenType const type = m_tokens.next(kContextRaw, !m_keepsLongTexts);
    if (type != kTokenText && type != kTokenCloseCData)
        fail(kErrorNoCDataClosure);
    addText(true);
    if (type == kTokenText && m_tokens.next(kContextRaw, true) != kTokenCloseCData)
        fail(kErrorNoCDataClosure);
}

/// Makes a text section of the current token. A truncated text is not stored, only its position.
void mlParser::addText(bool isCData)
{
    mlSection* section = nextSection();
    bool const isCut = m_tokens.isTruncated();
    section->assignText(m_tokens.text(), isCut ? 0 : m_tokens.length(),
                        m_tokens.isUnquotedText() ? m_tokens.start() : bookmark(), isCut, isCData,
                        m_tokens.hasLeadingSpace());
    if (isCut)
        m_longTexts.push_back(section);
}

void mlParser::openSection(mlSection* section)
{
    assert(section->isTag() && !section->hasFlag(mlSection::kIsOpen));
    m_openSections.push_back(section);
    section->setFlag(mlSection::kIsOpen, true);
    ++section->m_tag.name->folded->openSections;
}

void mlParser::closeInnermost()
{
    assert(m_openSections.size() > 1); // the root is never closed
    mlSection* section = m_openSections.back();
    m_openSections.pop_back();
    section->setFlag(mlSection::kIsOpen, false);
    assert(section->m_tag.name->folded->openSections > 0);
    --section->m_tag.name->folded->openSections;
}

/// Parses until the section has a child with that index. Returns false if it ends without one.
bool mlParser::parseUntilChild(mlSection const* section, unsigned int index)
{
    if (!getStream() || m_hasFailed)
        return false;
    OpenStream const open(*this);
    while (index >= section->getChildCount())
        if (!section->hasFlag(mlSection::kIsOpen) || !parseNextSection())
            return false;
    return true;
}

/// Reads a truncated text again, in full, and restores the reading position.
void mlParser::readFullText(mlSection* section)
{
    if (!getStream() || section->m_text.startOffset == mlSection::kNoStart)
        return;
    assert(section->isText() && section->isTruncated());
    OpenStream const open(*this);
    m_tokens.syncStream();
    pushPos();
    getStream()->setPos(section->m_text.startOffset, section->m_text.startUnit);
    m_tokens.next(section->isCData() ? kContextRaw : kContextContent, false);
    m_pool.setText(section->m_text.data, m_tokens.text(), m_tokens.length());
    section->setFlag(mlSection::kTruncated, false);
    popPos();
}
