// controls/guipicturestore.cpp: see guipicturestore.h.
#include "controls/guipicturestore.h"

#include <cassert>

namespace {

std::pair<int, int> keyOf(QSize size) { return {size.width(), size.height()}; }

/// The size of a picture with `scale` pixels for each of the page, of which a part counts as a whole one.
QSize pageSize(QSize size, int scale)
{
    assert(scale > 0);
    return {(size.width() + scale - 1) / scale, (size.height() + scale - 1) / scale};
}

} // namespace

guiPictureStore& guiPictureStore::instance()
{
    static auto& store = *new guiPictureStore; // outlives whoever holds a picture
    return store;
}

std::optional<guiPictureKind> guiPictureStore::kindOf(guiFileState const& file) const
{
    std::lock_guard<std::mutex> const guard(m_lock);
    auto const found = m_files.find(file);
    if (found == m_files.end())
        return std::nullopt;
    return found->second.kind;
}

guiPictureRef guiPictureStore::find(guiFileState const& file, QSize size) const
{
    std::lock_guard<std::mutex> const guard(m_lock);
    auto const found = m_files.find(file);
    if (found == m_files.end())
        return nullptr;
    auto const picture = found->second.pictures.find(keyOf(size));
    return picture == found->second.pictures.end() ? nullptr : picture->second.lock();
}

guiPictureRef guiPictureStore::add(guiFileState const& file, guiPictureKind const& kind, QPixmap const& image,
                                   guiPictureMemory memory)
{
    assert(!image.isNull());
    QSize const size = image.size();
    auto held =
        std::make_unique<guiPicture>(guiPicture{image, pageSize(kind.size, file.scale), kind.isAnimated, kind.size});
    auto const free = [this, file, size,
                       part = std::make_shared<guiPictureMemory>(std::move(memory))](guiPicture const* picture) {
        delete picture;
        part->giveBack();
        forget(file, size);
    };
    guiPictureRef picture(held.release(), free);
    std::lock_guard<std::mutex> const guard(m_lock);
    shownFile& shown = m_files[file];
    shown.kind = kind;
    shown.pictures[keyOf(size)] = picture;
    return picture;
}

/// The last reference to a picture has gone. Another one of the same size may have been added since.
void guiPictureStore::forget(guiFileState const& file, QSize size)
{
    std::lock_guard<std::mutex> const guard(m_lock);
    auto const found = m_files.find(file);
    if (found == m_files.end())
        return;
    auto& pictures = found->second.pictures;
    if (auto const picture = pictures.find(keyOf(size)); picture != pictures.end() && picture->second.expired())
        pictures.erase(picture);
    if (pictures.empty())
        m_files.erase(found);
}
