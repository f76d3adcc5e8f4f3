// page/guipagemistakes.cpp: see the header.
#include "page/guipagemistakes.h"

#include "foundation/vela-log.h"
#include "foundation/vela-mlentities.h"
#include "foundation/vela-mlparser.h"
#include "page/guiattributes.h"
#include "page/guicolortext.h"
#include "page/guieventprefix.h"
#include "page/guifoldedword.h"
#include "page/guinearest.h"
#include "page/guitagtable.h"

#include <algorithm>
#include <cassert>
#include <initializer_list>

namespace {

constexpr unsigned kShownUnits = 60; // a value is shown so far

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (std::string_view part : parts)
        text += part;
    return text;
}

std::string lowerCase(sstring const& text)
{
    std::string lower = velaPrintable(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return lower;
}

std::string shown(sstring const& text)
{
    if (text.getLength() <= kShownUnits)
        return velaPrintable(text);
    return joined({velaPrintable(text.subString(0, kShownUnits)), "..."});
}

std::string quoted(sstring const& text) { return joined({"\"", shown(text), "\""}); }

/// Whether the text is a number, maybe with a sign before it or a unit behind it.
bool isNumber(std::string_view text)
{
    std::size_t const at = text.find_first_not_of(" \t\r\n+-");
    return at != std::string_view::npos && text[at] >= '0' && text[at] <= '9';
}

/// What is wrong with a value, "" when nothing is. An attribute without a value says nothing.
char const* problemOf(guiAttributeKind kind, sstring const& value)
{
    guiColor color;
    if (value.getLength() == 0)
        return "";
    if (kind == kAttributeColor)
        return guiReadColor(value, &color) ? "" : "a color";
    return isNumber(velaPrintable(value)) ? "" : "a number";
}

constexpr char kCaller[] = "tarn: ";

bool isNameLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' || c == '$';
}

/// The name of the handler that somebody means who writes "onOk", "onOk()", "this.onOk(1)" or "javascript:onOk()"; ""
/// for the name of a page.
std::string handlerMeantBy(std::string const& value)
{
    std::string_view code = value;
    if (constexpr std::string_view kScheme = "javascript:"; code.starts_with(kScheme))
        code.remove_prefix(kScheme.size());
    std::size_t const end = code.find('(');
    bool const isCall = end != std::string_view::npos;
    code = code.substr(0, end);
    if (isCall)
        code = code.substr(code.rfind('.') + 1); // npos + 1 is 0
    return std::all_of(code.begin(), code.end(), isNameLetter) ? std::string(code) : std::string();
}

} // namespace

guiPageMistakes::~guiPageMistakes()
{
    if (m_count <= kMostLines)
        return;
    velaLog("%s%u more mistakes%s%s are not shown (warning)\n", kCaller, m_count - kMostLines,
            m_file.getLength() ? " in " : "", velaPrintable(m_file).c_str());
}

void guiPageMistakes::add(std::string const& message, unsigned line, std::string_view meant)
{
    assert(m_count > 0 && m_count <= kMostLines);
    std::string text = message;
    text += velaPrintable(place(line));
    if (m_file.getLength() && !meant.empty())
        text += joined({"; did you mean ", meant, "?"});
    velaLog("%s\n", text.c_str());
}

sstring guiPageMistakes::place(unsigned line) const
{
    if (m_file.getLength() == 0)
        return {};
    sstring const file = sstring(" in ") + m_file;
    return line == 0 ? file : file + ":" + std::to_string(line).c_str();
}

void guiPageMistakes::addUnknownTag(mlSection* section)
{
    if (!mayAdd())
        return;
    std::string const name = lowerCase(section->getName());
    std::string_view const nearest = guiNearestWord(name, guiTags().words());
    std::string const meant = nearest.empty() ? std::string() : joined({"<", nearest, ">"});
    add(joined({"guiHtmlParser::pullContent() - ignoring unrecognized tag <", velaPrintable(section->getName()),
                "> (warning)"}),
        section->getLine(), meant);
}

