// host/node/nodemethodnames.h: tells the other threads which methods script objects have. They ask for every mouse move
// (ScriptObject::hasMethod) and cannot look into the interpreter, so the script thread looks whenever script has run,
// and publishes what it saw.
#pragma once

#include "host/hostthread.h"
#include "host/node/nodeobjectref.h"

#include <napi.h>

#include <unordered_set>
#include <vector>

class NodeHelpers;

/// The objects whose methods are published. Script thread.
class NodeMethodNames
{
public:
    NodeMethodNames(Napi::Env env, NodeHelpers& helpers) : m_env(env), m_helpers(helpers) {}

    /// The object's methods are published from now on, for the first time with the next call below.
    void track(NodeObject& object);
    void untrack(NodeObject& object);
    bool tracksAny() const { return !m_tracked.empty(); }

    /// Looks at every tracked object that somebody may ask. The component asks each object that it makes for an element
    /// at once, and never those that merely stand for a name, of which a program may have thousands.
    void publish();
    /// Looks only at `self`, at its owner (a method of a control may lead to a handler of its window), and at objects
    /// that were never looked at. `self` may be null.
    void publishFresh(NodeObject* self);

private:
    void publishEach(std::vector<NodeObjectRef> const& objects);
    void publishOne(NodeObject& object);

    Napi::Env m_env;
    [[maybe_unused]] HostThread const m_thread;
    NodeHelpers& m_helpers;
    std::unordered_set<NodeObject*> m_tracked; // not kept alive: an object is removed before it ends
    std::unordered_set<NodeObject*> m_fresh;   // tracked, never published
};
