// host/node/nodeopenwindows.h: the windows that are open. Each is held, whether or not script still has it, and the
// process lives as long as there is one.
#pragma once

#include "host/node/nodeobjectref.h"

#include <atomic>
#include <map>

class NodeEngine;

/// Script thread, unless a function says otherwise.
class NodeOpenWindows
{
public:
    explicit NodeOpenWindows(NodeEngine& engine) : m_engine(engine) {}

    /// The component's notice that a window was opened or has closed. Returns at once; the script thread acts on it
    /// later. Any thread.
    void notice(NodeObject& window, bool isOpen);
    /// Whether a window is open, by the last notice. Any thread.
    bool any() const { return m_count.load(std::memory_order_acquire) > 0; }
    /// Whether the script thread has heard of the window's opening and not of its end.
    bool contains(NodeObject& window) const { return m_held.contains(&window); }

private:
    void add(NodeObject& window);
    void remove(NodeObject& window);

    NodeEngine& m_engine;
    std::atomic<int> m_count{0};
    std::map<NodeObject*, NodeObjectHold> m_held;
    bool m_hadAny = false; // ever
};
