// page/guihtmltext-codes.cpp: see guihtmltext-codes.h.
#include "page/guihtmltext-codes.h"

#include "foundation/vela-qt.h"
#include "page/guicolortext.h"

#include <QByteArray>

#include <algorithm>
#include <cassert>
#include <cstdlib>

namespace {

constexpr int kIndentPixels = 40;
constexpr int kMaxIndentLevels = 800;
constexpr qsizetype kMaxColorUnits = 32;

guiTextCode readClosingCode(QStringView code)
{
    if (code == QStringView(u"b"))
        return guiTextCode::kEndBold;
    if (code == QStringView(u"i"))
        return guiTextCode::kEndItalic;
    if (code == QStringView(u"u"))
        return guiTextCode::kEndUnderline;
    if (code == QStringView(u"s"))
        return guiTextCode::kEndStrike;
    if (code == QStringView(u"m"))
        return guiTextCode::kEndMark;
    if (code == QStringView(u"a"))
        return guiTextCode::kEndLink;
    if (code == QStringView(u"l"))
        return guiTextCode::kEndLabel;
    return code.startsWith(u'#') ? guiTextCode::kEndColor : guiTextCode::kEndFont;
}

// A face such as "arial" also begins with "a"; in a link a blank follows.
bool isLink(QStringView code) { return code == QStringView(u"a") || code.startsWith(QStringView(u"a ")); }

} // namespace

guiTextCode guiReadTextCode(QStringView code)
{
    if (code.startsWith(u'/'))
        return readClosingCode(code.mid(1));
    if (code.startsWith(u'>'))
        return guiTextCode::kIndent;
    if (code.startsWith(u'#'))
        return guiTextCode::kColor;
    if (code == QStringView(u"b"))
        return guiTextCode::kBold;
    if (code == QStringView(u"i"))
        return guiTextCode::kItalic;
    if (code == QStringView(u"u"))
        return guiTextCode::kUnderline;
    if (code == QStringView(u"s"))
        return guiTextCode::kStrike;
    if (code == QStringView(u"m"))
        return guiTextCode::kMark;
    if (code == QStringView(u"br"))
        return guiTextCode::kLineBreak;
    if (code.startsWith(QStringView(u"l ")))
        return guiTextCode::kLabel;
    return isLink(code) ? guiTextCode::kLink : guiTextCode::kFont;
}

int guiReadIndent(QStringView code)
{
    QByteArray const digits = code.mid(1, 16).toLatin1();
    return kIndentPixels *
           static_cast<int>(std::clamp(std::strtol(digits.constData(), nullptr, 10), 0L, long{kMaxIndentLevels}));
}

guiColor guiReadColorCode(QStringView code)
{
    guiColor color = guiColor::Black;
    guiReadColor(qtoss(code.left(kMaxColorUnits).toString()), &color);
    return color;
}

// Searches from m_end on. A code starts at the last opening pair before its closing pair: earlier brackets are text, as
// in "[[--] file]<b>". Once no closing pair is left, the search is not repeated, so that a text of many opening
// brackets takes linear time.
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
    assert(m_codeStart >= m_end && m_codeStart + 2 <= m_codeEnd);
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
    assert(m_end > m_start && m_end <= m_text.size());
    assert(m_part.size() == m_end - m_start - (m_isCode ? 4 : 0));
    return true;
}
