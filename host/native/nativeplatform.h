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
    /// How many argument lists the calling thread has made and not destroyed. Not 0 while the component calls script,
    /// and while it prepares such a call or waits behind it.
    static int argumentListsInUse();
    void setPictureMemory(unsigned mebibytes) { m_pictureMemory = mebibytes; }

    // What the component calls.
    ScriptObject* createObject(ScriptEngine* engine) override;
    ScriptArgs* createArgs(ScriptEngine* engine) override;
    ScriptValue* createValue(ScriptEngine* engine) override;
    void destroyObject(ScriptObject* object) override;
    void destroyArgs(ScriptArgs* args) override;
    void destroyValue(ScriptValue* value) override;
    unsigned pictureMemory() override { return m_pictureMemory; }

private:
    NativeEngine& m_engine;
    std::atomic<int> m_objects{0};
    std::atomic<int> m_args{0};
    std::atomic<int> m_values{0};
    std::atomic<unsigned> m_pictureMemory{0};
};
