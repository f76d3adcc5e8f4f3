// page/guichildlist.h: the children of a node in order, with markers (paragraph, line break, alignment) in between.
#pragma once

#include "page/guitypes.h"

#include <cstddef>

class guiHtml;

/// An array of entries behind one word, so that the many nodes without children, or with one (most cells of a table
/// hold a single run of text), pay 8 bytes. Copying shares the array: both lists then hold the same entries. Does not
/// delete nodes by itself. GUI thread.
class guiChildList
{
public:
    guiChildList() = default;
    /// Makes the other list share its array, too.
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

    unsigned size() const
    {
        if (block const* array = arrayOf())
            return array->count;
        return m_only ? 1 : 0;
    }
    /// The raw entry at `i`, which must be below size().
    guiHtml* operator[](unsigned i) const { return begin()[i]; }
    guiHtml** begin() const
    {
        block* array = arrayOf();
        return array ? reinterpret_cast<guiHtml**>(array + 1) : &m_only;
    }
    guiHtml** end() const { return begin() + size(); }
    /// Whether another node shares the array.
    bool isShared() const { return arrayOf() && arrayOf()->shares > 1; }

    /// Adds at the end; amortised constant time. When the array is shared, this list takes it over and all others
    /// become empty, so that every node has one owner.
    void append(guiHtml* entry);
    void set(unsigned i, guiHtml* entry) { begin()[i] = entry; }
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

    static constexpr std::uintptr_t kIsArray = 1; // set in an address: neither nodes nor arrays lie at odd ones

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

    mutable guiHtml* m_only = nullptr; // the only entry, unless that is an empty slot; or the array, marked
};
