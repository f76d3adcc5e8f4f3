// host/node/nodeopenwindows.h: the windows that are open. Each is held, whether or not script still has it, and the
// process lives as long as there is one.
#pragma once

#include "host/node/nodeobjectref.h"

#include <map>
#include <mutex>
#include <set>

class NodeEngine;

/// Any thread.
class NodeOpenWindows
{
public:
    explicit NodeOpenWindows(NodeEngine& engine) : m_engine(engine) {}

    /// The component's notice that a window was opened or has closed. Counts at once; the script thread does later
    /// what only it can do.
    void notice(NodeObject& window, bool isOpen);
    bool any() const;
    bool contains(NodeObject& window) const;

private:
    void opened(NodeObject& window);
    void closed(NodeObject& window);

    NodeEngine& m_engine;
    mutable std::mutex m_mutex; // guards what follows
    std::set<NodeObject*> m_open;

    // Script thread.
    std::map<NodeObject*, NodeObjectHold> m_held;
    bool m_hadAny = false; // ever
};
