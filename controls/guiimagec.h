// controls/guiimagec.h: loads pictures. A file is decoded once however many show it; what nobody shows any more is
// kept in a small cache. A file that was written anew is decoded anew.
#pragma once

#include "page/guifiletype.h"
#include "page/guipicture.h"

class ScriptObject;

/// The picture in a file, by full name or relative to the script that owns `owner` (may be null), with no more pixels
/// than it is shown with when these are much fewer (a side of `shown` that is not above 0 follows the other). With a
/// valid `shown` it may be the file for larger screens (guiPictureFile::forScreens()). Null,
/// after a log line, when it can not be read, is too large (a side of more than 16384 pixels, more than 256 MiB
/// decoded), or when all pictures together take too much memory (controls/guipicturememory.h). GUI thread; needs the
/// component.
guiPictureRef guiLoadPicture(ScriptObject* owner, sstring const& name, QSize shown = QSize());
/// A copy of that picture in the size of its file; 1, or 0 when it can not be loaded.
int guiLoadImage(ScriptObject* owner, sstring const& name, QPixmap& image);
/// The same; a null pixmap when it cannot be loaded.
QPixmap guiLoadImage(ScriptObject* owner, sstring const& name);
/// The picture that is shown instead of one that cannot be loaded.
inline constexpr char kBrokenImage[] = "vfs://GuiWindow/broken.png";
QPixmap guiLoadBrokenImage(ScriptObject* owner);
/// Empties the cache. GUI thread.
void guiFreeImages();
