// page/guihtmltext-codes.cpp: see guihtmltext-codes.h.
#include "page/guihtmltext-codes.h"

#include "foundation/vela-qt.h"
#include "page/guihtmlparser.h"

#include <QByteArray>

#include <algorithm>
#include <cstdlib>

namespace {

constexpr int kIndentPixels = 40;
constexpr int kMaxIndentLevels = 800;
constexpr qsizetype kMaxColorUnits = 32;

guiTextCode readClosingCode(QStringView code)
{
    if (code == QStringView(u"b"))
        return guiTextCode::EndBold;
    if (code == QStringView(u"i"))
        return guiTextCode::EndItalic;
    if (code == QStringView(u"u"))
        return guiTextCode::EndUnderline;
    if (code == QStringView(u"a"))
        return guiTextCode::EndLink;
    return code.startsWith(u'#') ? guiTextCode::EndColor : guiTextCode::EndFont;
}

// A face such as "arial" begins with the letter of a link, too: a link has a blank behind the letter.
bool isLink(QStringView code) { return code == QStringView(u"a") || code.startsWith(QStringView(u"a ")); }

} // namespace

guiTextCode guiReadTextCode(QStringView code)
{
    if (code.startsWith(u'/'))
        return readClosingCode(code.mid(1));
    if (code.startsWith(u'>'))
        return guiTextCode::Indent;
    if (code.startsWith(u'#'))
        return guiTextCode::Color;
    if (code == QStringView(u"b"))
        return guiTextCode::Bold;
    if (code == QStringView(u"i"))
        return guiTextCode::Italic;
    if (code == QStringView(u"u"))
        return guiTextCode::Underline;
    if (code == QStringView(u"br"))
        return guiTextCode::LineBreak;
    return isLink(code) ? guiTextCode::Link : guiTextCode::Font;
}

int guiReadIndent(QStringView code)
{
    QByteArray const digits = code.mid(1, 16).toLatin1();
    return kIndentPixels *
           static_cast<int>(std::clamp(std::strtol(digits.constData(), nullptr, 10), 0L, long{kMaxIndentLevels}));
}

guiColor guiReadColorCode(QStringView code)
{
    return guiHtmlParser::convColorToStruct(qtoss(code.left(kMaxColorUnits).toString()));
}

// Looks for brackets from m_end on. No code holds opening brackets: those before the last pair are the page's own, as
// in
// "[<b>file</b>]" or "[[--] file]<b>". Once the text holds no closing pair, none is looked for again: a text of nothing
// but opening brackets takes one walk.
bool guiTextScanner::findCode()
{
    if (m_codeStart >= m_end)
        return true;
    if (m_codeEnd == m_text.size())
        return false;
    m_codeStart = m_text.indexOf(QStringView(u"[["), m_end);
    m_codeEnd = m_codeStart < 0 ? -1 : m_text.indexOf(QStringView(u"]]"), m_codeStart + 2);
    if (m_codeEnd < 0) {
        m_codeStart = -1;
        m_codeEnd = m_text.size();
        return false;
    }
    m_codeStart = m_text.lastIndexOf(QStringView(u"[["), m_codeEnd - 2);
    return true;
}

bool guiTextScanner::next()
{
    if (m_end >= m_text.size())
        return false;
    m_start = m_end;
    bool const found = findCode();
    m_isCode = found && m_codeStart == m_start;
    if (m_isCode) {
        m_part = m_text.mid(m_start + 2, m_codeEnd - m_start - 2);
        m_end = m_codeEnd + 2;
    } else {
        m_end = found ? m_codeStart : m_text.size();
        m_part = m_text.mid(m_start, m_end - m_start);
    }
    return true;
}
