// host/node/nodecall.h: the calls of script methods that have not ended, each of which ends exactly once.
#pragma once

#include "host/node/nodevalue.h"

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

/// One call. Any thread.
class NodeCall
{
public:
    using Done = std::function<void(NodeValue&)>;

    /// What the component knows a call of a handler by: nobody waits for its promise, see NodeCallTable::notePromise.
    struct Handler
    {
        ScriptCompletion promised;
        void* context;
    };

    NodeCall(unsigned id, Done done, std::optional<Handler> handler)
        : m_id(id), m_done(std::move(done)), m_handler(handler)
    {}

    unsigned id() const { return m_id; }
    std::optional<Handler> const& handler() const { return m_handler; }
    /// Ends the call: `done` gets the result. To be called once.
    void complete(NodeValue value);
    /// Whether `done` has returned.
    bool isDone() const { return m_isDone.load(std::memory_order_acquire); }

private:
    unsigned const m_id;
    std::atomic<bool> m_isTaken{false};
    std::atomic<bool> m_isDone{false};
    Done const m_done;
    std::optional<Handler> const m_handler;
};

/// All calls that have not ended, by number. Whoever takes a call out of the table completes it, without the table's
/// lock. Any thread.
class NodeCallTable
{
public:
    /// A new call. In a closed table it has ended already, with null.
    std::shared_ptr<NodeCall> add(NodeCall::Done done, std::optional<NodeCall::Handler> handler = {});
    /// The handler called under this number has returned a promise: tells the component.
    void notePromise(unsigned id);
    /// Drops the call of a handler with this context, without ending it.
    void forget(void* context);
    /// Number of calls that have not ended.
    size_t size() const;
    /// Ends the call of this number with `value`; does nothing when it has ended.
    void complete(unsigned id, NodeValue value);
    /// Takes no more calls from now on. The caller has to complete those that are left.
    [[nodiscard]] std::vector<std::shared_ptr<NodeCall>> close();

private:
    mutable std::mutex m_mutex; // guards what follows
    bool m_isClosed = false;
    unsigned m_next = 1;
    std::map<unsigned, std::shared_ptr<NodeCall>> m_calls;
};
