// page/guinodewatch.h: tells a caller of script whether a node that it still needs has survived the call.
#pragma once

#include <cstddef>

class guiHtml;

/// Follows one node for as long as the watch exists: `alive()` turns false when the node is destroyed, also when
/// another node takes its address later. Made on the stack around a call that may reach script; a handler may replace
/// the page or close the window. Any thread may make one; the node is destroyed on whichever thread owns it.
class guiNodeWatch
{
public:
    /// `node` may be null: the watch is then never alive.
    explicit guiNodeWatch(guiHtml* node);
    ~guiNodeWatch();
    guiNodeWatch(guiNodeWatch const&) = delete;
    guiNodeWatch& operator=(guiNodeWatch const&) = delete;

    bool alive() const;
    /// The node, null once it is gone.
    guiHtml* get() const;

    /// Called by every node's destructor.
    static void nodeDestroyed(guiHtml* node);
    /// How many watches exist, over all nodes and threads.
    static std::size_t count();

private:
    guiHtml* m_node;
    guiNodeWatch* m_next = nullptr;
    guiNodeWatch* m_previous = nullptr;
};
