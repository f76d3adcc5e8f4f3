// page/guilinkname.h: the parts of a link: percent codes, the target in braces, the bookmark, and the file that a
// relative name stands for.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;

/// What begins every link that calls a handler.
inline constexpr char kEventPrefix[] = "event://";

/// Replaces "%" and two hexadecimal digits by the character with that code. Anything else stays, "%00" too: it has no
/// character.
sstring guiDecodePercent(sstring const& link);

/// Splits "{target}link". "_self" for a link without a target.
void guiSplitTarget(sstring const& link, sstring& target, sstring& rest);

/// Splits "file#bookmark" at the first "#".
void guiSplitBookmark(sstring const& link, sstring& file, sstring& bookmark);

/// Whether the name needs no directory: it begins with "/" or with a scheme such as "vfs://".
bool guiIsFullName(sstring const& file);

/// Directory part of a file name, with the slash; "" when it has none.
sstring guiDirectoryOf(sstring const& file);

/// The directory, with the slash, that relative names in a node's page start from: that of the page file which contains
/// the node, "" when there is none. A node that was loaded from a file itself belongs to the page around it; the root
/// to its own.
sstring guiPageDirectory(guiHtml const* node);

/// The full name of the file that a link on this node stands for.
sstring guiFullName(guiHtml* node, sstring const& file);

/// Whether the file is a page, not a picture or a movie. Its extension decides, in any case.
bool guiIsPageFile(sstring const& file);
