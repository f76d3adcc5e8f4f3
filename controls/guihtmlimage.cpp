// controls/guihtmlimage.cpp: see guihtmlimage.h.
#include "controls/guihtmlimage.h"

#include "controls/guicontrolhost.h"
#include "controls/guiimagec.h"
#include "controls/guiimagemap.h"
#include "controls/guimovie.h"
#include "page/guihtmlsize.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipageroot.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace {

int offsetFor(guiAlignment align, int size, int room)
{
    if (align == kAlignLeft || size >= room)
        return 0;
    return align == kAlignCenter ? (room - size) / 2 : room - size;
}

} // namespace

guiHtmlImage::guiHtmlImage(guiHtml* parent) : guiHtml(parent) {}

guiHtmlImage::~guiHtmlImage() { stopMovie(); }

guiHtml& guiHtmlImage::operator=(guiHtml& other)
{
    guiHtml::operator=(other);
    if (other.getType() != kTypeImage || &other == this)
        return *this;
    auto& image = static_cast<guiHtmlImage&>(other);
    m_source = image.m_source;
    m_image = image.m_image;
    m_isLoaded = image.m_isLoaded;
    m_isPending = image.m_isPending;
    m_width = image.m_width;
    m_height = image.m_height;
    m_isMovie = image.m_isMovie;
    m_link = image.m_link;
    m_mapName = image.m_mapName;
    m_playback = image.m_playback;
    m_map = image.m_map ? image.m_map->Clone() : nullptr;
    return *this;
}

guiHtml* guiHtmlImage::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

// ---- The picture ----

void guiHtmlImage::setSource(sstring const& name)
{
    if (name == m_source)
        return;
    stopMovie();
    m_movie.reset();
    m_source = name;
    m_isMovie = getFindFileType(name) == kFileMovie;
    m_isPending = true;
    if (!guiControlHost::current().isGuiThread())
        return;
    if (!loadPendingSource())
        update();
    else if (getTopLevelWidget())
        updateLayout(1);
}

/// Whether the picture's size is another one now.
bool guiHtmlImage::loadPendingSource()
{
    if (!m_isPending || !guiPageHost::isInstalled())
        return false;
    m_isPending = false;
    m_image = readSource();
    bool const isAsLarge = m_image->width() == m_width && m_image->height() == m_height;
    m_width = m_image->width();
    m_height = m_image->height();
    return !isAsLarge;
}

QPixmap guiHtmlImage::readSource()
{
    QPixmap image;
    m_isLoaded = false;
    if (m_source.getLength() == 0)
        return image;
    if (m_isMovie)
        return readMovie();
    guiPageHost& host = guiPageHost::current();
    m_isLoaded = host.readImage(guiPageObjectOf(this), guiFullName(this, m_source), image);
    if (!m_isLoaded)
        host.readImage(guiPageObjectOf(this), sstring(kBrokenImage), image);
    return image;
}

/// The first frame; a sound has none.
QPixmap guiHtmlImage::readMovie()
{
    if (!guiControlHost::current().loadFile())
        return QPixmap();
    m_movie = std::make_unique<guiMovie>();
    m_isLoaded = m_movie->loadFile(guiPageObjectOf(this), guiFullName(this, m_source));
    if (!m_movie->hasVideo())
        return QPixmap();
    m_movie->setRenderTarget(this);
    return m_movie->getFrames().front().image;
}

int guiHtmlImage::loadPicture(sstring const& path)
{
    setSource(path);
    return 1;
}

// ---- Playing ----

void guiHtmlImage::play() { startMovie(false); }

void guiHtmlImage::startMovie(bool isLooped)
{
    if (!m_movie || !m_movie->isValid())
        return;
    m_movie->onStopped(&guiHtmlImage::onStopped, this);
    m_movie->play(isLooped);
}

/// Nobody hears of this end.
void guiHtmlImage::stopMovie()
{
    if (!m_movie)
        return;
    m_movie->onStopped(nullptr, nullptr);
    m_movie->stop();
    m_frame = nullptr;
}

void guiHtmlImage::setMovieFrame(QPixmap* frame)
{
    m_frame = frame;
    guiControlHost::current().postUpdate(this);
}

