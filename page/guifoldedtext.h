// page/guifoldedtext.h: text as people look for it: without characters that are not seen, and letters that differ only
// in their case are the same; and where it stands in the text as it was.
#pragma once

#include <QString>
#include <QStringView>

#include <utility>
#include <vector>

/// Any thread.
class guiFoldedText
{
public:
    /// `fold` false: the letters stay as they are.
    guiFoldedText(QString const& text, bool fold);

    /// Line ends are blanks.
    QString const& text() const { return m_folded; }
    /// What of the text as it was a part of the folded text comes from, from the first unit to behind the last.
    std::pair<qsizetype, qsizetype> origin(qsizetype from, qsizetype to) const;

private:
    void foldSingly(QString const& text, bool fold);

    QString m_folded;
    std::vector<qsizetype> m_origins; // of each unit; empty: each stands where it stood
    qsizetype m_length;
};

/// Finds a text in others. Time is linear in each, whatever they hold.
class guiTextFinder
{
public:
    explicit guiTextFinder(QString const& wanted);

    /// Calls `found(start)` for each place, from the first to the last; they do not overlap.
    template <typename Found>
    void findIn(QStringView text, Found const& found) const
    {
        qsizetype matched = 0;
        for (qsizetype at = 0; at < text.size() && !m_wanted.isEmpty(); ++at) {
            while (matched > 0 && text[at] != m_wanted[matched])
                matched = m_shorter[static_cast<std::size_t>(matched) - 1];
            matched += text[at] == m_wanted[matched] ? 1 : 0;
            if (matched < m_wanted.size())
                continue;
            found(at + 1 - matched);
            matched = 0;
        }
    }

private:
    QString m_wanted;
    std::vector<qsizetype> m_shorter; // by how many units matched: how many still match one place further
};
