// host/node/nodeopenwindows.cpp: see the header.
#include "host/node/nodeopenwindows.h"

#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"

#include <cassert>
#include <utility>

void NodeOpenWindows::notice(NodeObject& window, bool isOpen)
{
    {
        std::lock_guard lock(m_mutex);
        if (isOpen)
            m_open.insert(&window);
        else
            m_open.erase(&window);
    }
    m_engine.post([this, hold = NodeObjectHold(&window), isOpen] { isOpen ? opened(*hold) : closed(*hold); });
}

bool NodeOpenWindows::any() const
{
    std::lock_guard lock(m_mutex);
    return !m_open.empty();
}

bool NodeOpenWindows::contains(NodeObject& window) const
{
    std::lock_guard lock(m_mutex);
    return m_open.contains(&window);
}

void NodeOpenWindows::opened(NodeObject& window)
{
    assert(m_engine.isScriptThread());
    if (!m_held.try_emplace(&window, &window).second)
        return;
    if (!std::exchange(m_hadAny, true))
        NodeComponent::the().guardProcessExit();
}

void NodeOpenWindows::closed(NodeObject& window)
{
    assert(m_engine.isScriptThread());
    auto held = m_held.extract(&window); // lets go at the end: script hears of it while the window is held
    if (!held)
        return;
    Napi::HandleScope scope(m_engine.env());
    auto script = window.script();
    if (!script.IsEmpty())
        m_engine.helpers().call("windowClosed", {script});
}
