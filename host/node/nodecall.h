// host/node/nodecall.h: the calls of script methods that have not ended, and the promise that each ends exactly once.
#pragma once

#include "host/node/nodevalue.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

/// One call. Any thread.
class NodeCall
{
public:
    using Done = std::function<void(NodeValue&)>;

    NodeCall(unsigned id, Done done) : m_id(id), m_done(std::move(done)) {}

    unsigned id() const { return m_id; }
    /// Ends the call: `done` gets the result. Once.
    void complete(NodeValue value);
    /// Whether `done` has returned.
    bool isDone() const { return m_isDone.load(std::memory_order_acquire); }

private:
    unsigned const m_id;
    std::atomic<bool> m_isTaken{false};
    std::atomic<bool> m_isDone{false};
    Done const m_done;
};

/// All calls that have not ended, by number. Whoever takes a call out of the table completes it, without the table's
/// lock. Any thread.
class NodeCallTable
{
public:
    /// A new call. When the table is closed it has ended already, with null.
    std::shared_ptr<NodeCall> add(NodeCall::Done done);
    /// Ends the call of this number with `value`; does nothing when it has ended.
    void complete(unsigned id, NodeValue value);
    /// Takes no more calls from now on. Those that are left are the caller's to complete.
    [[nodiscard]] std::vector<std::shared_ptr<NodeCall>> close();

private:
    std::mutex m_mutex; // guards what follows
    bool m_isClosed = false;
    unsigned m_next = 1;
    std::map<unsigned, std::shared_ptr<NodeCall>> m_calls;
};