void guiPageMistakes::addUnknownWord(mlSection* section, char const* attribute,
                                     std::vector<std::string_view> const& words)
{
    if (!mayAdd())
        return;
    mlAttr* attr = section->findAttr(attribute);
    if (!attr) {
        add(joined({kCaller, "<", velaPrintable(section->getName()), "> without ", attribute, " is ignored (warning)"}),
            section->getLine());
        return;
    }
    add(joined({kCaller, "ignoring <", velaPrintable(section->getName()), "> of unknown ", attribute, " ",
                quoted(attr->getRHS()), " (warning)"}),
        attr->getLine(), guiNearestWord(lowerCase(attr->getRHS()), words));
}

void guiPageMistakes::addUnusedWord(mlSection* section, char const* attribute,
                                    std::vector<std::string_view> const& words)
{
    mlAttr* attr = section->findAttr(attribute);
    if (!attr || !mayAdd())
        return;
    add(joined({kCaller, "ignoring unknown ", attribute, " ", quoted(attr->getRHS()), " of <",
                velaPrintable(section->getName()), "> (warning)"}),
        attr->getLine(), guiNearestWord(lowerCase(attr->getRHS()), words));
}

void guiPageMistakes::addUnknownReference(std::string const& name, unsigned line)
{
    if (!mayAdd())
        return;
    std::string_view const nearest = guiNearestWord(name, mlReferenceNames());
    std::string const meant = nearest.empty() ? std::string() : joined({"&", nearest, ";"});
    add(joined({kCaller, "unknown character reference &", name, "; stays as it is (warning)"}), line, meant);
}

void guiPageMistakes::checkAttributes(mlSection* section)
{
    unsigned const count = section->getAttrCount();
    if (count == 0 || section->getType() != kTagOrdinary)
        return; // the words of a declaration are no attributes
    for (unsigned i = 0; i < count; ++i)
        checkAttribute(section, *section->getAttr(i));
}

/// Most attributes are known and hold any text: no string is made for them.
void guiPageMistakes::checkAttribute(mlSection* section, mlAttr const& attr)
{
    unsigned tagLength = 0;
    unsigned short const* const tagUnits = section->getNameUnits(&tagLength);
    unsigned length = 0;
    unsigned short const* const units = attr.getNameUnits(&length);
    guiFoldedWord const word(units, length);
    guiAttributeKind const* kind = guiFindAttribute(guiFoldedWord(tagUnits, tagLength).view(), word.view());
    if (kind && (*kind == kAttributeText || !attr.hasValue()))
        return;
    if (kind && (*kind == kAttributeLink || *kind == kAttributeAction))
        return checkLink(section, attr, *kind == kAttributeAction);
    if (!kind && guiIsDocumentAttribute(word.view()) && guiIsTextElement(guiFoldedWord(tagUnits, tagLength).view()))
        return;
    char const* const wanted = kind ? problemOf(*kind, attr.getRHS()) : "";
    if ((kind && !*wanted) || !mayAdd())
        return;
    std::string const tag = lowerCase(section->getName());
    if (kind) {
        add(joined({kCaller, word.view(), "=", quoted(attr.getRHS()), " of <", tag, "> is not ", wanted, " (warning)"}),
            attr.getLine());
        return;
    }
    sstring const written = attr.getLHS();
    add(joined({kCaller, "ignoring unknown attribute ", shown(written), " of <", tag, "> (warning)"}), attr.getLine(),
        guiNearestWord(lowerCase(written), guiAttributeNames()));
}

/// An attribute such as "onclick" may name a page as well; what looks like code or like a bare name is neither.
void guiPageMistakes::checkLink(mlSection* section, mlAttr const& attr, bool isAction)
{
    sstring const value = attr.getRHS();
    std::u16string handler = guiHandlerIn(value);
    if (!handler.empty()) {
        m_handlers.emplace(std::move(handler), attr.getLine());
        return;
    }
    std::string const code = isAction ? handlerMeantBy(velaPrintable(value)) : std::string();
    if (code.empty() || !mayAdd())
        return;
    add(joined({kCaller, lowerCase(attr.getLHS()), "=", quoted(value), " of <", lowerCase(section->getName()),
                "> calls no handler (warning)"}),
        attr.getLine(), joined({kEventPrefix, code}));
}
