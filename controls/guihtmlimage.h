// controls/guihtmlimage.h: the `img` element: a still picture or a movie, with a link or an image map.
#pragma once

#include "page/guihtml.h"

#include <QPixmap>
#include <atomic>
#include <memory>
#include <optional>

class guiImageMap;
class guiMovie;

/// Takes the size of its picture, with its frame. A picture that can not be loaded is replaced by a small one that says
/// so. Files are read on the GUI thread: a source that is set on another one is loaded when the page is laid out.
class guiHtmlImage : public guiHtml
{
public:
    /// How a movie starts.
    struct moviePlayback
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
    /// Shows another picture or movie; nothing for the name that it has. The window is laid out anew unless the picture
    /// is as large as the last.
    void setSource(sstring const& name);
    int loadPicture(sstring const& path) override;
    bool isMovie() const { return m_isMovie; }
    /// The picture that is shown, null while there is none.
    QPixmap const* getPixmap() const { return m_image && !m_image->isNull() ? &*m_image : nullptr; }
    /// Whether that is the source itself, not what stands in for a broken one.
    bool isLoaded() const { return m_isLoaded; }
    /// Takes the map over; null: none.
    void setImageMap(std::unique_ptr<guiImageMap> map);
    guiImageMap const* getImageMap() const { return m_map.get(); }
    /// The name of the map that the page asks for, "" without one.
    sstring getMapName() const { return m_mapName; }
    void setMapName(sstring const& name) { m_mapName = name; }
    /// The link under a point of the picture, or the picture's own link when it has no map.
    sstring getMappedLink(int x, int y) const;
    void setLink(sstring const& link) { m_link = link; }
    moviePlayback const& getPlayback() const { return m_playback; }
    void setPlayback(moviePlayback const& playback) { m_playback = playback; }

    /// Plays the movie once, without looping; nothing when the source is a still picture.
    void play();
    guiMovie const* getMovie() const { return m_movie.get(); }
    /// Shows a frame of the movie, which must live as long as it is shown. Any thread.
    void setMovieFrame(QPixmap* frame);
    /// The movie has ended: the page event "eStopped". On the player's thread; `data` is the node.
    static void onStopped(guiMovie* movie, void* data);

    /// A movie starts by itself unless the page says that it is paused.
    void onShow() override;
    void destroyChildWidget() override;
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    int calcDynamicLayout() override;
    void paintChildrenTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override;
    int canHitTest() override;
    void onMouseMove(int x, int y) override;
    void onMouseDown(int x, int y) override;
    void onMouseOff() override;

private:
    guiRect pictureRect() const;
    sstring linkAt(int x, int y) const;
    void setOverLink(bool isOverLink);
    bool loadPendingSource();
    QPixmap readSource();
    QPixmap readMovie();
    void startMovie(bool isLooped);
    void stopMovie();

    sstring m_source;
    std::optional<QPixmap> m_image; // none before the GUI thread has read one: script must not touch Qt
    bool m_isLoaded = false;
    bool m_isPending = false; // the source is still to be loaded
    int m_width = 0;          // of the picture as it was last shown
    int m_height = 0;         //
    bool m_isMovie = false;
    bool m_isOverLink = false;                    // the pointer is a hand
    std::unique_ptr<guiMovie> m_movie;            // null unless the source is one
    std::atomic<QPixmap const*> m_frame{nullptr}; // the movie's, shown in place of the picture
    std::unique_ptr<guiImageMap> m_map;
    sstring m_mapName;
    sstring m_link; // for clicks, without a map
    moviePlayback m_playback;
};
