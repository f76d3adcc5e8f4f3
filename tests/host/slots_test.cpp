// tests/host/slots_test.cpp: the position of every function of every interface in the compiled vtable. The order of the
// declarations is the binary contract, so each number is written here once more, and compared with what the compiler
// made.
#include "host/native/nativehost.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// The words of a pointer to a virtual member function. Itanium C++ ABI, section 2.3: `target` is the offset of the
/// slot in the vtable, plus 1 to mark it virtual; on 32- and 64-bit ARM the mark is in the lowest bit of `adjustment`
/// instead.
struct MemberPointer
{
    uintptr_t target;
    uintptr_t adjustment;
};

/// The slot of a virtual function, counted from 1; 0 when the function is not virtual.
template <typename Function>
int slotOf(Function function)
{
    static_assert(sizeof(Function) == sizeof(MemberPointer));
    MemberPointer words;
    std::memcpy(&words, &function, sizeof words);
#if defined(__aarch64__) || defined(__arm__)
    bool isVirtual = words.adjustment & 1;
#else
    bool isVirtual = words.target & 1;
#endif
    return isVirtual ? static_cast<int>(words.target / sizeof(void*)) + 1 : 0;
}

/// The function in a slot of an object's vtable, counted from 1.
template <typename Function, typename Interface>
Function rawSlot(Interface* object, int slot)
{
    void** table = nullptr;
    std::memcpy(&table, static_cast<void*>(object), sizeof table);
    return reinterpret_cast<Function>(table[slot - 1]);
}

#define EXPECT_SLOT(interface, function, position) EXPECT_EQ(slotOf(&interface::function), position) << #function

} // namespace

TEST(Slots, LibManagerHasOne) { EXPECT_SLOT(LibManager, getInterface, 1); }

TEST(Slots, ScriptClassHasFive)
{
    EXPECT_SLOT(ScriptClass, setCreateHandler, 1);
    EXPECT_SLOT(ScriptClass, setDestroyHandler, 2);
    EXPECT_SLOT(ScriptClass, setPropertyHandlers, 3);
    EXPECT_SLOT(ScriptClass, addMethod, 4);
    EXPECT_SLOT(ScriptClass, addClassMethod, 5);
}

TEST(Slots, ScriptArgsFollowTheTable)
{
    EXPECT_SLOT(ScriptArgs, append, 6);
    EXPECT_SLOT(ScriptArgs, count, 7);
    EXPECT_SLOT(ScriptArgs, get, 8);
}

TEST(Slots, ScriptValueTestsAndReadersFollowTheTable)
{
    EXPECT_SLOT(ScriptValue, isFunction, 1);
    EXPECT_SLOT(ScriptValue, isNumber, 2);
    EXPECT_SLOT(ScriptValue, isBool, 3);
    EXPECT_SLOT(ScriptValue, isNull, 4);
    EXPECT_SLOT(ScriptValue, isString, 5);
    EXPECT_SLOT(ScriptValue, isObject, 6);
    EXPECT_SLOT(ScriptValue, isInt, 7);
    EXPECT_SLOT(ScriptValue, toInt, 8);
    EXPECT_SLOT(ScriptValue, toBool, 9);
    EXPECT_SLOT(ScriptValue, toNumber, 10);
    EXPECT_SLOT(ScriptValue, toString, 11);
    EXPECT_SLOT(ScriptValue, toObject, 12);
}

TEST(Slots, ScriptValueSettersFollowTheTable)
{
    EXPECT_SLOT(ScriptValue, setNull, 14);
    EXPECT_SLOT(ScriptValue, setInt, 15);
    EXPECT_SLOT(ScriptValue, setBool, 16);
    EXPECT_SLOT(ScriptValue, setNumber, 17);
    EXPECT_SLOT(ScriptValue, setString, 18);
    EXPECT_SLOT(ScriptValue, setObject, 19);
    EXPECT_SLOT(ScriptValue, assign, 21);
}

TEST(Slots, ScriptObjectFollowsTheTable)
{
    EXPECT_SLOT(ScriptObject, getProperty, 10);
    EXPECT_SLOT(ScriptObject, setProperty, 11);
    EXPECT_SLOT(ScriptObject, deleteProperty, 12);
    EXPECT_SLOT(ScriptObject, hasProperty, 13);
    EXPECT_SLOT(ScriptObject, addMethod, 14);
    EXPECT_SLOT(ScriptObject, getPrivate, 15);
    EXPECT_SLOT(ScriptObject, keep, 16);
    EXPECT_SLOT(ScriptObject, letGo, 17);
    EXPECT_SLOT(ScriptObject, beginSession, 18);
    EXPECT_SLOT(ScriptObject, endSession, 19);
    EXPECT_SLOT(ScriptObject, windowState, 20);
    EXPECT_SLOT(ScriptObject, readNumbers, 21);
    EXPECT_SLOT(ScriptObject, methodNames, 22);
    EXPECT_SLOT(ScriptObject, callMethod, 24);
    EXPECT_SLOT(ScriptObject, callMethodAsync, 26);
    EXPECT_SLOT(ScriptObject, callHandler, 27);
    EXPECT_SLOT(ScriptObject, forgetHandler, 28);
    EXPECT_SLOT(ScriptObject, hasMethod, 30);
    EXPECT_SLOT(ScriptObject, getEngine, 34);
}

TEST(Slots, ScriptPrivateFollowsTheTable)
{
    EXPECT_SLOT(ScriptPrivate, getData, 2);
    EXPECT_SLOT(ScriptPrivate, setData, 5);
}

