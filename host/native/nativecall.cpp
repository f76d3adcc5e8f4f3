#include "host/native/nativecall.h"

void NativeCall::end(NativeValue& result)
{
    if (!m_ended.exchange(true) && m_done)
        m_done(result, m_context);
}

bool NativeCallTable::add(std::shared_ptr<NativeCall> const& call)
{
    std::lock_guard lock(m_mutex);
    if (!m_closed)
        m_calls.insert(call);
    return !m_closed;
}

void NativeCallTable::end(std::shared_ptr<NativeCall> const& call, NativeValue& result)
{
    {
        std::lock_guard lock(m_mutex);
        m_calls.erase(call);
    }
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
