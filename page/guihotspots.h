// page/guihotspots.h: the rectangles of the links of a text run, for the pointer.
#pragma once

#include <cassert>
#include <memory>
#include <vector>

/// One piece of link text: its rectangle relative to the run's node, and the position of its "[[a" code in the text.
struct guiHotspot
{
    int left = 0;
    int width = 0;
    int top = 0;
    int height = 0;
    unsigned link = 0;
};

/// The pieces of one run in drawing order. Most runs have none, so an empty list is only a pointer. GUI thread.
class guiHotspotList
{
public:
    bool empty() const { return size() == 0; }
    std::size_t size() const { return m_spots ? m_spots->size() : 0; }
    guiHotspot const* begin() const { return m_spots ? m_spots->data() : nullptr; }
    guiHotspot const* end() const { return begin() + size(); }
    guiHotspot const& operator[](std::size_t i) const
    {
        assert(i < size());
        return (*m_spots)[i];
    }
    guiHotspot const& back() const { return (*this)[size() - 1]; }

    void push_back(guiHotspot const& spot)
    {
        assert(spot.width >= 0 && spot.height > 0);
        if (!m_spots)
            m_spots = std::make_unique<std::vector<guiHotspot>>();
        m_spots->push_back(spot);
    }
    void clear() { m_spots.reset(); }

private:
    std::unique_ptr<std::vector<guiHotspot>> m_spots;
};
