// runtime/guigiven.h: what pages gave their controls when they were read, and what script has said to elements since.
// It is noted while somebody watches the files of pages: when a page is read anew, what differs from what the page gave
// is the user's or script's, and stays.
#pragma once

#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "runtime/guikeptvalues.h"
#include "runtime/guipagewatcher.h"

#include <optional>

class guiHtml;
class guiHtmlBase;

/// What is known of one node.
struct guiGiven
{
    std::optional<guiControlValues> values; ///< of controls
    sstring file;                           ///< what the page loads into the node, in full; "" for nothing
    guiSaid said;
};

/// Content at and below the node has been read and nothing else has touched it yet. `root` is the root of its window.
void guiGiven_note(guiHtmlBase& root, guiHtml* node) TARN_ON(velaGuiRole);
/// Script changes the node: where to note how. Valid until the next call.
guiSaid& guiGiven_said(guiHtml* node) TARN_ON(velaGuiRole);
/// What is known of the node; null for one that was read while nobody watched.
guiGiven const* guiGiven_of(guiHtml* node) TARN_ON(velaGuiRole);

/// What a window as a whole was given: its title by the page, and the text of a page that is no file.
struct guiGivenPage
{
    sstring title;
    std::optional<sstring> text;
    sstring directory; ///< where names in that text start
};
guiGivenPage const* guiGiven_pageOf(guiHtmlBase& root) TARN_ON(velaGuiRole);
/// The window shows this text, or with none what a file holds.
void guiGiven_noteText(guiHtmlBase& root, std::optional<sstring> const& text, sstring const& directory)
    TARN_ON(velaGuiRole);
