// page/guihtmlparser-text.cpp: writes text and its formatting codes into text runs.
#include "page/guihtmlparser.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "page/guihtml.h"
#include "page/guihtmltext.h"
#include "page/guinumbers.h"

#include <algorithm>
#include <utility>

guiHtmlText* guiHtmlParser::getLastIfText(guiHtml* parent)
{
    unsigned count = parent->getChildCount();
    if (count == 0)
        return nullptr;
    guiHtml* last = parent->getChild(count - 1);
    bool isText = guiChildList::isNode(last) && last->getType() == guiHtml::kTypeText;
    return isText ? static_cast<guiHtmlText*>(last) : nullptr;
}

guiHtmlText* guiHtmlParser::findOrCreateText(guiHtml* parent)
{
    if (guiHtmlText* last = getLastIfText(parent))
        return last;
    guiHtmlText* run = appendGuiHtml(parent, std::make_unique<guiHtmlText>());
    pullLeafAlignment(parent, run);
    if (m_listDepth != 0)
        run->editText() += sformat("[[>%ld]]", static_cast<long>(m_listDepth));
    if (m_link.getLength())
        openLink(parent);
    if (m_label.getLength())
        openLabel(parent);
    return run;
}

void guiHtmlParser::pullTextItem(guiHtml* parent, mlSection* item)
{
    guiRunText& text = findOrCreateText(parent)->editText();
    if (text.getLength() && item->hasLeadingSpace() && !m_suppressSpace)
        text.appendSpace();
    m_suppressSpace = false;
    unsigned length = 0;
    unsigned short const* units = item->getDataUnits(&length);
    unsigned short const* end = std::find(units, units + length, 0); // text ends at the first zero
    QStringView const read(units, end - units);
    if (m_spaced) {
        text.append(m_spaced->add(read));
        return;
    }
    if (m_label.getLength())
        pullLabelText(parent, read);
    else
        text.append(read);
}

void guiHtmlParser::appendSpace(sstring& text)
{
    qsizetype const at = guiBlankPlace(sstoview(text));
    if (at == qsizetype{text.getLength()}) {
        text += ' ';
        return;
    }
    sstring const codes = text.subString(static_cast<unsigned>(at));
    text.setAt(static_cast<unsigned>(at), (" " + codes).getUnicode());
}

sstring guiHtmlParser::pullText(mlSection* section)
{
    sstring text;
    std::vector<std::pair<mlSection*, unsigned>> path{{section, 0}};
    while (!path.empty()) {
        mlSection* item = path.back().first->getChild(path.back().second++);
        if (!item) {
            path.pop_back();
        } else if (item->isTag()) {
            path.emplace_back(item, 0);
        } else {
            if (text.getLength() && item->hasLeadingSpace())
                text += ' ';
            text += item->getData();
        }
    }
    return text;
}

namespace {

/// The codes that a formatting element opens before its content; each may be empty.
struct formatting
{
    sstring style;
    sstring font;
};

formatting readFont(mlSection* section)
{
    formatting codes;
    codes.style = guiHtmlParser::convColorToHex(guiHtmlParser::pullAttr(section, "color"));
    codes.font = guiHtmlParser::pullAttr(section, "face");
    sstring size = guiHtmlParser::pullAttr(section, "size");
    if (size.getLength())
        codes.font += sformat(",%d", guiHtmlParser::toPointSize(guiToNumber(size)));
    return codes;
}

formatting readFormatting(mlSection* section)
{
    if (section->isNamed("font"))
        return readFont(section);
    if (section->isNamed("sup"))
        return {"b", ",8"};
    if (section->isNamed("br"))
        return {"br", ""};
    if (section->isNamed("u"))
        return {"u", ""};
    bool isBold = section->isNamed("strong") || section->isNamed("b");
    return {isBold ? "b" : "i", ""};
}

void writeCode(guiRunText& text, char const* opening, sstring const& code)
{
    if (code.getLength() == 0)
        return;
    text += opening;
    text += code;
    text += "]]";
}

// A line break is not closed, also when it comes from the colour attribute of a font element.
void writeClosingCode(guiRunText& text, sstring const& code)
{
    if (code != sstring("br"))
        writeCode(text, "[[/", code);
}

/// A link for use in a code: double brackets, which would end the code or begin another one, become percent codes,
/// which are decoded when the link is followed.
sstring linkCode(sstring const& link)
{
    if (link.find('[') == sstring::npos && link.find(']') == sstring::npos)
        return link;
    QString code;
    QString const plain = sstoq(link);
    for (qsizetype i = 0; i < plain.size(); ++i) {
        QChar const next = i + 1 < plain.size() ? plain[i + 1] : QChar(u']');
        bool const isBracket = plain[i] == u'[' || plain[i] == u']';
        if (isBracket && next == plain[i])
            code += plain[i] == u'[' ? "%5B" : "%5D";
        else
            code += plain[i];
    }
    return qtoss(code);
}

} // namespace

