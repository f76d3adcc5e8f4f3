// tests/pages/pagescan.cpp: see pagescan.h.
#include "tests/pages/pagescan.h"

#include <QString>
#include <QTextDocumentFragment>
#include <algorithm>
#include <array>
#include <string_view>

namespace {

using view = std::u16string_view;

constexpr std::array kKnownTags = {
    "h1",      "h2",      "h3",     "dl",       "dt",     "menu",    "dd",         "ol",         "ul",     "li",
    "p",       "div",     "hr",     "table",    "tr",     "td",      "form",       "img",        "input",  "textarea",
    "select",  "center",  "tbody",  "a",        "frame",  "noframe", "frameset",   "head",       "title",  "html",
    "body",    "doctype", "object", "messages", "map",    "h4",      "h5",         "h6",         "code",   "kbd",
    "samp",    "tt",      "small",  "big",      "sub",    "s",       "del",        "ins",        "mark",   "q",
    "pre",     "th",      "thead",  "tfoot",    "span",   "abbr",    "blockquote", "figcaption", "figure", "main",
    "section", "article", "nav",    "header",   "footer", "aside",   "time"};
constexpr std::array<char const*, 10> kFormattingTags = {"sup", "font", "br",   "strong", "em",
                                                         "b",   "u",    "cite", "i",      "var"};
/// Their content is not the page's own text.
constexpr std::array kSkippedTags = {"select", "textarea", "object", "map",      "noframe",  "head",
                                     "title",  "script",   "style",  "template", "noscript", "svg"};
/// Nothing in them is markup.
constexpr std::array kKeptTags = {"script", "style", "textarea"};

/// Entity names of Latin-1 from 161 on.
constexpr std::array<char const*, 95> kEntities = {
    "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",    "copy",   "ordf",   "laquo",
    "not",    "shy",    "reg",    "macr",   "deg",    "plusmn", "sup2",   "sup3",   "acute",  "micro",  "para",
    "middot", "cedil",  "sup1",   "ordm",   "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute",
    "Acirc",  "Atilde", "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde", "Ouml",   "times",
    "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",  "szlig",  "agrave", "aacute", "acirc",
    "atilde", "auml",   "aring",  "aelig",  "ccedil", "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute",
    "icirc",  "iuml",   "eth",    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash",
    "ugrave", "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml"};

template <std::size_t N>
bool isOneOf(std::string const& name, std::array<char const*, N> const& names)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

std::string folded(std::string name)
{
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return name;
}

class scanner
{
public:
    explicit scanner(view page) : m_page(page) {}

    scannedPage scan()
    {
        while (m_result.fault.empty() && readItem()) {}
        return std::move(m_result);
    }

private:
    struct fault
    {};

    bool startsWith(view word) const { return m_page.substr(m_at, word.size()) == word; }
    bool isAtEnd() const { return m_at >= m_page.size(); }
    bool isAtQuote() const { return !isAtEnd() && (m_page[m_at] == '"' || m_page[m_at] == '\''); }
    void skipSpace()
    {
        while (!isAtEnd() && isMarkupSpace(m_page[m_at]))
            ++m_at;
    }

    bool readItem();
    void readText();
    void readQuoted(bool endsAtTag, std::string* word);
    void skipComment();
    void readTag(std::size_t openerLength);
    void readCloseTag();
    std::string readWord();
    bool takeCloser();
    void addText(view text);
    bool isInBody() const;
    bool areQuotesKept() const
    {
        constexpr std::string_view kProgramText[] = {"code", "kbd", "pre", "samp", "tt"};
        return std::find_first_of(m_open.begin(), m_open.end(), std::begin(kProgramText), std::end(kProgramText)) !=
               m_open.end();
    }
    void skipKept(std::string const& tag);

