// runtime/guihandlercall.cpp: see guihandlercall.h. The host knows a call by its number, so that it may answer long
// after the caller has gone on.
#include "runtime/guihandlercall.h"

#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guipromises.h"
#include "runtime/guiscriptwork.h"
#include "runtime/guithread.h"

#include <cassert>
#include <cstdint>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace {

/// A handler that runs, or whose promise has not settled.
struct handlerCall
{
    guiCallbackRecord* waiting = nullptr; // in the caller's frame; null once the handler has returned
    bool isPromise = false;
    bool isAwaited = false;     // the caller has been told that it is a promise
    guiOwnedValue settled = {}; // with what it settled before that
};

/// All of them, by number. Any thread.
class callTable
{
public:
    unsigned add(guiCallbackRecord& record)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_calls[++m_last] = {&record};
        return m_last;
    }

    /// The handler has returned a promise; gives the record of its caller.
    guiCallbackRecord* notePromise(unsigned number)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        auto found = m_calls.find(number);
        if (found == m_calls.end())
            return nullptr;
        found->second.isPromise = true;
        return std::exchange(found->second.waiting, nullptr);
    }

    /// The call has ended with `value`. Gives the record of a caller who still waits for the handler, or null; then
    /// `mustTell` says whether somebody waits for the promise and `value` is given back for him.
    guiCallbackRecord* end(unsigned number, guiOwnedValue& value, bool& mustTell)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        auto found = m_calls.find(number);
        mustTell = found != m_calls.end() && found->second.isAwaited;
        if (found == m_calls.end())
            return nullptr;
        if (found->second.isPromise && !found->second.isAwaited) {
            found->second.settled = std::move(value);
            return nullptr;
        }
        guiCallbackRecord* const record = found->second.waiting;
        m_calls.erase(found);
        return record;
    }

    /// Whether the handler that has returned has left a promise. When that has settled meanwhile, `result` gets its
    /// value, and it is none any more.
    bool await(unsigned number, ScriptValue& result)
    {
        guiOwnedValue settled;
        std::lock_guard<std::mutex> guard(m_lock);
        auto found = m_calls.find(number);
        if (found == m_calls.end())
            return false;
        assert(found->second.isPromise);
        if (!found->second.settled) {
            found->second.isAwaited = true;
            return true;
        }
        settled = std::move(found->second.settled); // ends without the lock
        result = *settled;
        m_calls.erase(found);
        return false;
    }

    void forget(unsigned number)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_calls.erase(number);
    }

private:
    std::mutex m_lock;
    std::map<unsigned, handlerCall> m_calls; // guarded by m_lock
    unsigned m_last = 0;                     // guarded by m_lock
};

callTable& theCalls()
{
    static auto& table = *new callTable; // never destroyed: calls are completed even while the process exits
    return table;
}

void* contextOf(unsigned number) { return reinterpret_cast<void*>(std::uintptr_t{number}); }

unsigned numberIn(void* context) { return static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(context)); }

void onPromise(ScriptValue& value, void* context)
{
    if (guiCallbackRecord* record = theCalls().notePromise(numberIn(context)))
        guiCallback_AsyncComplete(value, record);
}

/// The completion function of every call.
void onDone(ScriptValue& value, void* context)
{
    unsigned const number = numberIn(context);
    if (!pGUI)
        return theCalls().forget(number);
    guiOwnedValue copy = guiNewValue();
    *copy = value;
    bool mustTell = false;
    if (guiCallbackRecord* record = theCalls().end(number, copy, mustTell))
        guiCallback_AsyncComplete(value, record);
    else if (mustTell)
        guiScriptWork_postToGui([number, settled = std::shared_ptr<ScriptValue>(std::move(copy))] {
            guiPromises_settled(number, *settled);
        });
}

} // namespace

unsigned guiHandlerCall_run(ScriptObject* target, sstring const& method, ScriptArgs* args, ScriptObject* form,
                            ScriptObject* event, ScriptValue* result)
{
    assert(!pGUI->holdsLock()); // the call may need it on another thread
    guiThread const* thread = pGUI->getThread();
    bool const isOwnLoop = thread->isGuiThread() || thread->isScriptThread();
    guiCallbackRecord record{result, isOwnLoop ? nullptr : pevent_create()};
    unsigned const number = theCalls().add(record);
    target->callHandler(target, method, args, form, event, onPromise, onDone, contextOf(number));
    guiCallback_Wait(record);
    if (record.waiter)
        pevent_destroy(record.waiter);
    return theCalls().await(number, *result) ? number : 0;
}

void guiHandlerCall_forget(unsigned promise)
{
    theCalls().forget(promise);
    if (ScriptObject* session = pGUI ? pGUI->getSession() : nullptr)
        session->forgetHandler(contextOf(promise));
}
