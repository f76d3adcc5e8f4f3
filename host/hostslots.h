// host/hostslots.h: the reserved positions of the host interfaces, filled once. Nobody calls them, but a position
// counts only when its interface has a function there: a host derives from these classes and implements the named
// functions alone.
//
// The component does not know this header. A position that is given a function leaves the list here, and the compiler
// then asks every host for that function.
#pragma once

#include "script/hostinterface.h"

/// ScriptArgs without its reserved positions.
class ScriptArgsSlots : public ScriptArgs
{
protected:
    ~ScriptArgsSlots() = default;

private:
    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved4() override {}
    void reserved5() override {}
};

/// ScriptValue without its reserved positions.
class ScriptValueSlots : public ScriptValue
{
protected:
    ScriptValueSlots() = default;
    ScriptValueSlots(ScriptValueSlots const&) = default;
    ~ScriptValueSlots() = default;

private:
    void reserved13() override {}
    void reserved20() override {}
};

/// ScriptObject without its reserved positions, for a host without arrays and promises that lists no methods and whose
/// handlers are called from other threads than the script thread.
class ScriptObjectSlots : public ScriptObject
{
public:
    int readNumbers(double*, int) override { return -1; }
    unsigned methodNames(sstring*, unsigned) override { return 0; }
    void callHandler(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptObject*, ScriptObject*,
                     ScriptCompletion, ScriptCompletion done, void* context) override
    {
        callMethodAsync(self, name, args, done, context);
    }
    void forgetHandler(void*) override {}

protected:
    ~ScriptObjectSlots() = default;

private:
    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved4() override {}
    void reserved5() override {}
    void reserved6() override {}
    void reserved7() override {}
    void reserved8() override {}
    void reserved9() override {}
    void reserved23() override {}
    void reserved25() override {}
    void reserved29() override {}
    void reserved31() override {}
    void reserved32() override {}
    void reserved33() override {}
};

/// ScriptPrivate without its reserved positions.
class ScriptPrivateSlots : public ScriptPrivate
{
protected:
    ~ScriptPrivateSlots() = default;

private:
    void reserved1() override {}
    void reserved3() override {}
    void reserved4() override {}
};

/// ScriptPump without its reserved positions.
class ScriptPumpSlots : public ScriptPump
{
protected:
    ~ScriptPumpSlots() = default;

private:
    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved4() override {}
    void reserved5() override {}
    void reserved6() override {}
    void reserved7() override {}
    void reserved8() override {}
    void reserved9() override {}
    void reserved11() override {}
    void reserved12() override {}
    void reserved13() override {}
};

/// ScriptRuntime without its reserved positions.
class ScriptRuntimeSlots : public ScriptRuntime
{
protected:
    ~ScriptRuntimeSlots() = default;

private:
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
};

/// ScriptEngine without its reserved positions, with forms that hold texts and null alone.
class ScriptEngineSlots : public ScriptEngine
{
public:
    int hasFormBooleans() override { return 0; }

protected:
    ~ScriptEngineSlots() = default;

private:
    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved7() override {}
    void reserved8() override {}
    void reserved9() override {}
    void reserved11() override {}
    void reserved12() override {}
    void reserved13() override {}
};

/// HostPlatform without its reserved positions, with the usual memory for pictures and the toolkit's way to end.
class HostPlatformSlots : public HostPlatform
{
public:
    bool displayLost() override { return false; }
    unsigned pictureMemory() override { return 0; }

protected:
    ~HostPlatformSlots() = default;

private:
    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved4() override {}
};

/// HostLoadFile without its reserved positions.
class HostLoadFileSlots : public HostLoadFile
{
protected:
    ~HostLoadFileSlots() = default;

private:
    void reserved1() override {}
    void reserved2() override {}
    void reserved3() override {}
    void reserved4() override {}
    void reserved5() override {}
    void reserved6() override {}
    void reserved7() override {}
    void reserved8() override {}
};
