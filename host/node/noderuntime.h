// host/node/noderuntime.h: what stands between an engine and its pump, and does nothing else.
#pragma once

#include "host/hostslots.h"
#include "host/node/nodepump.h"

/// Owns the pump.
class NodeRuntime final : public ScriptRuntimeSlots
{
public:
    explicit NodeRuntime(NodeEngine& engine) : m_pump(engine) {}
    NodePump& pump() { return m_pump; }

    // What the component calls.
    ScriptPump* getPump(int) override { return &m_pump; }

private:
    NodePump m_pump;
};
