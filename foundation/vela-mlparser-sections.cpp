// foundation/vela-mlparser-sections.cpp: the grammar of the markup: how tokens become sections, and which tags close
// which.
#include "foundation/vela-mlparser.h"

#include <cassert>

namespace {

mlTagType tagTypeOf(mlTokenType opener)
{
    switch (opener) {
    case mlTokenOpenDeclaration:
        return mlTagDeclaration;
    case mlTokenOpenInstruction:
        return mlTagInstruction;
    case mlTokenOpenInclude:
        return mlTagInclude;
    default:
        return mlTagOrdinary;
    }
}

bool endsTag(mlTokenType type)
{
    return type == mlTokenClose || type == mlTokenCloseEmpty || type == mlTokenCloseInstruction ||
           type == mlTokenCloseComment;
}

bool neverNests(mlSection const& section)
{
    return section.isNamed("p") || section.isNamed("br") || section.isNamed("li");
}

} // namespace

/// One step. False when nothing more is there.
bool mlParser::parseNextSection()
{
    if (open.empty())
        return false;
    hasFailed = true; // until the step is done
    mlTokenType const type = tokens.nextSkippingComments(mlContextContent, !keepsLongTexts);
    if (type != mlTokenEnd)
        parseItem(type);
    hasFailed = false;
    if (isIncremental && open.size() == 1)
        open.clear();
    return type != mlTokenEnd;
}

void mlParser::parseItem(mlTokenType type)
{
    if (type == mlTokenText)
        return addText(false);
    // White space before a tag separates the texts on both its sides: "a <b>c</b>" is two words.
    bool const hadSpace = tokens.hasLeadingSpace();
    switch (type) {
    case mlTokenOpenCData:
        tokens.setPendingSpace(hadSpace);
        return parseCData();
    case mlTokenOpenInclude:
    case mlTokenOpenDeclaration:
    case mlTokenOpenInstruction:
    case mlTokenOpen:
        parseTag(tagTypeOf(type));
        break;
    case mlTokenOpenClose:
        parseClose();
        break;
    default:
        fail(mlErrorUnexpectedSymbol);
    }
    tokens.setPendingSpace(hadSpace);
}

/// The name of an opening or closing tag, which is then the tokenizer's text.
void mlParser::readTagName()
{
    if (tokens.next(mlContextTag, true) != mlTokenText)
        fail(mlErrorNoTagName);
    if (tokens.isTruncated())
        fail(mlErrorTagNameLength);
}

void mlParser::parseTag(mlTagType type)
{
    readTagName();
    mlName* const name = pool.name(tokens.text(), tokens.length());
    mlSection const* outer = innermost();
    if (open.size() > 1 && outer->tag.name->folded == name->folded && neverNests(*outer))
        closeInnermost();
    mlSection* section = nextSection();
    section->setFlag(mlSection::IsTag, true);
    section->tagType = static_cast<uint8_t>(type);
    section->tag.name = name;
    newest = section;
    parseAttributes(section);
    if (type == mlTagOrdinary && tokens.type() != mlTokenCloseEmpty && !section->isNamed("br"))
        openSection(section);
}

/// Reads up to the token that ends the tag. What was read before an error stays.
void mlParser::parseAttributes(mlSection* section)
{
    attributes.clear();
    try {
        tokens.next(mlContextTag, true);
        while (!endsTag(tokens.type())) {
            if (tokens.type() != mlTokenText)
                fail(mlErrorNoTagClosure);
            if (parseAttribute())
                tokens.next(mlContextTag, true);
        }
    } catch (mlParseError const&) {
        section->setAttrs(attributes);
        throw;
    }
    if (!attributes.empty())
        section->setAttrs(attributes);
}

/// Reads one attribute whose name is the present token. False when the token behind it was read already, since there
/// was no value.
bool mlParser::parseAttribute()
{
    if (tokens.isTruncated())
        fail(mlErrorAttributeNameLength);
    mlAttr& attr = attributes.emplace_back(mlAttr(&pool));
    attr.setName(tokens.text(), tokens.length());
    attr.line = tokens.line();
    mlTokenType const type = tokens.next(mlContextTag, true);
    if (endsTag(type) || type == mlTokenText)
        return false;
    if (type != mlTokenEquals || tokens.next(mlContextTag, true) != mlTokenText)
        fail(mlErrorNoAttributeValue);
    if (tokens.isTruncated())
        fail(mlErrorAttributeValueLength);
    pool.setText(attr.value, tokens.text(), tokens.length());
    return true;
}

/// Closes the innermost open section of the name and all inside it. A name that is not open costs no look at the open
/// ones.
void mlParser::parseClose()
{
    readTagName();
    mlName const* name = pool.findFolded(tokens.text(), tokens.length());
    bool const isOpen = name && name->openSections != 0;
    while (isOpen) {
        bool const isLast = innermost()->tag.name->folded == name;
        closeInnermost();
        if (isLast)
            break;
    }
    if (tokens.next(mlContextTag, true) != mlTokenClose && isOpen)
        fail(mlErrorNoTagClosure);
}

void mlParser::parseCData()
{
    mlTokenType const type = tokens.next(mlContextRaw, !keepsLongTexts);
    if (type != mlTokenText && type != mlTokenCloseCData)
        fail(mlErrorNoCDataClosure);
    addText(true);
    if (type == mlTokenText && tokens.next(mlContextRaw, true) != mlTokenCloseCData)
        fail(mlErrorNoCDataClosure);
}

/// A text section of the present token. Of a run that was cut only the place is kept.
void mlParser::addText(bool isCData)
{
    mlSection* section = nextSection();
    bool const isCut = tokens.isTruncated();
    section->placeText(tokens.text(), isCut ? 0 : tokens.length(), tokens.isRun() ? tokens.start() : bookmark(), isCut,
                       isCData, tokens.hasLeadingSpace());
    if (isCut)
        longTexts.push_back(section);
}

void mlParser::openSection(mlSection* section)
{
    assert(section->isTag() && !section->hasFlag(mlSection::IsOpen));
    open.push_back(section);
    section->setFlag(mlSection::IsOpen, true);
    ++section->tag.name->folded->openSections;
}

void mlParser::closeInnermost()
{
    assert(open.size() > 1); // the root closes never
    mlSection* section = open.back();
    open.pop_back();
    section->setFlag(mlSection::IsOpen, false);
    assert(section->tag.name->folded->openSections > 0);
    --section->tag.name->folded->openSections;
}

/// Parses on until an open section has a child of that number. False when it never will.
bool mlParser::parseUntilChild(mlSection const* section, unsigned int index)
{
    if (!getStream() || hasFailed)
        return false;
    Reading reading(*this);
    while (index >= section->getChildCount())
        if (!section->hasFlag(mlSection::IsOpen) || !parseNextSection())
            return false;
    return true;
}

/// Reads a text that was cut once more, from its place in the stream and without a limit, as if nothing had happened
/// between.
void mlParser::readFullText(mlSection* section)
{
    if (!getStream() || section->text.startOffset == mlSection::noStart)
        return;
    assert(section->isText() && section->isTruncated());
    Reading reading(*this);
    tokens.settle();
    pushPos();
    getStream()->setPos(section->text.startOffset, section->text.startUnit);
    tokens.next(section->isCData() ? mlContextRaw : mlContextContent, false);
    pool.setText(section->text.data, tokens.text(), tokens.length());
    section->setFlag(mlSection::Truncated, false);
    popPos();
}
