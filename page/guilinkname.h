// page/guilinkname.h: takes links apart: percent codes, the target in braces, the bookmark, and the full name of the
// file.
#pragma once

#include "foundation/vela-string.h"

class guiHtml;

/// Replaces "%" and two hexadecimal digits by the character with that code. Anything else is kept, "%00" too.
sstring guiDecodePercent(sstring const& link);

/// Splits "{target}link". "_self" for a link without a target.
void guiSplitTarget(sstring const& link, sstring& target, sstring& rest);

/// Splits "file#bookmark" at the first "#".
void guiSplitBookmark(sstring const& link, sstring& file, sstring& bookmark);

/// Whether the name needs no directory: it begins with "/" or with a scheme such as "vfs://".
bool guiIsFullName(sstring const& file);

/// What a link leads to, going by its scheme.
enum class guiLinkKind
{
    kPage,    ///< a file, or a name that the host knows
    kOutside, ///< an address of the web or of mail
    kUnknown, ///< a scheme that nobody here knows
};

/// A name with a colon in its first folder, such as "a:b", has a scheme; "./a:b" has none.
guiLinkKind guiKindOfLink(sstring const& link);

/// Directory part of a file name, with the slash; "" when it has none.
sstring guiDirectoryOf(sstring const& file);

/// The directory, with the slash, that relative names in a node's page start from: the directory of the page file that
/// contains the node, "" without one. A node that a file was loaded into belongs to the page around it; only the root
/// belongs to its own file.
sstring guiPageDirectory(guiHtml const* node);

/// The full name of the file that a link or attribute of this node names.
sstring guiFullName(guiHtml* node, sstring const& file);

/// Whether the file is a page, not a picture or a movie: see getFindFileType().
bool guiIsPageFile(sstring const& file);