namespace {

/// Whether the node stands in a line like a word does, though it is not part of a text.
bool isObjectInLine(guiHtml* node)
{
    int const type = node->getType();
    bool const isObject = type == guiHtml::kTypeControl || type == guiHtml::kTypeImage || type == guiHtml::kTypeCustom;
    return isObject && node->isInLine();
}

/// Whether the child list ends in such a node, or in one with text behind it.
bool endsBehindObject(guiHtml* parent, guiHtmlText const* textAtEnd)
{
    unsigned const count = parent->getChildCount() - (textAtEnd ? 1 : 0);
    guiHtml* const last = count != 0 ? parent->getChild(count - 1) : nullptr;
    return last && guiChildList::isNode(last) && isObjectInLine(last);
}

} // namespace

// Behind text alone a break is part of the run. A run of several lines beside a control would stand beside it as a
// whole.
void guiHtmlParser::pullFormattingTag(guiHtml* parent, mlSection* section)
{
    formatting codes = readFormatting(section);
    if (section->isNamed("br")) {
        m_suppressSpace = true;
        if (endsBehindObject(parent, getLastIfText(parent)))
            return appendLineBreak(parent);
    }
    sstring const outerFont = m_fontCode;
    sstring const outerInForce = m_fontInForce;
    if (section->isNamed("font") && codes.font.getLength())
        m_fontCode = m_fontInForce = codes.font;
    pullBetween(parent, section, codes.style, codes.font);
    m_fontCode = outerFont;
    m_fontInForce = outerInForce;
}

/// The run in which the codes were closed; null when the content ended it or there are none.
guiHtmlText* guiHtmlParser::pullBetween(guiHtml* parent, mlSection* section, sstring const& style, sstring const& font)
{
    guiHtmlText* run = nullptr;
    if (style.getLength() || font.getLength()) {
        run = findOrCreateText(parent);
        writeCode(run->editText(), "[[", style);
        writeCode(run->editText(), "[[", font);
    }
    pullContent(parent, section);
    if (!run || getLastIfText(parent) != run)
        return nullptr;
    writeClosingCode(run->editText(), font);
    writeClosingCode(run->editText(), style);
    return run;
}

void guiHtmlParser::pullFormatted(guiHtml* parent, mlSection* section, sstring const& style, sstring const& font)
{
    sstring const outer = m_fontInForce;
    if (font.getLength())
        m_fontInForce = font;
    guiHtmlText* const run = pullBetween(parent, section, style, font);
    m_fontInForce = outer;
    if (run && font.getLength())
        writeCode(run->editText(), "[[", outer);
}

void guiHtmlParser::pullSpaced(guiHtml* parent, mlSection* section, char const* font)
{
    std::optional<guiSpacedText> const outer = std::exchange(m_spaced, guiSpacedText());
    pullFormatted(parent, section, "", font);
    m_spaced = outer;
}

namespace {

/// Whether white space stands before what the element holds. The markup's parser notes it with the first text.
bool hasSpaceBefore(mlSection* section)
{
    mlSection* first = section->getChild(0);
    while (first && first->isTag())
        first = first->getChild(0);
    return first && first->hasLeadingSpace();
}

} // namespace

/// Appends a character in front of what the element holds, behind the white space before it.
void guiHtmlParser::openMarked(guiHtml* parent, mlSection* section, char16_t opening)
{
    guiRunText& text = findOrCreateText(parent)->editText();
    if (text.getLength() && hasSpaceBefore(section) && !m_suppressSpace)
        text.appendSpace();
    text.append(QStringView(&opening, 1));
    m_suppressSpace = true;
}

void guiHtmlParser::pullQuoted(guiHtml* parent, mlSection* section, char16_t opening, char16_t closing)
{
    openMarked(parent, section, opening);
    pullContent(parent, section);
    m_suppressSpace = false;
    findOrCreateText(parent)->editText().append(QStringView(&closing, 1));
}

// Writes a code also when there is no link, only a bookmark, since pullHyperlink() always closes it.
void guiHtmlParser::openLink(guiHtml* parent)
{
    if (guiHtmlText* run = getLastIfText(parent))
        run->editText() += "[[a " + m_link + "]]";
}

void guiHtmlParser::pullHyperlink(guiHtml* parent, mlSection* section)
{
    m_link = pullAttr(section, "href");
    sstring target = pullAttr(section, "target");
    if (target.getLength())
        m_link = "{" + target + "}" + m_link;
    m_link = linkCode(m_link);
    openLink(parent);
    pullContent(parent, section);
    sstring bookmark = pullData(section, "name");
    guiHtml* last = parent->getLastChild();
    if (bookmark.getLength() && last)
        last->setString(kStringBookmark, bookmark);
    if (guiHtmlText* run = getLastIfText(parent)) {
        run->editText() += "[[/a]]";
        if (hasAttr(section, "title"))
            run->addLinkTitle(m_link, pullData(section, "title"));
    }
    m_link = "";
}
