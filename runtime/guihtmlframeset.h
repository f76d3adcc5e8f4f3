// runtime/guihtmlframeset.h: the `frameset` element: frames side by side and below each other.
#pragma once

#include "page/guihtml.h"
#include "runtime/guiframedivider.h"

#include <cstdint>
#include <optional>
#include <vector>

/// Frames fill row after row; the columns and rows set their widths and heights. Unless the page forbids it the user
/// may drag the dividers between them, where the frameset itself receives the pointer. GUI thread.
class guiHtmlFrameset : public guiHtml
{
public:
    /// One column or row: pixels, percent, or unbound for an even share of what is left ("*").
    struct track
    {
        guiSizeUnit unit = kUnitUnbound;
        unsigned size = 0;
    };

    explicit guiHtmlFrameset(guiHtml* parent = nullptr) : guiHtml(parent) {}

    int getType() override { return kTypeFrameset; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    /// A frame of a "*" row is as high as what the other rows leave, shared evenly among such rows.
    int getChildHeight(unsigned index, unsigned long width, unsigned long available) override;

    /// Number of columns and rows, 1 each until setTracks().
    int getColumnCount() const { return m_columns; }
    int getRowCount() const { return m_rows; }
    /// An empty list counts as one "*".
    void setTracks(std::vector<track> columns, std::vector<track> rows);
    /// Whether the user may drag the dividers.
    bool isResizable() const { return m_isResizable; }
    void setResizable(bool resizable) { m_isResizable = resizable; }

    /// Every child but text is a frame: it goes on with the current row or begins the next one.
    void onAppend(guiHtml* child) override;
    /// Whether the next frame begins a new row.
    bool nextStartsRow() const { return m_frames > 0 && m_frames % static_cast<unsigned>(m_columns) == 0; }
    /// Gives the next frame the size of its column and row. Called once for every frame, in order.
    void placeNext(guiHtml* frame);

    guiHtml* hitTest(int* x, int* y) override;
    void onMouseOn() override;
    void onMouseOff() override;
    void onMouseMove(int x, int y) override;
    void onMouseUp() override;
    void onMouseDown(int x, int y) override;

private:
    /// The heights of the "*" rows, as worked out in one run of the layout for one available height; pixels.
    struct rowShares
    {
        std::uint32_t run = 0;
        unsigned long available = 0;
        int each = 0;
        int last = 0;         ///< the last such row's, which gets the remainder too
        unsigned lastRow = 0; ///< where that row begins in the child list
    };
    rowShares const& shareHeight(unsigned long available);
    int fixedRowHeight(unsigned first, unsigned count, unsigned long available);
    bool isOnDivider(int x, int y);

    int m_columns = 1;
    int m_rows = 1;
    bool m_isResizable = true;
    unsigned m_frames = 0; // placed so far
    std::vector<track> m_columnTracks;
    std::vector<track> m_rowTracks;
    rowShares m_shares;
    std::optional<guiFrameDivider> m_dragged; // none while no divider is being dragged
};
