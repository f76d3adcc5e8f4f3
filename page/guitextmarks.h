// page/guitextmarks.h: parts of a run of text that stand out when it is painted: what is selected, what was found.
#pragma once

#include "page/guihtmltext-lines.h"

#include <QColor>
#include <QRect>
#include <QRegion>
#include <QStringView>

#include <vector>

class guiHtmlText;
class guiPageText;

/// Units of a run, from the first to one past the last, and the colours that they are painted in.
struct guiTextMark
{
    unsigned from = 0;
    unsigned to = 0;
    QColor ground;
    QColor ink;
};

/// In the order in which they are painted.
using guiTextMarks = std::vector<guiTextMark>;

/// Knows the marks of one run while it is painted. Takes no time while nothing is marked in any window. GUI thread.
class guiTextMarker
{
public:
    explicit guiTextMarker(guiHtmlText& run);

    /// Whether the run may have marks.
    explicit operator bool() const { return m_text != nullptr; }
    /// Those between two units, cut off there.
    guiTextMarks between(unsigned from, unsigned to) const;

private:
    guiHtmlText& m_run;
    guiPageText* m_text = nullptr; // of its page; not owned
};

/// What the mark covers of a piece; `place` is the piece's, `text` what it shows. GUI thread.
QRegion guiAreaOfMark(guiTextMark const& mark, guiTextPiece const& piece, guiTextChunk const& chunk, QStringView text,
                      QRect const& place);

/// Counts who marks text anywhere, so that painting without marks does not look for them. GUI thread.
class guiMarking
{
public:
    guiMarking() = default;
    ~guiMarking()
    {
        if (m_on)
            set(false);
    }
    guiMarking(guiMarking const&) = delete;
    guiMarking& operator=(guiMarking const&) = delete;

    /// Whether the owner marks something now.
    void set(bool on);
    bool isOn() const { return m_on; }
    static unsigned count();

private:
    bool m_on = false;
};
