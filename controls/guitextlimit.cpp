// controls/guitextlimit.cpp: see guitextlimit.h.
#include "controls/guitextlimit.h"

#include <QTextBoundaryFinder>
#include <algorithm>

namespace {

/// Whether the text has at most so many characters. A text of so many units always does.
bool fits(QString const& text, qsizetype most) { return text.size() <= most || guiCharactersIn(text) <= most; }

} // namespace

qsizetype guiCharactersIn(QString const& text)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype count = 0;
    while (finder.toNextBoundary() > 0)
        ++count;
    return count;
}

QString guiFitting(QString const& before, QString const& typed, QString const& after, qsizetype most)
{
    qsizetype const room = std::max<qsizetype>(0, most - guiCharactersIn(before + after));
    if (fits(before + typed + after, most))
        return typed;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, typed);
    for (qsizetype i = 0; i < room; ++i)
        finder.toNextBoundary();
    return typed.left(std::max<qsizetype>(0, finder.position()));
}

// Typing ends at the cursor, so what is too much stands before it. Refusing a change keeps what can be undone; changing
// the text, which is only done when part of it fits, does not.
QValidator::State guiTextLimit::validate(QString& text, int& cursor) const
{
    if (!fits(text, std::max(m_most, guiCharactersIn(m_last)))) {
        qsizetype const added = text.size() - m_last.size();
        qsizetype const start = std::max<qsizetype>(0, cursor - std::max<qsizetype>(0, added));
        QString const kept = guiFitting(text.left(start), text.mid(start, cursor - start), text.mid(cursor), m_most);
        text = text.left(start) + kept + text.mid(cursor);
        cursor = static_cast<int>(start + kept.size());
        if (text == m_last || !fits(text, std::max(m_most, guiCharactersIn(m_last))))
            return Invalid;
    }
    m_last = text;
    return Acceptable;
}
