// host/native/nativeruntime.h: what stands between an engine and its pump, and does nothing else.
#pragma once

#include "host/hostslots.h"
#include "host/native/nativepump.h"

/// Owns the pump.
class NativeRuntime final : public ScriptRuntimeSlots
{
public:
    NativePump& pump() { return m_pump; }

    ScriptPump* getPump(int) override { return &m_pump; }

private:
    NativePump m_pump;
};
