// host/native/nativeplatform.h: the factory service, and a count of what the component has not given back.
#pragma once

#include "host/hostslots.h"

#include <atomic>

class NativeEngine;

/// Any thread. Everything is made in the one engine, whichever is passed.
class NativePlatform final : public HostPlatformSlots
{
public:
    explicit NativePlatform(NativeEngine& engine) : m_engine(engine) {}

    /// How many were made here and not destroyed.
    struct Counts
    {
        int objects;
        int args;
        int values;
    };
    Counts counts() const { return {m_objects, m_args, m_values}; }
    /// How many argument lists the calling thread has made and not destroyed: not 0 from before the component calls
    /// script until after that, also while it waits for something around the call itself.
    static int listsInUse();

    // What the component calls.
    ScriptObject* createObject(ScriptEngine* engine) override;
    ScriptArgs* createArgs(ScriptEngine* engine) override;
    ScriptValue* createValue(ScriptEngine* engine) override;
    void destroyObject(ScriptObject* object) override;
    void destroyArgs(ScriptArgs* args) override;
    void destroyValue(ScriptValue* value) override;

private:
    NativeEngine& m_engine;
    std::atomic<int> m_objects{0};
    std::atomic<int> m_args{0};
    std::atomic<int> m_values{0};
};
