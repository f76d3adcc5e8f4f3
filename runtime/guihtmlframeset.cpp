// runtime/guihtmlframeset.cpp: see guihtmlframeset.h.
#include "runtime/guihtmlframeset.h"

#include <algorithm>

guiHtml& guiHtmlFrameset::operator=(guiHtml& other)
{
    if (other.getType() == kTypeFrameset && &other != this) {
        auto& frameset = static_cast<guiHtmlFrameset&>(other);
        m_columns = frameset.m_columns;
        m_rows = frameset.m_rows;
        m_resizable = frameset.m_resizable;
        m_frames = frameset.m_frames;
        m_columnTracks = frameset.m_columnTracks;
        m_rowTracks = frameset.m_rowTracks;
    }
    guiHtml::operator=(other);
    return *this;
}

guiHtml* guiHtmlFrameset::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

void guiHtmlFrameset::setTracks(std::vector<track_t> columns, std::vector<track_t> rows)
{
    m_columnTracks = std::move(columns);
    m_rowTracks = std::move(rows);
    m_columns = std::max<int>(1, static_cast<int>(m_columnTracks.size()));
    m_rows = std::max<int>(1, static_cast<int>(m_rowTracks.size()));
}

void guiHtmlFrameset::placeNext(guiHtml* frame)
{
    unsigned column = m_frames % static_cast<unsigned>(m_columns);
    unsigned row = m_frames / static_cast<unsigned>(m_columns);
    ++m_frames;
    track_t width = column < m_columnTracks.size() ? m_columnTracks[column] : track_t();
    track_t height = row < m_rowTracks.size() ? m_rowTracks[row] : track_t();
    frame->m.fixed.unitX = width.unit;
    frame->m.fixed.x = width.size;
    frame->m.fixed.unitY = height.unit;
    frame->m.fixed.y = height.size;
}
