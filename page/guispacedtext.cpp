// page/guispacedtext.cpp: see guispacedtext.h.
#include "page/guispacedtext.h"

namespace {

constexpr int kTabStops = 8; // characters
constexpr QChar kFixedBlank(char16_t{0xA0});

} // namespace

void guiSpacedText::addUnit(QString& text, QChar unit)
{
    for (; m_breaks > 0; --m_breaks)
        text += u"[[br]]";
    int const width = unit == u'\t' ? kTabStops - m_column % kTabStops : 1;
    if (unit.isSpace())
        text += QString(width, kFixedBlank);
    else
        text += unit;
    m_column += width;
}

QString guiSpacedText::add(QStringView piece)
{
    QString text;
    for (QChar const unit : piece) {
        if (unit == u'\n') {
            m_breaks += m_isAtStart ? 0 : 1;
            m_column = 0;
        } else if (unit != u'\r') {
            addUnit(text, unit);
        }
        m_isAtStart = m_isAtStart && unit == u'\r';
    }
    return text;
}
