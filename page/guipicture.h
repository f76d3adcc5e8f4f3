// page/guipicture.h: a decoded picture, shared by everything that shows it.
#pragma once

#include <QPixmap>
#include <memory>

/// Whoever shows a picture holds a reference; the last one to let go frees the pixels. Any thread may let go.
struct guiPicture
{
    QPixmap image;           ///< never null; may have fewer pixels than the file, when it is shown much smaller
    QSize size;              ///< in pixels of the page, turned as the camera noted
    bool isAnimated = false; ///< the file has further frames
    QSize fileSize = size;   ///< in pixels of the file, more than `size` in one that is made for larger screens
};

using guiPictureRef = std::shared_ptr<guiPicture const>;
