// page/guichildlist.cpp: see guichildlist.h.
#include "page/guichildlist.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

guiChildList::guiChildList(guiChildList const& other)
{
    other.share();
    m_only = other.m_only;
}

guiChildList& guiChildList::operator=(guiChildList const& other)
{
    guiChildList copy(other);
    std::swap(m_only, copy.m_only);
    return *this;
}

guiChildList::~guiChildList() { clear(); }

void guiChildList::clear()
{
    if (block* array = arrayOf()) {
        assert(array->shares > 0);
        if (--array->shares == 0)
            std::free(array);
    }
    m_only = nullptr;
}

/// Counts one more list that uses the array; a single entry gets an array first.
void guiChildList::share() const
{
    if (!m_only)
        return;
    if (!arrayOf())
        grow();
    ++arrayOf()->shares;
}

void guiChildList::append(guiHtml* entry)
{
    assert(!isNode(entry) || (reinterpret_cast<std::uintptr_t>(entry) & kIsArray) == 0);
    if (!m_only && entry) {
        m_only = entry;
        return;
    }
    block* array = arrayOf();
    if (!array || array->shares > 1 || array->count == array->capacity)
        grow();
    array = arrayOf();
    assert(array->shares == 1 && array->count < array->capacity);
    begin()[array->count++] = entry;
}

/// Replaces the array, or the single entry, by a larger array that only this list uses.
void guiChildList::grow() const
{
    // 3, 7, 15, ... entries and the header fill the block sizes that allocators hand out.
    unsigned const count = size();
    unsigned const capacity = 2 * count + (count == 0 ? 3 : 1);
    auto* larger = static_cast<block*>(std::malloc(sizeof(block) + std::size_t{capacity} * sizeof(guiHtml*)));
    if (!larger)
        throw std::bad_alloc();
    *larger = block{1, count, capacity, 0};
    if (count)
        std::memcpy(static_cast<void*>(larger + 1), begin(), std::size_t{count} * sizeof(guiHtml*));
    if (block* old = arrayOf()) {
        assert(old->shares > 0);
        old->count = 0; // so that the lists that shared it become empty
        if (--old->shares == 0)
            std::free(old);
    }
    setArray(larger);
    assert(size() == count && arrayOf() == larger);
}
