// controls/guihtmlimage.h: the `img` element: a still picture or a movie, with a link or an image map.
#pragma once

#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "page/guipicture.h"

#include <atomic>
#include <memory>

class guiAnimation;
class guiImageMap;
class guiMovie;

/// Is as large as its picture and the frame around it, unless the page says how wide or high it is. A picture that
/// cannot be loaded is replaced by a small one that says so. Files are read on the GUI thread: a source that is set on
/// another one is loaded when the page is laid out.
class guiHtmlImage : public guiHtml
{
public:
    /// How a movie starts.
    struct moviePlayback
    {
        bool paused = false; ///< it waits until script starts it
        bool looped = false;
    };

    explicit guiHtmlImage(guiHtml* parent = nullptr);
    ~guiHtmlImage() override;

    int getType() override { return kTypeImage; }
    using guiHtml::operator=;
    guiHtml& operator=(guiHtml& other) override;
    guiHtml* Clone(guiHtml* parent) override;

    sstring getSource() const { return m_content.source; }
    /// Shows another picture or movie; does nothing when the source already has this name. The window is laid out anew
    /// unless the picture is as large as the last one.
    void setSource(sstring const& name);
    int loadPicture(sstring const& path) override;
    bool isMovie() const { return m_content.isMovie; }
    /// The picture that is shown, null while there is none.
    QPixmap const* getPixmap() const;
    /// Whether that is the source itself, not the replacement for one that cannot be loaded.
    bool isLoaded() const { return m_content.isLoaded; }
    /// Takes the map over; null removes it.
    void setImageMap(std::unique_ptr<guiImageMap> map);
    guiImageMap const* getImageMap() const { return m_map.get(); }
    /// The name of the map that the page asks for, "" without one.
    sstring getMapName() const { return m_content.mapName; }
    void setMapName(sstring const& name) { m_content.mapName = name; }
    /// The link under a point of the picture, or the picture's own link when it has no map.
    sstring getMappedLink(int x, int y) const;
    void setLink(sstring const& link) { m_content.link = link; }
    moviePlayback const& getPlayback() const { return m_content.playback; }
    void setPlayback(moviePlayback const& playback) { m_content.playback = playback; }

    /// Plays the movie once, without looping; does nothing when the source is a still picture. GUI thread.
    void play();
    guiMovie const* getMovie() const { return m_movie.get(); }
    /// Shows a frame of the movie; the frame must live as long as it is shown. Any thread.
    void setMovieFrame(QPixmap const* frame);
    /// The movie has ended: the page event "eStopped". On the player's thread; `data` is the node.
    static void onStopped(guiMovie* movie, void* data);

    /// A movie starts by itself unless the page says that it is paused.
    void onShow() override;
    void destroyChildWidget() override;
    int getPreferredWidth() override;
    int getHeightEstimate(unsigned long width) override;
    int calcDynamicLayout() override;
    bool keepsHeight() const override { return true; }
    void paintChildrenTo(QPainter* painter, int x, int y, guiWidget* widget, QRegion const* region) override;
    int canHitTest() override;
    void onMouseMove(int x, int y) override;
    void onMouseDown(int x, int y) override;
    void onMouseOff() override;
    /// One link, whose place is 0, or those of the areas of the map.
    void findLinks(std::vector<unsigned>& places) override;
    unsigned getLinkAt(int x, int y) override;
    QPainterPath getLinkOutline(unsigned place) override;
    sstring getLinkText(unsigned place) override;
    void followLinkAt(unsigned place) override;
    /// Where the link leads, as the page says it; "" for a place without one.
    sstring getLinkTarget(unsigned place) const { return linkOf(place); }

private:
    QSize ownSize() const;
    QSize wantedSize() const;
    guiRect pictureRect() const;
    QPoint inPicture(int x, int y) const;
    sstring linkAt(int x, int y) const;
    sstring linkOf(unsigned place) const;
    bool isStretched(guiRect const& place) const;
    void setOverLink(bool isOverLink);
    bool loadPendingSource();
    bool isConsistent() const;
    guiPictureRef readSource() TARN_ON(velaGuiRole);
    guiPictureRef readMovie() TARN_ON(velaGuiRole);
    QSize shownAtFirst() const;
    void paintPicture(QPainter& painter, int x, int y, QRegion const* region) TARN_ON(velaGuiRole);
    void decodeFor(QSize shown) TARN_ON(velaGuiRole);
    void startAnimation() TARN_ON(velaGuiRole);
    QPixmap const* currentFrame() TARN_ON(velaGuiRole);
    void startMovie(bool isLooped) TARN_ON(velaGuiRole);
    void stopMovie();
    void dropMovie();

    /// What a copy of the node takes over.
    struct content
    {
        sstring source;
        guiPictureRef picture; // null before the GUI thread has read one: script must not touch Qt
        bool isLoaded = false;
        bool isFinal = false;   // it can not be decoded with more pixels
        bool isPending = false; // the source has not been loaded yet
        int width = 0;          // of the picture that was last loaded
        int height = 0;         //
        bool isMovie = false;
        sstring mapName;
        sstring link; // for clicks, without a map
        moviePlayback playback;
    };

    content m_content;
    std::unique_ptr<guiImageMap> m_map;
    std::unique_ptr<guiMovie> m_movie;            // null unless the source is a movie that was loaded here
    std::atomic<QPixmap const*> m_frame{nullptr}; // the movie's, shown in place of the picture; not owned
    std::shared_ptr<guiAnimation> m_animation;    // null unless the picture has several frames
    bool m_isOverLink = false;                    // the pointer is a hand
};
