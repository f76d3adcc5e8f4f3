// controls/guihtmlimage.cpp: see guihtmlimage.h.
#include "controls/guihtmlimage.h"

#include "controls/guianimation.h"
#include "controls/guicontrolhost.h"
#include "controls/guiimagec.h"
#include "controls/guiimagemap.h"
#include "controls/guimovie.h"
#include "page/guiatplace.h"
#include "page/guihtmlsize.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guionpaper.h"
#include "page/guipageroot.h"
#include "page/guiqrect.h"
#include "page/guirareattributes.h"
#include "page/guiuserevent.h"

#include <QApplication>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>
#include <QWidget>
#include <cassert>
#include <cmath>
#include <utility>

namespace {

int offsetFor(guiAlignment align, int size, int room)
{
    if (align == kAlignLeft || size >= room)
        return 0;
    return align == kAlignCenter ? (room - size) / 2 : room - size;
}

/// `side` times `other` by `own`, rounded; nothing that is there disappears.
int proportional(int side, int other, int own)
{
    assert(own > 0);
    std::int64_t const scaled = (std::int64_t{side} * other + own / 2) / own;
    return guiClampPixels(std::max<std::int64_t>(scaled, side > 0 && other > 0));
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
    dropMovie();
    m_content = image.m_content;
    m_animation = image.m_animation;
    m_map = image.m_map ? image.m_map->Clone() : nullptr;
    return *this;
}

guiHtml* guiHtmlImage::Clone(guiHtml* parent) { return guiCloneNode(*this, parent); }

// ---- The picture ----

QPixmap const* guiHtmlImage::getPixmap() const { return m_content.picture ? &m_content.picture->image : nullptr; }

void guiHtmlImage::setSource(sstring const& name)
{
    if (name == m_content.source)
        return;
    dropMovie();
    m_content.source = name;
    m_content.isMovie = getFindFileType(name) == kFileMovie;
    m_content.isPending = true;
    if (!guiControlHost::current().isGuiThread())
        return;
    if (!loadPendingSource())
        update();
    else if (getTopLevelWidget())
        updateLayout(1);
}

/// Loads a source that has been set and not loaded yet; whether the picture's size has changed. Without a component
/// nothing can be read, and the source stays pending.
bool guiHtmlImage::loadPendingSource()
{
    if (!m_content.isPending || !guiPageHost::isInstalled())
        return false;
    assertOnGuiThread();
    m_content.isPending = false;
    guiPictureRef picture = readSource();
    QSize const size = picture ? picture->size : QSize(0, 0);
    bool const isSameSize = size.width() == m_content.width && size.height() == m_content.height;
    m_content.width = size.width();
    m_content.height = size.height();
    m_content.picture = std::move(picture);
    m_content.isFinal = false;
    startAnimation();
    assert(isConsistent());
    return !isSameSize;
}

/// The size that layout uses is the picture's, and only a movie plays.
bool guiHtmlImage::isConsistent() const
{
    QSize const size(m_content.width, m_content.height);
    bool const isMeasured = !m_content.picture || m_content.picture->size == size;
    return isMeasured && (!m_movie || m_content.isMovie);
}

guiPictureRef guiHtmlImage::readSource()
{
    guiAtPlace const place(getString(kStringPlace));
    m_content.isLoaded = false;
    if (m_content.source.getLength() == 0)
        return nullptr;
    if (m_content.isMovie)
        return readMovie();
    guiPageHost& host = guiPageHost::current();
    guiPictureRef picture = host.readImage(guiPageObjectOf(this), guiFullName(this, m_content.source), shownAtFirst());
    m_content.isLoaded = picture != nullptr;
    return picture ? picture : host.readImage(guiPageObjectOf(this), sstring(kBrokenImage));
}

/// As far as it is known before the page is laid out, in pixels of the screen. What layout decides is not known yet:
/// the picture is decoded small, and again when it is painted.
QSize guiHtmlImage::shownAtFirst() const
{
    constexpr int kSmall = 64;
    bool const isGiven = m.fixed.unitX != kUnitUnbound && m.fixed.unitY != kUnitUnbound;
    if (isGiven && (m.fixed.unitX == kUnitPercent || m.fixed.unitY == kUnitPercent))
        return {kSmall, kSmall};
    auto const onScreen = [this](unsigned outer) {
        std::int64_t const inner = std::max<std::int64_t>(1, std::int64_t{outer} - guiFrameOf(this));
        return static_cast<int>(std::ceil(guiClampPixels(inner) * qApp->devicePixelRatio()));
    };
    return {m.fixed.unitX == kUnitPixels ? onScreen(m.fixed.x) : 0,
            m.fixed.unitY == kUnitPixels ? onScreen(m.fixed.y) : 0};
}

/// Decodes the picture again when it is shown with more pixels than before. The size is a half, a quarter and so on of
/// the file's, so that not every step of a resize decodes.
void guiHtmlImage::decodeFor(QSize shown)
{
    if (!m_content.isLoaded || m_content.isMovie || m_content.isFinal || !m_content.picture)
        return;
    QSize const now = m_content.picture->image.size();
    QSize wanted = m_content.picture->fileSize;
    if (now == wanted || (now.width() >= shown.width() && now.height() >= shown.height()))
        return;
    while (wanted.width() / 2 >= shown.width() && wanted.height() / 2 >= shown.height())
        wanted /= 2;
    guiPictureRef const better =
        guiPageHost::current().readImage(guiPageObjectOf(this), guiFullName(this, m_content.source), wanted);
    m_content.isFinal = !better || better->fileSize != m_content.picture->fileSize; // or it was written anew meanwhile
    if (!m_content.isFinal)
        m_content.picture = better;
}

/// The first frame; a movie that is only sound has none.
guiPictureRef guiHtmlImage::readMovie()
{
    assert(!m_movie);
    if (!guiControlHost::current().loadFile())
        return nullptr;
    m_movie = std::make_unique<guiMovie>();
    m_content.isLoaded = m_movie->loadFile(guiPageObjectOf(this), guiFullName(this, m_content.source));
    if (!m_movie->hasVideo())
        return nullptr;
    m_movie->setRenderTarget(this);
    QPixmap const& first = m_movie->getFrames().front().image;
    return std::make_shared<guiPicture const>(guiPicture{first, first.size()});
}

int guiHtmlImage::loadPicture(sstring const& path)
{
    setSource(path);
    return 1;
}

// ---- Playing ----

void guiHtmlImage::play()
{
    assertOnGuiThread();
    if (m_animation && std::exchange(m_content.playback.paused, false))
        update();
    startMovie(false);
}

/// For a picture of several frames. Its frames are those of the file's size.
void guiHtmlImage::startAnimation()
{
    if (m_content.isLoaded && m_content.picture && m_content.picture->isAnimated)
        m_animation = guiAnimation::open(guiPageObjectOf(this), guiFullName(this, m_content.source));
}

void guiHtmlImage::startMovie(bool isLooped)
{
    assert(isConsistent());
    if (!m_movie || !m_movie->isValid())
        return;
    m_movie->onStopped(&guiHtmlImage::onStopped, this);
    m_movie->play(isLooped);
}

/// Stops the movie without the page event "eStopped", which is for a movie that ends by itself.
void guiHtmlImage::stopMovie()
{
    if (!m_movie)
        return;
    m_movie->onStopped(nullptr, nullptr);
    m_movie->stop();
    m_frame = nullptr;
}

/// The movie of a source that is replaced now.
void guiHtmlImage::dropMovie()
{
    stopMovie();
    m_movie.reset();
    m_animation.reset();
    assert(!m_frame.load());
}

void guiHtmlImage::setMovieFrame(QPixmap const* frame)
{
    m_frame = frame;
    guiControlHost::current().postUpdate(this);
}

void guiHtmlImage::onStopped(guiMovie*, void* data)
{
    auto* node = static_cast<guiHtmlImage*>(data);
    assert(node);
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
    assertOnGuiThread();
    guiHtml::onShow();
    if (m_movie && !m_content.playback.paused && !m_movie->isPlaying())
        startMovie(m_content.playback.looped);
}

void guiHtmlImage::destroyChildWidget()
{
    stopMovie();
    guiHtml::destroyChildWidget();
}

// ---- Its size and place ----

int guiHtmlImage::getPreferredWidth() { return guiClampPixels(guiFrameOf(this) + wantedSize().width()); }
int guiHtmlImage::getHeightEstimate(unsigned long) { return guiClampPixels(guiFrameOf(this) + wantedSize().height()); }

/// As the file has it, at the zoom of the page.
QSize guiHtmlImage::ownSize() const { return {scaled(m_content.width), scaled(m_content.height)}; }

/// How large the picture itself is to be: a side that the page gives in pixels is that, less the frame, and a side that
/// it does not give follows in proportion. What stands for a picture that can not be loaded keeps its own size.
QSize guiHtmlImage::wantedSize() const
{
    QSize const own = ownSize();
    auto const inner = [this](std::int64_t outer) {
        return guiClampPixels(std::max(std::int64_t{0}, outer - guiFrameOf(this)));
    };
    auto const follow = [this](int side, int otherOwn, int sideOwn) {
        return m_content.isLoaded && sideOwn > 0 ? proportional(side, otherOwn, sideOwn) : otherOwn;
    };
    bool const hasX = m.fixed.unitX == kUnitPixels;
    bool const hasY = m.fixed.unitY == kUnitPixels;
    int const x = hasX ? inner(m.fixed.x) : own.width();
    int const y = hasY ? inner(m.fixed.y) : own.height();
    if (hasX && m.fixed.unitY == kUnitUnbound)
        return {x, follow(x, own.height(), own.width())};
    if (hasY && m.fixed.unitX == kUnitUnbound)
        return {follow(y, own.width(), own.height()), y};
    return {x, y};
}

int guiHtmlImage::calcDynamicLayout()
{
    loadPendingSource();
    return guiHtml::calcDynamicLayout();
}

/// Where the picture is drawn, relative to the node's corner: stretched over the node if the page gives both its width
/// and its height, otherwise as large as it is to be, and aligned in the node. What stands for a picture that can not
/// be loaded is never stretched.
guiRect guiHtmlImage::pictureRect() const
{
    assert(isConsistent());
    int const inset = guiClampPixels(guiFrameOf(this) / 2);
    int const roomX = std::max(0, m.rect.width - 2 * inset);
    int const roomY = std::max(0, m.rect.height - 2 * inset);
    bool const isBroken = m_content.picture && !m_content.isLoaded;
    if (!isBroken && m.fixed.unitX != kUnitUnbound && m.fixed.unitY != kUnitUnbound)
        return {inset, roomX, inset, roomY};
    QSize const size = isBroken ? ownSize() : wantedSize();
    return {inset + offsetFor(m.alignX, size.width(), roomX), size.width(),
            inset + offsetFor(m.alignY, size.height(), roomY), size.height()};
}

/// The movie's, the animation's or the only one; null without a picture.
QPixmap const* guiHtmlImage::currentFrame()
{
    if (QPixmap const* const frame = m_frame)
        return frame;
    if (!m_animation)
        return getPixmap();
    if (!m_content.playback.paused)
        m_animation->shownBy(this);
    return &m_animation->frame();
}

namespace {

/// How many pixels of a picture a pixel of the page has. Paper is finer than screens.
double densityOf(QPainter const& painter)
{
    constexpr double kOnPaper = 3;
    return guiOnPaper::isActive() ? kOnPaper : painter.device()->devicePixelRatioF();
}

} // namespace

/// The window keeps the picture in the size that it shows.
void guiHtmlImage::paintChildrenTo(QPainter* painter, int x, int y, guiWidget*, QRegion const* region)
{
    assertOnGuiThread();
    bool const wasFinal = m_content.isFinal;
    guiPictureRef const shown = m_content.picture;
    paintPicture(*painter, x, y, region);
    if (!guiOnPaper::isActive())
        return;
    m_content.picture = shown;
    m_content.isFinal = wasFinal;
}

void guiHtmlImage::paintPicture(QPainter& painter, int x, int y, QRegion const* region)
{
    guiRect const place = pictureRect();
    if (place.isEmpty())
        return;
    decodeFor((QSizeF(place.width, place.height) * densityOf(painter)).toSize());
    QPixmap const* const shown = currentFrame();
    if (!shown || shown->isNull())
        return;
    if (region)
        painter.setClipRegion(*region);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRect(x + place.left, y + place.top, place.width, place.height), *shown);
}

