// host/native/nativeruntime.h: what stands between an engine and its pump, and does nothing else.
#pragma once

#include "host/native/nativepump.h"

/// Owns the pump.
class NativeRuntime final : public ScriptRuntime
{
public:
    NativePump& pump() { return m_pump; }

    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved4() override {}
    void reserved5() override {}
    void reserved6() override {}
    void reserved7() override {}
    void reserved8() override {}
    void reserved9() override {}
    void reserved10() override {}
    void reserved11() override {}
    void reserved12() override {}
    void reserved13() override {}
    void reserved14() override {}
    void reserved15() override {}
    void reserved16() override {}
    void reserved17() override {}
    void reserved18() override {}
    void reserved19() override {}
    void reserved20() override {}
    void reserved21() override {}
    void reserved22() override {}
    void reserved23() override {}
    void reserved24() override {}
    void reserved25() override {}
    void reserved26() override {}
    void reserved27() override {}
    void reserved28() override {}
    void reserved29() override {}
    void reserved30() override {}
    void reserved31() override {}
    void reserved32() override {}
    void reserved33() override {}
    void reserved34() override {}
    ScriptPump* getPump(int) override { return &m_pump; }

private:
    NativePump m_pump;
};
