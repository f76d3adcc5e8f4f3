// page/guivisibletext.h: what of a run is read: its text without the codes, and where each unit of it stands in the
// run.
#pragma once

#include <QString>
#include <QStringView>

#include <cstdint>
#include <vector>

/// Line breaks are "\n", blanks that never end a line and other white space are blanks; everything else is unit by unit
/// what stands in the run. Any thread.
class guiVisibleText
{
public:
    explicit guiVisibleText(QStringView run);

    QString const& text() const { return m_text; }
    /// Where a position of the text stands in the run; that behind the last unit too.
    unsigned toUnit(qsizetype position) const;
    /// The position that stands at this unit of the run, or the next one behind it.
    qsizetype toPosition(unsigned unit) const;

private:
    struct part
    {
        qsizetype position = 0; // of its first unit in the text
        std::uint32_t unit = 0; // the same in the run
    };

    void add(QStringView text, qsizetype start);

    QString m_text;
    std::vector<part> m_parts; // in order
    std::uint32_t m_end = 0;   // of the last part, in the run
};
