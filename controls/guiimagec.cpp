// controls/guiimagec.cpp: see guiimagec.h.
#include "controls/guiimagec.h"

#include "controls/guicontrolhost.h"
#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"

#include <QBuffer>
#include <QImageReader>
#include <QPixmap>
#include <QPixmapCache>
#include <algorithm>
#include <cassert>

namespace {

constexpr int kMaxImageSide = 16384;   // pixels
constexpr int kMaxImageMiB = 256;      // decoded
constexpr int kMaxCacheLimit = 10'240; // kilobytes

bool decode(void const* data, unsigned length, QPixmap& image)
{
    QByteArray bytes = QByteArray::fromRawData(static_cast<char const*>(data), static_cast<qsizetype>(length));
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    QImageReader::setAllocationLimit(kMaxImageMiB);
    QSize size = reader.size();
    if (size.width() > kMaxImageSide || size.height() > kMaxImageSide)
        return false;
    image = QPixmap::fromImageReader(&reader);
    return !image.isNull();
}

/// The cache limit counts kilobytes, but each picture adds its size in bytes: it reaches the maximum after a few
/// pictures.
void cacheImage(QString const& name, QPixmap const& image)
{
    assert(!image.isNull());
    std::int64_t bytes = std::int64_t{image.width()} * image.height() * image.depth() / 8;
    std::int64_t limit = std::min<std::int64_t>(QPixmapCache::cacheLimit() + bytes, kMaxCacheLimit);
    QPixmapCache::setCacheLimit(static_cast<int>(limit));
    QPixmapCache::insert(name, image);
}

int logFailure(sstring const& name, char const* why)
{
    velaLog("guiLoadImage() - failed to load image %s; %s\n", velaPrintable(name).c_str(), why);
    return 0;
}

} // namespace

int guiLoadImage(ScriptObject* owner, sstring const& name, QPixmap& image)
{
    assertOnGuiThread();
    QString const key = sstoq(name);
    if (QPixmapCache::find(key, &image))
        return 1;
    void const* data = nullptr;
    unsigned length = 0;
    HostLoadFile* files = guiControlHost::current().loadFile();
    if (!files || !files->readFile(owner, name, &data, &length))
        return logFailure(name, "file not found");
    if (!decode(data, length, image))
        return logFailure(name, "bad format");
    cacheImage(key, image);
    return 1;
}

QPixmap guiLoadImage(ScriptObject* owner, sstring const& name)
{
    QPixmap image;
    guiLoadImage(owner, name, image);
    return image;
}

QPixmap guiLoadBrokenImage(ScriptObject* owner) { return guiLoadImage(owner, sstring(kBrokenImage)); }

void guiFreeImages()
{
    assertOnGuiThread();
    QPixmapCache::clear();
}