TEST(Slots, PumpRuntimeAndEngineFollowTheTable)
{
    EXPECT_SLOT(ScriptPump, runOnce, 10);
    EXPECT_SLOT(ScriptPump, step, 14);
    EXPECT_SLOT(ScriptPump, wake, 15);
    EXPECT_SLOT(ScriptRuntime, getPump, 35);
    EXPECT_SLOT(ScriptEngine, getRuntime, 4);
    EXPECT_SLOT(ScriptEngine, hasFormBooleans, 6);
    EXPECT_SLOT(ScriptEngine, createInstance, 5);
    EXPECT_SLOT(ScriptEngine, makeValue, 10);
    EXPECT_SLOT(ScriptEngine, releaseValue, 14);
}

TEST(Slots, ServicesFollowTheTable)
{
    EXPECT_SLOT(HostPlatform, displayLost, 5);
    EXPECT_SLOT(HostPlatform, createObject, 6);
    EXPECT_SLOT(HostPlatform, createArgs, 7);
    EXPECT_SLOT(HostPlatform, createValue, 8);
    EXPECT_SLOT(HostPlatform, pictureMemory, 9);
    EXPECT_SLOT(HostPlatform, destroyObject, 10);
    EXPECT_SLOT(HostPlatform, destroyArgs, 11);
    EXPECT_SLOT(HostPlatform, destroyValue, 12);
    EXPECT_SLOT(HostLoadFile, resolvePath, 9);
    EXPECT_SLOT(HostLoadFile, readFile, 10);
    EXPECT_SLOT(HostLoadFile, attach, 11);
    EXPECT_SLOT(HostLoadFile, release, 12);
    EXPECT_SLOT(HostFormProp, readProperty, 1);
    EXPECT_SLOT(HostFormProp, writeProperty, 2);
    EXPECT_SLOT(HostFormProp, eraseProperty, 3);
    EXPECT_SLOT(HostFormProp, setPageText, 4);
}

TEST(Slots, AFunctionThatIsNotVirtualHasNone) { EXPECT_EQ(slotOf(&NativeValue::text16), 0); }

// The same from the other side: what stands in the vtables of this host's objects at a position.

TEST(RawSlots, OfAValueReachItsFunctions)
{
    NativeValue value(7);
    auto* face = static_cast<ScriptValue*>(&value);
    EXPECT_TRUE((rawSlot<bool (*)(ScriptValue*)>(face, 2)(face)));
    EXPECT_EQ((rawSlot<int (*)(ScriptValue*, int)>(face, 8)(face, -1)), 7);
    EXPECT_EQ((rawSlot<double (*)(ScriptValue*, double)>(face, 10)(face, -1)), 7.0);
    rawSlot<void (*)(ScriptValue*, int)>(face, 16)(face, 1);
    EXPECT_EQ(value, NativeValue(true));
    NativeValue other("text");
    rawSlot<void (*)(ScriptValue*, ScriptValue const&)>(face, 21)(face, other);
    EXPECT_EQ(value, other);
    rawSlot<void (*)(ScriptValue*)>(face, 14)(face);
    EXPECT_TRUE(value.isNull());
}

TEST(RawSlots, OfAnObjectReachItsFunctions)
{
    auto engine = NativeEngine::make();
    NativeObjectRef object = engine->makeObject();
    object->on("here", [](NativeObject&, NativeArguments const&) {});
    auto* face = static_cast<ScriptObject*>(object.get());
    NativeValue value(1);
    rawSlot<void (*)(ScriptObject*, sstring const&, ScriptValue*)>(face, 11)(face, "x", &value);
    EXPECT_EQ(object->get("x"), value);
    auto hasMethod = rawSlot<bool (*)(ScriptObject*, sstring const&)>(face, 30);
    EXPECT_TRUE(hasMethod(face, "here"));
    EXPECT_FALSE(hasMethod(face, "there"));
    EXPECT_EQ((rawSlot<ScriptEngine* (*)(ScriptObject*)>(face, 34)(face)), engine.get());
    EXPECT_EQ((rawSlot<ScriptPrivate* (*)(ScriptObject*)>(face, 15)(face)), object->getPrivate());
}

TEST(RawSlots, LeadFromAnEngineToItsPump)
{
    auto engine = NativeEngine::make();
    auto* face = static_cast<ScriptEngine*>(engine.get());
    auto* runtime = rawSlot<ScriptRuntime* (*)(ScriptEngine*)>(face, 4)(face);
    auto* pump = rawSlot<ScriptPump* (*)(ScriptRuntime*, int)>(runtime, 35)(runtime, 0);
    EXPECT_EQ(pump, &engine->pump());
    bool ran = false;
    engine->pump().post([&ran] { ran = true; });
    rawSlot<void (*)(ScriptPump*)>(pump, 14)(pump);
    EXPECT_TRUE(ran);
}

TEST(RawSlots, OfTheServicesReachTheirFunctions)
{
    auto engine = NativeEngine::make();
    char const* guid = "385251A2-815A-419c-8C94-19CD16E03983";
    LibManager& manager = engine->manager();
    auto* platform = rawSlot<HostPlatform* (*)(LibManager*, char const**)>(&manager, 1)(&manager, &guid);
    ASSERT_NE(platform, nullptr);
    auto* value = rawSlot<ScriptValue* (*)(HostPlatform*, ScriptEngine*)>(platform, 8)(platform, engine.get());
    EXPECT_TRUE(value->isNull());
    rawSlot<void (*)(HostPlatform*, ScriptValue*)>(platform, 12)(platform, value);
    EXPECT_EQ(engine->manager().platform().counts().values, 0);
}
