// page/guichildlist.h: the children of a node in order, with markers (paragraph, line break, alignment) in between.
#pragma once

#include "page/guitypes.h"

#include <cstddef>

class guiHtml;

/// An array of entries behind one pointer, so that the many nodes without children pay 8 bytes. Copying shares the
/// array: both lists then hold the same entries. Does not delete nodes by itself; see takeNodes(). GUI thread.
class guiChildList
{
public:
    guiChildList() = default;
    guiChildList(guiChildList const& other);
    guiChildList& operator=(guiChildList const& other);
    ~guiChildList();

    /// Whether an entry is a node rather than a marker or an empty slot.
    static bool isNode(guiHtml const* entry) { return reinterpret_cast<std::uintptr_t>(entry) > kLastMarker; }
    static guiHtml* fromMarker(guiMarker marker) { return reinterpret_cast<guiHtml*>(std::uintptr_t{marker}); }
    /// The marker in an entry that is no node.
    static guiMarker toMarker(guiHtml const* entry)
    {
        return static_cast<guiMarker>(reinterpret_cast<std::uintptr_t>(entry));
    }

    unsigned size() const { return m_block ? m_block->count : 0; }
    /// The raw entry at `i`, which must be below size().
    guiHtml* operator[](unsigned i) const { return entries()[i]; }
    guiHtml** begin() const { return m_block ? entries() : nullptr; }
    guiHtml** end() const { return begin() + size(); }
    /// Whether another node shares the array.
    bool isShared() const { return m_block && m_block->shares > 1; }

    /// Adds at the end; amortised constant time. When the array is shared, this list takes it over and all others
    /// become empty, so that every node has one owner.
    void append(guiHtml* entry);
    void set(unsigned i, guiHtml* entry) { entries()[i] = entry; }
    /// Lets go of the array.
    void clear();

private:
    struct block
    {
        unsigned shares;
        unsigned count;
        unsigned capacity;
        unsigned unused;
    };

    guiHtml** entries() const { return reinterpret_cast<guiHtml**>(m_block + 1); }
    void grow();

    block* m_block = nullptr;
};
