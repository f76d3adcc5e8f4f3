// page/guinodesource.h: which element of a page's text a node came from: its tag, its place, its attributes. For the
// inspector, and kept only when that has asked for it, since it takes more memory than the nodes themselves.
#pragma once

#include "foundation/vela-string.h"

#include <QString>
#include <utility>
#include <vector>

class guiHtml;
class mlSection;

struct guiNodeSource
{
    QString tag;       ///< as written; "" for text, and for a node that no page's text made
    QString file;      ///< full name, "" for text that comes from elsewhere
    unsigned line = 0; ///< of the tag, from 1; 0 when it is not known
    std::vector<std::pair<QString, QString>> attributes; ///< names and values in the order of the text
};

/// From now on the source of each node is kept when its page is read. GUI thread.
void guiKeepNodeSources();
bool guiAreNodeSourcesKept();

/// Notes the source of the nodes of `parent` from entry `first` on which have none, or one that `isWithin` says less:
/// the paragraph around a text counts, and of what is in a paragraph only what is no text. `isWithin`: the item is text
/// or a part of a text, such as bold.
void guiNoteNodeSource(guiHtml* parent, unsigned first, mlSection* item, bool isWithin, sstring const& file);
/// Without a tag, a file and attributes for a node whose source was not kept.
guiNodeSource guiNodeSourceOf(guiHtml const* node);
