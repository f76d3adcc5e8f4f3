// page/guifoldedtext.cpp: see guifoldedtext.h.
#include "page/guifoldedtext.h"

#include <unicode/uchar.h>
#include <unicode/ustring.h>

#include <algorithm>

namespace {

/// By the full rules of Unicode, which the toolkit's own function leaves out: of a sharp s they make two letters.
QString folded(QStringView text)
{
    constexpr int kMostLonger = 3; // units for one
    QString result(text.size() * kMostLonger, Qt::Uninitialized);
    auto* const units = reinterpret_cast<UChar*>(result.data());
    UErrorCode error = U_ZERO_ERROR;
    int32_t const length =
        u_strFoldCase(units, static_cast<int32_t>(result.size()), reinterpret_cast<UChar const*>(text.utf16()),
                      static_cast<int32_t>(text.size()), U_FOLD_CASE_DEFAULT, &error);
    if (U_FAILURE(error))
        return text.toString();
    result.truncate(length);
    return result;
}

/// Soft hyphens, marks of direction, places for breaks.
bool isUnseen(QChar unit)
{
    return unit.unicode() >= 0xAD && u_hasBinaryProperty(unit.unicode(), UCHAR_DEFAULT_IGNORABLE_CODE_POINT);
}

} // namespace

// Folding may lengthen a text, as that of a sharp s, but it never makes one shorter.
guiFoldedText::guiFoldedText(QString const& text, bool fold)
    : m_folded(fold ? folded(text) : text), m_length(text.size())
{
    if (m_folded.size() != m_length || std::any_of(text.begin(), text.end(), isUnseen))
        foldSingly(text, fold);
    m_folded.replace(u'\n', u' ');
}

void guiFoldedText::foldSingly(QString const& text, bool fold)
{
    m_folded.clear();
    for (qsizetype at = 0; at < text.size();) {
        bool const isPair = text[at].isHighSurrogate() && at + 1 < text.size() && text[at + 1].isLowSurrogate();
        qsizetype const units = isPair ? 2 : 1;
        QStringView const unfolded = QStringView(text).mid(at, units);
        QString const letter = isUnseen(text[at]) ? QString() : fold ? folded(unfolded) : unfolded.toString();
        m_folded += letter;
        for (qsizetype i = 0; i < letter.size(); ++i)
            m_origins.push_back(at + (letter.size() == units ? i : 0));
        at += units;
    }
}

std::pair<qsizetype, qsizetype> guiFoldedText::origin(qsizetype from, qsizetype to) const
{
    if (m_origins.empty())
        return {from, to};
    auto const first = m_origins[static_cast<std::size_t>(from)];
    qsizetype const last = m_origins[static_cast<std::size_t>(to) - 1];
    auto const behind = std::upper_bound(m_origins.begin(), m_origins.end(), last);
    return {first, behind == m_origins.end() ? m_length : *behind};
}

guiTextFinder::guiTextFinder(QString const& wanted)
    : m_wanted(wanted), m_shorter(static_cast<std::size_t>(wanted.size()))
{
    qsizetype matched = 0;
    for (qsizetype at = 1; at < wanted.size(); ++at) {
        while (matched > 0 && wanted[at] != wanted[matched])
            matched = m_shorter[static_cast<std::size_t>(matched) - 1];
        matched += wanted[at] == wanted[matched] ? 1 : 0;
        m_shorter[static_cast<std::size_t>(at)] = matched;
    }
}