    view m_page;
    std::size_t m_at = 0;
    std::vector<std::string> m_open;
    scannedPage m_result;
};

bool scanner::readItem()
{
    skipSpace();
    if (isAtEnd())
        return false;
    try {
        if (startsWith(u"<![CDATA["))
            throw fault();
        if (startsWith(u"<!--") && !startsWith(u"<!--#"))
            skipComment();
        else if (startsWith(u"</"))
            readCloseTag();
        else if (startsWith(u"<!--#"))
            readTag(5);
        else if (startsWith(u"<!") || startsWith(u"<?"))
            readTag(2);
        else if (startsWith(u"<"))
            readTag(1);
        else if (startsWith(u"]]>"))
            throw fault();
        else if (isAtQuote() && !areQuotesKept())
            readQuoted(true, nullptr);
        else
            readText();
    } catch (fault const&) {
        m_result.fault = "fault at unit " + std::to_string(m_at);
    }
    return true;
}

void scanner::readText()
{
    std::size_t const start = m_at;
    while (!isAtEnd() && m_page[m_at] != '<' && !startsWith(u"]]>"))
        ++m_at;
    addText(m_page.substr(start, m_at - start));
}

// The quotation marks around a text are not part of it; the markup drops them also at the start of a text in content.
void scanner::readQuoted(bool endsAtTag, std::string* word)
{
    char16_t const mark = m_page[m_at++];
    std::size_t const start = m_at;
    while (!isAtEnd() && m_page[m_at] != mark && !(endsAtTag && m_page[m_at] == '<'))
        ++m_at;
    view const inside = m_page.substr(start, m_at - start);
    if (!isAtEnd() && m_page[m_at] == mark)
        ++m_at;
    if (word)
        word->assign(inside.begin(), inside.end());
    else
        addText(inside);
}

void scanner::skipComment()
{
    m_at += 4;
    while (true) {
        skipSpace();
        if (isAtEnd())
            return;
        if (isAtQuote()) {
            std::string ignored;
            readQuoted(false, &ignored);
            continue;
        }
        std::size_t const end = m_page.find(u"-->", m_at);
        bool const isHere = end == m_at;
        m_at = end == view::npos ? m_page.size() : end;
        if (isHere) {
            m_at += 3;
            return;
        }
    }
}

constexpr std::array<view, 4> kClosers = {u"-->", u"/>", u"?>", u">"};

/// A name or value inside a tag; "" when something else stands there.
std::string scanner::readWord()
{
    skipSpace();
    std::string word;
    if (isAtQuote()) {
        readQuoted(false, &word);
        return word.empty() ? " " : word;
    }
    while (!isAtEnd() && !isMarkupSpace(m_page[m_at]) && m_page[m_at] != '<' && m_page[m_at] != '=' &&
           !startsWith(u"]]>") &&
           std::none_of(kClosers.begin(), kClosers.end(), [this](view closer) { return startsWith(closer); }))
        word += static_cast<char>(m_page[m_at++]);
    return word;
}

bool scanner::takeCloser()
{
    skipSpace();
    for (view closer : kClosers)
        if (startsWith(closer)) {
            m_at += closer.size();
            return true;
        }
    return false;
}

void scanner::readTag(std::size_t openerLength)
{
    bool const isOrdinary = openerLength == 1;
    m_at += openerLength;
    std::string const name = readWord();
    if (name.empty())
        throw fault();
    std::string const key = folded(name);
    if ((key == "br" || key == "p" || key == "li") && !m_open.empty() && m_open.back() == key)
        m_open.pop_back();
    bool const isKnown = isOneOf(key, kKnownTags) || isOneOf(key, kFormattingTags) || isOneOf(key, kSkippedTags);
    if (isInBody() && !isKnown)
        m_result.unknownTags.push_back(name);
    while (!takeCloser()) {
        if (!readWord().empty())
            continue;
        if (isAtEnd() || m_page[m_at] != '=')
            throw fault();
        ++m_at;
        if (readWord().empty())
            throw fault();
    }
    bool const isEmpty = m_page[m_at - 2] == '/';
    if (!isOrdinary || isEmpty || key == "br")
        return;
    m_open.push_back(key);
    if (isOneOf(key, kKeptTags))
        skipKept(key);
}

void scanner::skipKept(std::string const& tag)
{
    while (!isAtEnd()) {
        std::u16string const here(m_page.substr(m_at, tag.size() + 2));
        if (folded(std::string(here.begin(), here.end())) == "</" + tag)
            return;
        ++m_at;
    }
}

void scanner::readCloseTag()
{
    m_at += 2;
    std::string const name = readWord();
    if (name.empty() || !takeCloser())
        throw fault();
    auto const found = std::find(m_open.rbegin(), m_open.rend(), folded(name));
    if (found != m_open.rend())
        m_open.erase(found.base() - 1, m_open.end());
}

bool scanner::isInBody() const
{
    auto const body = std::find(m_open.begin(), m_open.end(), "body");
    return body != m_open.end() &&
           std::none_of(body, m_open.end(), [](std::string const& name) { return isOneOf(name, kSkippedTags); });
}

/// What the toolkit's own reader of markup makes of a name before a semicolon, for characters beyond Latin-1.
std::pair<char16_t, std::size_t> readSymbol(view text)
{
    constexpr std::size_t kLongest = 8; // thetasym
    std::size_t const end = text.substr(0, kLongest + 1).find(u';');
    if (end == view::npos)
        return {u'&', 0};
    QString const markup = '&' + QString::fromUtf16(text.data(), static_cast<qsizetype>(end)) + ';';
    QString const read = QTextDocumentFragment::fromHtml(markup).toPlainText();
    bool const isSymbol = read.size() == 1 && read.at(0).unicode() > 255;
    return {read.isEmpty() ? u'&' : read.at(0).unicode(), isSymbol ? end : 0};
}

/// The character that a reference stands for, and how many units it takes behind the "&"; 0 units for none.
std::pair<char16_t, std::size_t> readReference(view text)
{
    struct named
    {
        view name;
        char16_t character;
    };
    for (named const& known : {named{u"amp", u'&'}, named{u"lt", u'<'}, named{u"gt", u'>'}, named{u"apos", u'\''},
                               named{u"quot", u'"'}, named{u"nbsp", u' '}})
        if (text.starts_with(known.name))
            return {known.character, known.name.size()};
    if (text.starts_with(u"#")) {
        unsigned code = 0;
        std::size_t at = 1;
        for (; at < text.size() && text[at] >= '0' && text[at] <= '9'; ++at)
            code = code * 10 + (text[at] - u'0');
        return {static_cast<char16_t>(code), at > 1 ? at : 0};
    }
    if (auto const symbol = readSymbol(text); symbol.second)
        return symbol;
    for (std::size_t i = 0; i < kEntities.size(); ++i) {
        std::string const name = kEntities[i];
        if (text.starts_with(std::u16string(name.begin(), name.end())))
            return {static_cast<char16_t>(161 + i), name.size()};
    }
    return {u'&', 0};
}

void scanner::addText(view text)
{
    if (!isInBody())
        return;
    for (std::size_t at = 0; at < text.size(); ++at) {
        char16_t unit = text[at];
        if (unit == '&') {
            auto const [character, units] = readReference(text.substr(at + 1));
            unit = character;
            at += units;
            if (units && at + 1 < text.size() && text[at + 1] == ';')
                ++at;
        }
        if (!isLeftOut(unit))
            m_result.text += unit;
    }
}

} // namespace

bool isMarkupSpace(char16_t unit) { return unit == ' ' || unit == '\t' || unit == '\r' || unit == '\n'; }

bool isLeftOut(char16_t unit)
{
    constexpr char16_t kFixedBlank = 0xA0;
    constexpr char16_t kOpeningQuote = 0x201C;
    constexpr char16_t kClosingQuote = 0x201D;
    return isMarkupSpace(unit) || unit == kFixedBlank || unit == kOpeningQuote || unit == kClosingQuote;
}

scannedPage scanPage(std::u16string const& page) { return scanner(page).scan(); }
