// page/guichildlist.h: the children of a node in order, with markers (paragraph, line break, alignment) in between.
#pragma once

#include "page/guitypes.h"

#include <cassert>
#include <cstddef>

class guiHtml;

/// An array of entries behind one pointer, so that the many nodes with one child or none (most table cells hold a
/// single text run) take 8 bytes for it. Copying shares the array: both lists then hold the same entries. The list does
/// not own the nodes; its node deletes them. GUI thread.
class guiChildList
{
public:
    guiChildList() = default;
    /// Makes the other list share its array, too.
    guiChildList(guiChildList const& other);
    guiChildList& operator=(guiChildList const& other);
    ~guiChildList();

    /// Whether an entry is a node, not a marker or an empty slot.
    static bool isNode(guiHtml const* entry) { return reinterpret_cast<std::uintptr_t>(entry) > kLastMarker; }
    static guiHtml* fromMarker(guiMarker marker)
    {
        assert(marker <= kLastMarker);
        return reinterpret_cast<guiHtml*>(std::uintptr_t{marker});
    }
    /// The marker in an entry that is not a node.
    static guiMarker toMarker(guiHtml const* entry)
    {
        assert(!isNode(entry));
        return static_cast<guiMarker>(reinterpret_cast<std::uintptr_t>(entry));
    }

    unsigned size() const
    {
        if (block const* array = arrayOf())
            return array->count;
        return m_only ? 1 : 0;
    }
    /// The raw entry at `i`, which must be below size().
    guiHtml* operator[](unsigned i) const
    {
        assert(i < size());
        return begin()[i];
    }
    guiHtml** begin() const
    {
        block* array = arrayOf();
        return array ? reinterpret_cast<guiHtml**>(array + 1) : &m_only;
    }
    guiHtml** end() const { return begin() + size(); }
    /// Whether another node shares the array.
    bool isShared() const { return arrayOf() && arrayOf()->shares > 1; }

    /// Adds at the end in amortised constant time. When the array is shared, this list takes it over and all others
    /// become empty, so that every node has one owner.
    void append(guiHtml* entry);
    void set(unsigned i, guiHtml* entry)
    {
        assert(i < size());
        begin()[i] = entry;
    }
    /// Empties this list; others that share its array keep it.
    void clear();

private:
    struct block
    {
        unsigned shares;
        unsigned count;
        unsigned capacity;
        unsigned unused;
    };

    static constexpr std::uintptr_t kIsArray = 1; // set in a pointer: nodes and arrays have even addresses

    block* arrayOf() const
    {
        auto const word = reinterpret_cast<std::uintptr_t>(m_only);
        return word > kLastMarker && (word & kIsArray) ? reinterpret_cast<block*>(word - kIsArray) : nullptr;
    }
    void setArray(block* array) const
    {
        m_only = reinterpret_cast<guiHtml*>(reinterpret_cast<std::uintptr_t>(array) | kIsArray);
    }
    void share() const;
    void grow() const;

    mutable guiHtml* m_only = nullptr; // the only entry unless it is an empty slot; or the array, with kIsArray set
};
