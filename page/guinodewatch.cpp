// page/guinodewatch.cpp: see guinodewatch.h. All watches are in one list, which is short, since they live on the stack.
#include "page/guinodewatch.h"

#include <atomic>
#include <cassert>
#include <mutex>

namespace {

std::mutex theLock;
guiNodeWatch* theFirst = nullptr; // guarded by theLock
std::atomic<std::size_t> theCount{
    0}; // changed under theLock; read without it, so that a node without watches takes no lock

} // namespace

guiNodeWatch::guiNodeWatch(guiHtml* node) : m_node(node)
{
    std::lock_guard<std::mutex> guard(theLock);
    assert(!theFirst || !theFirst->m_previous);
    m_next = theFirst;
    if (theFirst)
        theFirst->m_previous = this;
    theFirst = this;
    theCount.fetch_add(1, std::memory_order_release);
}

guiNodeWatch::~guiNodeWatch()
{
    std::lock_guard<std::mutex> guard(theLock);
    assert((m_previous ? m_previous->m_next : theFirst) == this);
    assert(theCount.load(std::memory_order_relaxed) > 0);
    (m_previous ? m_previous->m_next : theFirst) = m_next;
    if (m_next)
        m_next->m_previous = m_previous;
    theCount.fetch_sub(1, std::memory_order_release);
}

bool guiNodeWatch::alive() const { return get() != nullptr; }

guiHtml* guiNodeWatch::get() const
{
    std::lock_guard<std::mutex> guard(theLock);
    return m_node;
}

void guiNodeWatch::nodeDestroyed(guiHtml* node)
{
    if (count() == 0)
        return;
    std::lock_guard<std::mutex> guard(theLock);
    for (guiNodeWatch* watch = theFirst; watch; watch = watch->m_next)
        if (watch->m_node == node)
            watch->m_node = nullptr;
}

std::size_t guiNodeWatch::count() { return theCount.load(std::memory_order_acquire); }
