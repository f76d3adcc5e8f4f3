// host/native/nativecall.h: the asynchronous calls that have not ended, each of which ends exactly once.
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
    NativeObjectRef event = {}; ///< what the user has done, the session's property "event" meanwhile; may be empty
};

/// One asynchronous call of the component. Any thread.
class NativeCall
{
public:
    NativeCall(ScriptCompletion done, void* context) : m_done(done), m_context(context) {}

    /// Calls the completion function with `result`. To be called once.
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
    /// Takes a new call. False when the table is closed; the call is not in it then.
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
