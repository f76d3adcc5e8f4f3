// controls/guiimagec.h: loads pictures and caches them, so that a picture on many pages is decoded once.
#pragma once

#include "page/guifiletype.h"

class QPixmap;
class ScriptObject;

/// The picture in a file, by full name or relative to the script that owns `owner` (may be null). 1, or 0 after a log
/// line. A picture with a side of more than 16384 pixels, or of more than 256 MiB when decoded, is refused. GUI thread;
/// needs the component.
int guiLoadImage(ScriptObject* owner, sstring const& name, QPixmap& image);
/// The same; a null pixmap when it cannot be loaded.
QPixmap guiLoadImage(ScriptObject* owner, sstring const& name);
/// The picture that is shown instead of one that cannot be loaded.
inline constexpr char kBrokenImage[] = "vfs://GuiWindow/broken.png";
QPixmap guiLoadBrokenImage(ScriptObject* owner);
/// Empties the cache. GUI thread.
void guiFreeImages();
