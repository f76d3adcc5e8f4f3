// host/native/nativecall.h: the asynchronous calls that have not ended, and the promise that each ends exactly once.
#pragma once

#include "host/native/nativearguments.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_set>

/// What is called: the method `name` of `holder`, with `self` as the `this` object.
struct NativeCallTarget
{
    NativeObjectRef holder;
    NativeObjectRef self;
    std::u16string name;
    NativeArguments args;
};

/// One asynchronous call of the component. Any thread.
class NativeCall
{
public:
    NativeCall(ScriptCompletion done, void* context) : m_done(done), m_context(context) {}

    /// Calls the completion function with `result`. Once.
    void end(NativeValue& result);
    bool hasEnded() const { return m_ended; }

private:
    ScriptCompletion const m_done;
    void* const m_context;
    std::atomic<bool> m_ended{false};
};

/// All calls that have not ended. Any thread. Completion functions run without its lock.
class NativeCallTable
{
public:
    /// Takes a new call; false when the table is closed, and the call is not in it then.
    bool add(std::shared_ptr<NativeCall> const& call);
    /// Takes the call out and ends it with `result`, unless it has ended.
    void end(std::shared_ptr<NativeCall> const& call, NativeValue& result);
    /// Ends every call with null and takes no more.
    void close();
    /// Number of calls that have not ended.
    size_t size() const;

private:
    mutable std::mutex m_mutex;
    bool m_closed = false;
    std::unordered_set<std::shared_ptr<NativeCall>> m_calls;
};
