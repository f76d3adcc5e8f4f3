// page/guichildlist.cpp: see guichildlist.h.
#include "page/guichildlist.h"

#include <cstdlib>
#include <cstring>
#include <new>
#include <utility>

guiChildList::guiChildList(guiChildList const& other) : m_block(other.m_block)
{
    if (m_block)
        ++m_block->shares;
}

guiChildList& guiChildList::operator=(guiChildList const& other)
{
    guiChildList copy(other);
    std::swap(m_block, copy.m_block);
    return *this;
}

guiChildList::~guiChildList() { clear(); }

void guiChildList::clear()
{
    if (m_block && --m_block->shares == 0)
        std::free(m_block);
    m_block = nullptr;
}

void guiChildList::append(guiHtml* entry)
{
    if (!m_block || m_block->shares > 1 || m_block->count == m_block->capacity)
        grow();
    entries()[m_block->count++] = entry;
}

void guiChildList::grow()
{
    // 1, 3, 7, ... entries: with the header each block fills a chunk of the usual allocators exactly.
    unsigned count = size();
    unsigned capacity = count == 0 ? 1 : 2 * count + 1;
    auto* larger = static_cast<block*>(std::malloc(sizeof(block) + std::size_t{capacity} * sizeof(guiHtml*)));
    if (!larger)
        throw std::bad_alloc();
    *larger = block{1, count, capacity, 0};
    if (count)
        std::memcpy(static_cast<void*>(larger + 1), begin(), std::size_t{count} * sizeof(guiHtml*));
    if (m_block)
        m_block->count = 0;
    clear();
    m_block = larger;
}