void guiHtmlImage::onStopped(guiMovie*, void* data)
{
    auto* node = static_cast<guiHtmlImage*>(data);
    QMetaObject::invokeMethod(
        qApp,
        [node] {
            if (guiHtml::isRegistered(node))
                node->onEvent("event://eStopped", node->getCustomObject());
        },
        Qt::QueuedConnection);
}

void guiHtmlImage::onShow()
{
    guiHtml::onShow();
    if (m_movie && !m_playback.paused && !m_movie->isPlaying())
        startMovie(m_playback.looped);
}

void guiHtmlImage::destroyChildWidget()
{
    stopMovie();
    guiHtml::destroyChildWidget();
}

// ---- Its size and place ----

int guiHtmlImage::getPreferredWidth() { return guiClampPixels(guiFrameOf(this) + m_width); }
int guiHtmlImage::getHeightEstimate(unsigned long) { return guiClampPixels(guiFrameOf(this) + m_height); }

int guiHtmlImage::calcDynamicLayout()
{
    loadPendingSource();
    return guiHtml::calcDynamicLayout();
}

/// Where the picture stands, relative to the node's own corner: aligned in the node as large as it is, or stretched
/// over it when the page says how large both its sides are.
guiRect guiHtmlImage::pictureRect() const
{
    int const inset = guiClampPixels(guiFrameOf(this) / 2);
    int const roomX = std::max(0, m.rect.width - 2 * inset);
    int const roomY = std::max(0, m.rect.height - 2 * inset);
    if (m.fixed.unitX != kUnitUnbound && m.fixed.unitY != kUnitUnbound)
        return {inset, roomX, inset, roomY};
    return {inset + offsetFor(m.alignX, m_width, roomX), m_width, inset + offsetFor(m.alignY, m_height, roomY),
            m_height};
}

void guiHtmlImage::paintChildrenTo(QPainter* painter, int x, int y, guiWidget*, QRegion const* region)
{
    guiRect const place = pictureRect();
    QPixmap const* frame = m_frame;
    QPixmap const* shown = frame ? frame : getPixmap();
    if (!shown || shown->isNull() || place.isEmpty())
        return;
    if (region)
        painter->setClipRegion(*region);
    painter->setRenderHint(QPainter::SmoothPixmapTransform);
    painter->drawPixmap(QRect(x + place.left, y + place.top, place.width, place.height), *shown);
}

// ---- Links ----

void guiHtmlImage::setImageMap(std::unique_ptr<guiImageMap> map) { m_map = std::move(map); }

sstring guiHtmlImage::getMappedLink(int x, int y) const { return m_map ? m_map->hitTest(x, y) : m_link; }

/// The link under a point of the node; maps count in the picture's own pixels.
sstring guiHtmlImage::linkAt(int x, int y) const
{
    guiRect const place = pictureRect();
    std::int64_t const atX = std::int64_t{x - place.left};
    std::int64_t const atY = std::int64_t{y - place.top};
    bool const isStretched = !place.isEmpty() && (place.width != m_width || place.height != m_height) && m_width > 0;
    if (!isStretched)
        return getMappedLink(static_cast<int>(atX), static_cast<int>(atY));
    return getMappedLink(static_cast<int>(atX * m_width / place.width),
                         static_cast<int>(atY * m_height / place.height));
}

int guiHtmlImage::canHitTest() { return m_map || m_link.getLength() || guiHtml::canHitTest(); }

void guiHtmlImage::setOverLink(bool isOverLink)
{
    if (isOverLink == m_isOverLink)
        return;
    m_isOverLink = isOverLink;
    if (QWidget* widget = getTopLevelWidget())
        widget->setCursor(isOverLink ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void guiHtmlImage::onMouseMove(int x, int y)
{
    setOverLink(linkAt(x, y).getLength() != 0);
    guiHtml::onMouseMove(x, y);
}

void guiHtmlImage::onMouseOff()
{
    setOverLink(false);
    guiHtml::onMouseOff();
}

// A press on a link is not also an event of the picture, unless its page asks for that.
void guiHtmlImage::onMouseDown(int x, int y)
{
    sstring const link = linkAt(x, y);
    guiNodeWatch self(this);
    if (link.getLength() == 0 || hasString(kStringMouseDown))
        guiHtml::onMouseDown(x, y);
    if (self.alive() && link.getLength() != 0)
        onHyperlink(link, getCustomObject());
}
