// page/guihotspots.h: where the links of a text run lie, for the pointer.
#pragma once

#include <memory>
#include <vector>

/// One piece of link text for hit testing: where it lies in the run's node, and the position of its "[[a" code.
struct guiHotspot
{
    int left = 0;
    int width = 0;
    int top = 0;
    int height = 0;
    unsigned link = 0;
};

/// The pieces of one run, in the order in which they are drawn. Most runs have none, so it is one pointer until then.
class guiHotspotList
{
public:
    bool empty() const { return size() == 0; }
    std::size_t size() const { return m_spots ? m_spots->size() : 0; }
    guiHotspot const* begin() const { return m_spots ? m_spots->data() : nullptr; }
    guiHotspot const* end() const { return begin() + size(); }
    guiHotspot const& operator[](std::size_t i) const { return (*m_spots)[i]; }
    guiHotspot const& back() const { return m_spots->back(); }

    void push_back(guiHotspot const& spot)
    {
        if (!m_spots)
            m_spots = std::make_unique<std::vector<guiHotspot>>();
        m_spots->push_back(spot);
    }
    void clear() { m_spots.reset(); }

private:
    std::unique_ptr<std::vector<guiHotspot>> m_spots;
};
