// controls/guipicturestore.h: the pictures in use, so that a file is decoded once however many show it.
#pragma once

#include "controls/guipicturefile.h"
#include "controls/guipicturememory.h"
#include "controls/guipicturereader.h"
#include "page/guipicture.h"

#include <map>
#include <memory>
#include <mutex>
#include <optional>

/// Knows what is shown and owns none of it. Any thread.
class guiPictureStore
{
public:
    static guiPictureStore& instance();

    /// What is known of a file of which some picture is in use.
    std::optional<guiPictureKind> kindOf(guiFileState const& file) const;
    /// The file's picture in this size, null when it is not in use.
    guiPictureRef find(guiFileState const& file, QSize size) const;
    /// A picture that is in use until the last reference goes, and holds this memory as long.
    guiPictureRef add(guiFileState const& file, guiPictureKind const& kind, QPixmap const& image,
                      guiPictureMemory memory);

private:
    struct shownFile
    {
        guiPictureKind kind;
        std::map<std::pair<int, int>, std::weak_ptr<guiPicture const>> pictures; // by their decoded size
    };

    void forget(guiFileState const& file, QSize size);

    mutable std::mutex m_lock;
    std::map<guiFileState, shownFile> m_files; // guarded by m_lock
};
