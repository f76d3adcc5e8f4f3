// controls/guiimagec.cpp: see guiimagec.h.
#include "controls/guiimagec.h"

#include "controls/guicontrolhost.h"
#include "controls/guipicturestore.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guiatplace.h"

#include <QPixmapCache>
#include <algorithm>
#include <cassert>

namespace {

constexpr int kMaxCacheLimit = 10'240; // kilobytes

/// Pictures that nobody shows any more are kept for a while, in the size of their file.
QString cacheKey(guiFileState const& file)
{
    return QStringLiteral("%1|%2|%3|%4").arg(file.scale).arg(file.size).arg(file.changed).arg(file.name);
}

/// The cache limit counts kilobytes, but each picture adds its size in bytes: it reaches the maximum after a few
/// pictures.
void cacheImage(guiFileState const& file, QPixmap const& image)
{
    assert(!image.isNull());
    std::int64_t const bytes = std::int64_t{image.width()} * image.height() * image.depth() / 8;
    std::int64_t const limit = std::min<std::int64_t>(QPixmapCache::cacheLimit() + bytes, kMaxCacheLimit);
    QPixmapCache::setCacheLimit(static_cast<int>(limit));
    QPixmapCache::insert(cacheKey(file), image);
}

guiPictureRef logFailure(sstring const& name, char const* why)
{
    velaLog("guiLoadImage() - failed to load image %s; %s%s\n", velaPrintable(name).c_str(), why,
            guiAtPlace::text().c_str());
    return nullptr;
}

constexpr char kNotFound[] = "file not found";
constexpr char kBadFormat[] = "bad format";
constexpr char kNoMemory[] = "no memory is left for pictures";

/// One load of a picture.
class pictureLoad
{
public:
    pictureLoad(ScriptObject* owner, sstring const& name, QSize shown)
        : m_name(name),
          m_file(shown.isValid() ? guiPictureFile::forScreens(owner, name) : guiPictureFile(owner, name)),
          m_shown(shown)
    {}

    guiPictureRef run()
    {
        if (!m_file.exists())
            return logFailure(m_name, kNotFound);
        if (guiPictureRef picture = findDecoded())
            return picture;
        return decode();
    }

private:
    guiPictureStore& store() { return guiPictureStore::instance(); }

    /// The picture that others show, or the one that nobody shows any more.
    guiPictureRef findDecoded()
    {
        QPixmap image;
        if (auto const kind = store().kindOf(m_file.state()))
            return store().find(m_file.state(), kind->decodedSize(m_shown));
        if (!QPixmapCache::find(cacheKey(m_file.state()), &image))
            return nullptr;
        guiPictureKind const kind{image.size()};
        guiPictureMemory memory;
        if (kind.decodedSize(m_shown) != kind.size || !memory.take(guiPictureReader::bytesOf(kind.size)))
            return nullptr;
        return store().add(m_file.state(), kind, image, std::move(memory));
    }

    guiPictureRef decode()
    {
        QByteArray bytes;
        if (!m_file.read(bytes))
            return logFailure(m_name, kNotFound);
        guiPictureReader reader(bytes);
        guiPictureKind const& kind = reader.kind();
        if (kind.size.isEmpty())
            return logFailure(m_name, kBadFormat);
        QSize const size = kind.decodedSize(m_shown);
        guiPictureMemory memory;
        if (!memory.take(guiPictureReader::bytesOf(size)))
            return logFailure(m_name, kNoMemory);
        QPixmap const image = reader.decode(size);
        if (image.isNull())
            return logFailure(m_name, kBadFormat);
        if (size == kind.size && !kind.isVector && !kind.isAnimated)
            cacheImage(m_file.state(), image);
        return store().add(m_file.state(), kind, image, std::move(memory));
    }

    sstring const& m_name;
    guiPictureFile m_file;
    QSize m_shown;
};

} // namespace

guiPictureRef guiLoadPicture(ScriptObject* owner, sstring const& name, QSize shown)
{
    assertOnGuiThread();
    return pictureLoad(owner, name, shown).run();
}

int guiLoadImage(ScriptObject* owner, sstring const& name, QPixmap& image)
{
    guiPictureRef const picture = guiLoadPicture(owner, name);
    if (picture)
        image = picture->image;
    return picture != nullptr;
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
