// controls/guiimagec.h: loads pictures and keeps the decoded ones, so that a picture on many pages is decoded once.
#pragma once

#include "page/guifiletype.h"

class QPixmap;
class ScriptObject;

/// The picture in a file, by full name or relative to the script that owns `owner` (may be null). 1, or 0 after a log
/// line. A picture beyond 16384 pixels on a side or 256 MiB decoded is refused. GUI thread; needs the component.
int guiLoadImage(ScriptObject* owner, sstring const& name, QPixmap& image);
/// The same; a null pixmap when it can not be loaded.
QPixmap guiLoadImage(ScriptObject* owner, sstring const& name);
/// The picture shown in place of one that can not be loaded.
inline constexpr char kBrokenImage[] = "vfs://GuiWindow/broken.png";
QPixmap guiLoadBrokenImage(ScriptObject* owner);
/// Forgets all decoded pictures.
void guiFreeImages();
