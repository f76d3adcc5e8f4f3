// runtime/guiframedivider.h: a divider between two columns or rows of frames, and how dragging it resizes them.
#pragma once

#include <optional>

class guiHtml;

/// Found under the pointer and kept while it is dragged. Holds no node: the frames are looked up each time, because a
/// page may be replaced in the middle of a drag. GUI thread.
class guiFrameDivider
{
public:
    /// Pixels on either side of the middle of a divider where the pointer can grasp it, however narrow it is.
    static constexpr int kGrip = 3;
    /// The least size, in pixels, to which a drag shrinks a column or row.
    static constexpr int kLeastSize = 16;

    /// The divider at a point, relative to the corner of the frameset; none where there is none.
    static std::optional<guiFrameDivider> find(guiHtml const* frameset, int x, int y);

    bool isBetweenColumns() const { return m_separated == separated::kColumns; }

    /// Resizes the two neighbours for the divider being dragged to this point. False when that changes nothing; else
    /// the layout is out of date. If no other column or row of the frameset takes a share of what is left, one of the
    /// two goes on doing so, so that the frameset fills its place at every size.
    bool moveTo(guiHtml* frameset, int x, int y);

private:
    enum class separated : unsigned char
    {
        kColumns,
        kRows,
    };

    guiFrameDivider(separated what, unsigned index, int grasped) : m_separated(what), m_index(index), m_grasped(grasped)
    {}

    separated m_separated;
    unsigned m_index; // of the column or row before it
    int m_grasped;    // where the pointer was, in pixels, when the drag began
    int m_first = 0;  // size of the column or row before it at that time; 0: not dragged yet
    int m_second = 0; // of the one behind it
};
