// host/node/nodecall.cpp: see the header.
#include "host/node/nodecall.h"

#include <cassert>
#include <utility>

void NodeCall::complete(NodeValue value)
{
    [[maybe_unused]] bool wasTaken = m_isTaken.exchange(true);
    assert(!wasTaken); // a second completion would write into a stack frame that no longer exists
    m_done(value);
    m_isDone.store(true, std::memory_order_release);
}

std::shared_ptr<NodeCall> NodeCallTable::add(NodeCall::Done done, std::optional<NodeCall::Handler> handler)
{
    assert(done);
    std::unique_lock lock(m_mutex);
    auto call = std::make_shared<NodeCall>(m_next++, std::move(done), handler);
    if (!m_isClosed) {
        m_calls.emplace(call->id(), call);
        return call;
    }
    lock.unlock();
    call->complete(NodeValue());
    return call;
}

void NodeCallTable::complete(unsigned id, NodeValue value)
{
    std::unique_lock lock(m_mutex);
    auto taken = m_calls.extract(id);
    lock.unlock();
    if (taken)
        taken.mapped()->complete(std::move(value));
}

/// The call stays in the table, and its owner goes on.
void NodeCallTable::notePromise(unsigned id)
{
    std::unique_lock lock(m_mutex);
    auto found = m_calls.find(id);
    if (found == m_calls.end())
        return;
    assert(found->second->handler());
    auto const handler = *found->second->handler();
    lock.unlock();
    NodeValue null;
    handler.promised(null, handler.context);
}

void NodeCallTable::forget(void* context)
{
    std::lock_guard lock(m_mutex);
    std::erase_if(m_calls, [context](auto const& each) {
        return each.second->handler() && each.second->handler()->context == context;
    });
}

size_t NodeCallTable::size() const
{
    std::lock_guard lock(m_mutex);
    return m_calls.size();
}

std::vector<std::shared_ptr<NodeCall>> NodeCallTable::close()
{
    std::vector<std::shared_ptr<NodeCall>> left;
    std::lock_guard lock(m_mutex);
    assert(!m_isClosed || m_calls.empty());
    m_isClosed = true;
    for (auto& [id, call] : m_calls)
        left.push_back(std::move(call));
    m_calls.clear();
    return left;
}
