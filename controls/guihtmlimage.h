// controls/guihtmlimage.h: the `img` element: a still picture or a movie, with a link or an image map.
#pragma once

#include "page/guihtml.h"

#include <memory>

class guiImageMap;

class guiHtmlImage : public guiHtml
{
public:
    /// How a movie starts.
    struct playback_t
    {
        bool paused = false; ///< only when script says so
        bool looped = false;
    };

    explicit guiHtmlImage(guiHtml* parent = nullptr);
    ~guiHtmlImage() override;

    int getType() override { return kTypeImage; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    sstring getSource() const { return m_source; }
    /// Shows another picture or movie.
    void setSource(sstring const& name) { m_source = name; }
    /// Takes the map over; null: none.
    void setImageMap(std::unique_ptr<guiImageMap> map);
    guiImageMap const* getImageMap() const { return m_map.get(); }
    /// The name of the map that the page asks for, "" without one.
    sstring getMapName() const { return m_mapName; }
    void setMapName(sstring const& name) { m_mapName = name; }
    /// The link under a point, or the picture's own link when it has no map.
    sstring getMappedLink(int x, int y) const;
    void setLink(sstring const& link) { m_link = link; }
    playback_t const& getPlayback() const { return m_playback; }
    void setPlayback(playback_t const& playback) { m_playback = playback; }

private:
    sstring m_source;
    sstring m_link;
    sstring m_mapName;
    std::unique_ptr<guiImageMap> m_map;
    playback_t m_playback;
};
