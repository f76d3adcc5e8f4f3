// host/node/nodeobjectref.h: the two ways to keep a script object, as handles that are copied freely, on any thread.
#pragma once

#include <utility>

class NodeObject;

/// Keeps the NodeObject; its JavaScript object may be collected meanwhile.
struct NodeObjectReference
{
    static void take(NodeObject& object);
    static void drop(NodeObject& object);
};

/// Keeps the NodeObject and its JavaScript object.
struct NodeObjectHolding
{
    static void take(NodeObject& object);
    static void drop(NodeObject& object);
};

/// Keeps one NodeObject in the way of `Keeping`, or none.
template <typename Keeping>
class NodeObjectKeeper
{
public:
    NodeObjectKeeper() = default;
    /// Keeps `object` once more; a null pointer is no object.
    explicit NodeObjectKeeper(NodeObject* object) : m_object(object)
    {
        if (m_object)
            Keeping::take(*m_object);
    }
    /// Takes over what the caller keeps already.
    static NodeObjectKeeper adopt(NodeObject* object)
    {
        NodeObjectKeeper keeper;
        keeper.m_object = object;
        return keeper;
    }
    NodeObjectKeeper(NodeObjectKeeper const& other) : NodeObjectKeeper(other.m_object) {}
    NodeObjectKeeper(NodeObjectKeeper&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    NodeObjectKeeper& operator=(NodeObjectKeeper other) noexcept
    {
        std::swap(m_object, other.m_object);
        return *this;
    }
    ~NodeObjectKeeper()
    {
        if (m_object)
            Keeping::drop(*m_object);
    }

    NodeObject* get() const { return m_object; }
    NodeObject* operator->() const { return m_object; }
    NodeObject& operator*() const { return *m_object; }
    explicit operator bool() const { return m_object != nullptr; }

    /// Gives away what is kept: the caller has to drop it.
    [[nodiscard]] NodeObject* release() { return std::exchange(m_object, nullptr); }

private:
    NodeObject* m_object = nullptr;
};

using NodeObjectRef = NodeObjectKeeper<NodeObjectReference>;
using NodeObjectHold = NodeObjectKeeper<NodeObjectHolding>;
