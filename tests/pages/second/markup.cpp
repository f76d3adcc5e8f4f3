// tests/pages/second/markup.cpp: see markup.h.
#include "tests/pages/second/markup.h"

#include <QRegularExpression>

namespace second {

bool element::has(char const* attribute) const
{
    for (auto const& [key, value] : attributes)
        if (key == QLatin1String(attribute))
            return true;
    return false;
}

QString element::get(char const* attribute, char const* bare) const
{
    for (auto const& [key, value] : attributes)
        if (key == QLatin1String(attribute))
            return value.isEmpty() ? QString(bare) : value;
    return QString();
}

QString element::data(char const* attribute) const
{
    for (auto const& [key, value] : attributes)
        if (key == QLatin1String(attribute))
            return value.isNull() ? QString("1") : value;
    return QString();
}

element const* element::find(QString const& tag) const
{
    for (auto const& child : children) {
        if (!child->isText && child->name == tag)
            return child.get();
        if (element const* found = child->find(tag))
            return found;
    }
    return nullptr;
}

QString element::allText() const
{
    QString all;
    for (auto const& child : children) {
        if (child->isText && child->leadingSpace && !all.isEmpty())
            all += ' ';
        all += child->isText ? child->text : child->allText();
    }
    return all;
}

namespace {

bool isWhite(QChar c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

/// The references that the stored pages use; any other stays as it is written.
QString decoded(QString const& text)
{
    static std::pair<char const*, char16_t> const names[] = {
        {"amp", '&'},   {"lt", '<'},   {"gt", '>'},      {"apos", '\''}, {"quot", '"'},   {"nbsp", ' '},
        {"iexcl", 161}, {"copy", 169}, {"eacute", 0xE9}, {"ouml", 0xF6}, {"szlig", 0xDF}, {"not", 172}};
    QString out;
    for (qsizetype at = 0; at < text.size();) {
        qsizetype end = at + 1;
        QString value;
        if (text[at] == '&' && text.mid(at + 1, 1) == "#") {
            end = at + 2;
            while (end < text.size() && text[end].isDigit())
                ++end;
            value = QChar(text.mid(at + 2, end - at - 2).toInt());
        } else if (text[at] == '&') {
            for (auto const& [name, code] : names)
                if (value.isEmpty() && text.mid(at + 1).startsWith(QLatin1String(name))) {
                    value = QChar(code);
                    end = at + 1 + QLatin1String(name).size();
                }
        }
        if (value.isEmpty())
            value = text[at];
        else if (text.mid(end, 1) == ";")
            ++end;
        out += value;
        at = end;
    }
    return out;
}

class reader
{
public:
    explicit reader(QString const& source) : m_source(source) { m_open.push_back(m_root.get()); }

    std::unique_ptr<element> read()
    {
        while (skipWhite(), m_at < m_source.size()) {
            if (starts("<!--"))
                skipPast("-->");
            else if (starts("<![CDATA["))
                readData();
            else if (starts("</"))
                readClose();
            else if (starts("<"))
                readTag();
            else
                readText();
        }
        return std::move(m_root);
    }

private:
    bool starts(char const* word) const { return QStringView(m_source).mid(m_at).startsWith(QLatin1String(word)); }

    void skipPast(char const* word)
    {
        qsizetype found = m_source.indexOf(QLatin1String(word), m_at);
        m_at = found < 0 ? m_source.size() : found + QLatin1String(word).size();
    }

    void skipWhite()
    {
        for (; m_at < m_source.size() && isWhite(m_source[m_at]); ++m_at)
            m_pending = true;
    }

    element* add()
    {
        m_open.back()->children.push_back(std::make_unique<element>());
        return m_open.back()->children.back().get();
    }

    void addText(QString const& text)
    {
        element* piece = add();
        piece->isText = true;
        piece->text = text;
        piece->leadingSpace = m_pending;
        m_pending = false;
    }

    void readData()
    {
        m_at += 9;
        qsizetype end = m_source.indexOf("]]>", m_at);
        addText(m_source.mid(m_at, end - m_at));
        m_at = end + 3;
    }

    void readText()
    {
        qsizetype end = m_source.indexOf('<', m_at);
        if (end < 0)
            end = m_source.size();
        QString raw = m_source.mid(m_at, end - m_at);
        m_at = end;
        bool trailing = isWhite(raw.back());
        addText(decoded(raw.simplified()));
        m_pending = trailing;
    }

    QString readWord()
    {
        qsizetype start = m_at;
        while (m_at < m_source.size() && !isWhite(m_source[m_at]) && m_source[m_at] != '=' && m_source[m_at] != '>' &&
               !starts("/>"))
            ++m_at;
        return m_source.mid(start, m_at - start);
    }

    QString readValue()
    {
        QChar const quote = m_source[m_at];
        if (quote != '"' && quote != '\'')
            return decoded(readWord());
        qsizetype end = m_source.indexOf(quote, m_at + 1);
        QString value = m_source.mid(m_at + 1, end - m_at - 1);
        m_at = end + 1;
        return decoded(value);
    }

    void skipBlanks()
    {
        while (m_at < m_source.size() && isWhite(m_source[m_at]))
            ++m_at;
    }

    void readAttributes(element* tag)
    {
        while (skipBlanks(), m_at < m_source.size() && !starts(">") && !starts("/>")) {
            QString name = readWord().toLower();
            skipBlanks();
            QString value;
            if (starts("=")) {
                ++m_at;
                skipBlanks();
                value = QString("") + readValue(); // never null
            }
            tag->attributes.emplace_back(name, value);
        }
    }

    void readTag()
    {
        bool isDeclaration = starts("<!") || starts("<?");
        m_at += isDeclaration ? 2 : 1;
        QString name = readWord().toLower();
        if ((name == "br" || name == "p" || name == "li") && m_open.back()->name == name)
            m_open.pop_back();
        element* tag = add();
        tag->name = name;
        readAttributes(tag);
        bool isEmpty = starts("/>") || name == "br" || isDeclaration;
        skipPast(">");
        if (!isEmpty)
            m_open.push_back(tag);
        if (!isEmpty && name == "textarea")
            readAreaText();
    }

    /// What stands in a text area is text, tags too.
    void readAreaText()
    {
        static QRegularExpression const closing("</textarea(?=[ \\t\\r\\n/>]|$)",
                                                QRegularExpression::CaseInsensitiveOption);
        qsizetype end = m_source.indexOf(closing, m_at);
        if (end < 0)
            end = m_source.size();
        if (end != m_at) {
            m_pending = false;
            addText(decoded(m_source.mid(m_at, end - m_at)));
        }
        m_at = end;
    }

    void readClose()
    {
        m_at += 2;
        QString name = readWord().toLower();
        skipPast(">");
        for (auto open = m_open.size(); open-- > 1;)
            if (m_open[open]->name == name) {
                m_open.resize(open);
                return;
            }
    }

    QString m_source;
    qsizetype m_at = 0;
    bool m_pending = false; // white space since the last text
    std::unique_ptr<element> m_root = std::make_unique<element>();
    std::vector<element*> m_open; // the innermost last
};

} // namespace

std::unique_ptr<element> readMarkup(QString const& source) { return reader(source).read(); }

} // namespace second