// ---- Links ----

void guiHtmlImage::setImageMap(std::unique_ptr<guiImageMap> map) { m_map = std::move(map); }

sstring guiHtmlImage::getMappedLink(int x, int y) const { return m_map ? m_map->hitTest(x, y) : m_content.link; }

bool guiHtmlImage::isStretched(guiRect const& place) const
{
    bool const hasSize = !place.isEmpty() && m_content.width > 0 && m_content.height > 0;
    return hasSize && (place.width != m_content.width || place.height != m_content.height);
}

/// A point of the node in the coordinates that maps use, those of the picture in its own size.
QPoint guiHtmlImage::inPicture(int x, int y) const
{
    guiRect const place = pictureRect();
    std::int64_t const atX = std::int64_t{x} - place.left;
    std::int64_t const atY = std::int64_t{y} - place.top;
    if (!isStretched(place))
        return {static_cast<int>(atX), static_cast<int>(atY)};
    return {static_cast<int>(atX * m_content.width / place.width),
            static_cast<int>(atY * m_content.height / place.height)};
}

sstring guiHtmlImage::linkAt(int x, int y) const
{
    QPoint const at = inPicture(x, y);
    return getMappedLink(at.x(), at.y());
}

/// "" for a place that there is not.
sstring guiHtmlImage::linkOf(unsigned place) const
{
    if (!m_map)
        return place == 0 ? m_content.link : sstring();
    return place < m_map->getRegionCount() ? m_map->getRegion(place).getLink() : sstring();
}

