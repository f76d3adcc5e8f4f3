// host/native/nativecall.cpp: see nativecall.h.
#include "host/native/nativecall.h"

#include <cassert>

void NativeCall::end(NativeValue& result)
{
    [[maybe_unused]] bool hadEnded = m_ended.exchange(true);
    assert(!hadEnded); // a second completion would write into a stack frame that no longer exists
    if (m_done)
        m_done(result, m_context);
}

bool NativeCallTable::add(std::shared_ptr<NativeCall> const& call)
{
    std::lock_guard lock(m_mutex);
    assert(!call->hasEnded());
    if (!m_closed)
        m_calls.insert(call);
    return !m_closed;
}

void NativeCallTable::end(std::shared_ptr<NativeCall> const& call, NativeValue& result)
{
    std::unique_lock lock(m_mutex);
    bool isTaken = m_calls.erase(call) > 0; // whoever takes a call out of the table ends it
    lock.unlock();
    if (isTaken)
        call->end(result);
}

void NativeCallTable::close()
{
    std::unordered_set<std::shared_ptr<NativeCall>> left;
    {
        std::lock_guard lock(m_mutex);
        m_closed = true;
        left.swap(m_calls);
    }
    for (auto& call : left) {
        NativeValue null;
        call->end(null);
    }
}

size_t NativeCallTable::size() const
{
    std::lock_guard lock(m_mutex);
    return m_calls.size();
}
