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
    if (block* array = arrayOf(); array && --array->shares == 0)
        std::free(array);
    m_only = nullptr;
}

/// Counts one more list that holds the entries.
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
    if (!m_only && entry) {
        m_only = entry;
        return;
    }
    block* array = arrayOf();
    if (!array || array->shares > 1 || array->count == array->capacity)
        grow();
    array = arrayOf();
    begin()[array->count++] = entry;
}

/// An array of its own with more room.
void guiChildList::grow() const
{
    // 3, 7, 15, ... entries: with the header each block fills a chunk of the usual allocators.
    unsigned const count = size();
    unsigned const capacity = 2 * count + (count == 0 ? 3 : 1);
    auto* larger = static_cast<block*>(std::malloc(sizeof(block) + std::size_t{capacity} * sizeof(guiHtml*)));
    if (!larger)
        throw std::bad_alloc();
    *larger = block{1, count, capacity, 0};
    if (count)
        std::memcpy(static_cast<void*>(larger + 1), begin(), std::size_t{count} * sizeof(guiHtml*));
    if (block* old = arrayOf()) {
        old->count = 0; // taken over from all that share it
        if (--old->shares == 0)
            std::free(old);
    }
    setArray(larger);
}