void guiHtmlImage::findLinks(std::vector<unsigned>& places)
{
    unsigned const count = m_map ? m_map->getRegionCount() : 1;
    for (unsigned place = 0; place < count; ++place)
        if (linkOf(place).getLength() != 0)
            places.push_back(place);
}

unsigned guiHtmlImage::getLinkAt(int x, int y)
{
    QPoint const at = inPicture(x, y);
    unsigned const place = m_map ? m_map->findRegion(at.x(), at.y()) : 0;
    return linkOf(place).getLength() != 0 ? place : kNoLink;
}

QPainterPath guiHtmlImage::getLinkOutline(unsigned place)
{
    QPainterPath picture;
    guiRect const shown = pictureRect();
    picture.addRect(QRectF(guiToQRect(shown)));
    if (linkOf(place).getLength() == 0)
        return {};
    if (!m_map)
        return picture;
    QTransform toNode = QTransform::fromTranslate(shown.left, shown.top);
    if (isStretched(shown))
        toNode.scale(static_cast<double>(shown.width) / m_content.width,
                     static_cast<double>(shown.height) / m_content.height);
    return toNode.map(m_map->getRegion(place).outline()).intersected(picture);
}

sstring guiHtmlImage::getLinkText(unsigned place)
{
    sstring const own = guiRareAttributeOf(this, guiRareAttribute::kAlt);
    sstring const text = m_map && linkOf(place).getLength() != 0 ? m_map->getRegion(place).getText() : own;
    return text.getLength() != 0 || !m_map ? text : own;
}

void guiHtmlImage::followLinkAt(unsigned place)
{
    assertOnGuiThread();
    guiEventNote const note("click");
    sstring const link = linkOf(place);
    if (link.getLength() != 0)
        onHyperlink(link, getCustomObject());
}

int guiHtmlImage::canHitTest() { return m_map || m_content.link.getLength() || guiHtml::canHitTest(); }

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

// A press on a link is reported as an event of the picture only if the page asks for that event.
void guiHtmlImage::onMouseDown(int x, int y)
{
    assertOnGuiThread();
    sstring const link = linkAt(x, y);
    guiNodeWatch self(this);
    if (link.getLength() == 0 || hasString(kStringMouseDown))
        guiHtml::onMouseDown(x, y);
    guiEventNote const note("click");
    if (self.alive() && link.getLength() != 0)
        onHyperlink(link, getCustomObject());
}
