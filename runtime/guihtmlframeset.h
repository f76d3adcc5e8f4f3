// runtime/guihtmlframeset.h: the `frameset` element: frames side by side and below each other.
#pragma once

#include "page/guihtml.h"

#include <vector>

/// Frames fill row after row; the columns and rows say how wide and high.
class guiHtmlFrameset : public guiHtml
{
public:
    /// One column or row: pixels, percent, or unbound for an even share of what is left ("*").
    struct track_t
    {
        guiSizeUnit unit = kUnitUnbound;
        unsigned size = 0;
    };

    explicit guiHtmlFrameset(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeFrameset; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// Number of columns and rows, 1 each until setTracks().
    int getColumnCount() const { return m_columns; }
    int getRowCount() const { return m_rows; }
    /// An empty list counts as one "*".
    void setTracks(std::vector<track_t> columns, std::vector<track_t> rows);
    /// Whether the user may drag the dividers.
    bool isResizable() const { return m_resizable; }
    void setResizable(bool resizable) { m_resizable = resizable; }

    /// Whether the next frame begins a new row.
    bool nextStartsRow() const { return m_frames > 0 && m_frames % static_cast<unsigned>(m_columns) == 0; }
    /// Gives the next frame the size of its column and row. For every frame once, in order.
    void placeNext(guiHtml* frame);

private:
    int m_columns = 1;
    int m_rows = 1;
    bool m_resizable = true;
    unsigned m_frames = 0; // placed so far
    std::vector<track_t> m_columnTracks;
    std::vector<track_t> m_rowTracks;
};
