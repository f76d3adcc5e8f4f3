// runtime/guiframedivider.h: a divider between two columns or rows of frames, and what dragging it does.
#pragma once

#include <optional>

class guiHtml;

/// Found under the pointer and kept while it is dragged. Holds no node: the frames are looked up each time, since a
/// page may be replaced in the middle of a drag. GUI thread.
class guiFrameDivider
{
public:
    /// Pixels on both sides of the middle of a divider in which it can be grasped, however narrow it is.
    static constexpr int kGrip = 3;
    /// What a drag leaves of a column or row, in pixels.
    static constexpr int kLeastSize = 16;

    /// The divider at a point, relative to the corner of the frameset; none where there is none.
    static std::optional<guiFrameDivider> find(guiHtml const* frameset, int x, int y);

    bool isBetweenColumns() const { return m_axis == Axis::Columns; }

    /// Gives the two neighbours the sizes they have when the divider, grasped where it was found, is at this point.
    /// False when that changes nothing; else the layout is out of date. One of the two stays a share of what is left
    /// if the frameset would have no such column or row otherwise: it shall fill its place at every size.
    bool moveTo(guiHtml* frameset, int x, int y);

private:
    enum class Axis : unsigned char
    {
        Columns,
        Rows,
    };

    guiFrameDivider(Axis axis, unsigned index, int grasped) : m_axis(axis), m_index(index), m_grasped(grasped) {}

    Axis m_axis;
    unsigned m_index; // of the column or row before it
    int m_grasped;    // where the pointer was when the neighbours had these sizes
    int m_first = 0;  // 0: not dragged yet
    int m_second = 0;
};
