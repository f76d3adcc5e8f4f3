// page/guivisibletext.cpp: see guivisibletext.h.
#include "page/guivisibletext.h"

#include "page/guihtmltext-codes.h"
#include "page/guihtmltext-shape.h"

#include <algorithm>

guiVisibleText::guiVisibleText(QStringView run)
{
    m_text.reserve(run.size());
    guiTextScanner scanner(run);
    while (scanner.next()) {
        if (!scanner.isCode())
            add(scanner.part(), scanner.start());
        else if (guiReadTextCode(scanner.part()) == guiTextCode::kLineBreak)
            add(u"\n", scanner.start());
    }
}

void guiVisibleText::add(QStringView text, qsizetype start)
{
    constexpr char16_t kFixedBlank = 0xA0;
    m_parts.push_back({m_text.size(), static_cast<std::uint32_t>(start)});
    m_end = static_cast<std::uint32_t>(start + text.size());
    if (text == QStringView(u"\n")) {
        m_text += u'\n';
        return;
    }
    for (QChar const unit : text) {
        bool const isBlank = guiIsBlank(unit.unicode()) || unit == QChar(kFixedBlank);
        m_text += isBlank ? QChar(u' ') : unit;
    }
}

unsigned guiVisibleText::toUnit(qsizetype position) const
{
    if (m_parts.empty() || position >= m_text.size())
        return m_end;
    auto const behind = std::upper_bound(m_parts.begin(), m_parts.end(), position,
                                         [](qsizetype at, part const& each) { return at < each.position; });
    part const& around = *std::prev(behind);
    return around.unit + static_cast<unsigned>(position - around.position);
}

qsizetype guiVisibleText::toPosition(unsigned unit) const
{
    auto const behind = std::upper_bound(m_parts.begin(), m_parts.end(), unit,
                                         [](unsigned at, part const& each) { return at < each.unit; });
    if (behind == m_parts.begin())
        return 0;
    part const& around = *std::prev(behind);
    qsizetype const next = behind == m_parts.end() ? m_text.size() : behind->position;
    return std::min(around.position + static_cast<qsizetype>(unit - around.unit), next);
}
