// host/node/nodeopenwindows.cpp: see the header.
#include "host/node/nodeopenwindows.h"

#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"

#include <utility>

void NodeOpenWindows::notice(NodeObject& window, bool isOpen)
{
    m_count.fetch_add(isOpen ? 1 : -1, std::memory_order_acq_rel);
    m_engine.post([this, hold = NodeObjectHold(&window), isOpen] { isOpen ? add(*hold) : remove(*hold); });
}

void NodeOpenWindows::add(NodeObject& window)
{
    if (!m_held.try_emplace(&window, &window).second)
        return;
    if (!std::exchange(m_hadAny, true))
        NodeComponent::the().guardProcessExit();
}

void NodeOpenWindows::remove(NodeObject& window)
{
    auto closed = m_held.extract(&window); // let go of at the end: script hears of it while it is held
    if (!closed)
        return;
    Napi::HandleScope scope(m_engine.env());
    auto script = window.script();
    if (!script.IsEmpty())
        m_engine.helpers().call("windowClosed", {script});
}
