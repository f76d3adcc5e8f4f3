// controls/guinodeicon.h: small pictures that a page names, for what the toolkit draws.
#pragma once

#include "foundation/vela-string.h"
#include "page/guipicture.h"

#include <QIcon>

class guiHtml;

/// The picture of a file that the page of `node` names, for up to `pixels` on a side and twice that on the screens that
/// have such; an empty icon for "" and for a file that can not be read, which is logged. `picture` keeps what was read,
/// and is used when it is there. GUI thread.
QIcon guiIconOfNode(guiHtml* node, sstring const& file, int pixels, guiPictureRef& picture);
