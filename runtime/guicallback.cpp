// runtime/guicallback.cpp: turns an event name into a call of a script method, from any thread.
#include "runtime/guicallback.h"

#include "controls/guihtmlcustom.h"
#include "page/guinodewatch.h"
#include "page/guiuserevent.h"
#include "runtime/gui.h"
#include "runtime/guieventobject.h"
#include "runtime/guihandlercall.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guiscriptwork.h"
#include "runtime/guithread.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <iterator>
#include <memory>
#include <optional>
#include <utility>

namespace {

unsigned findSeparator(sstring const& name, unsigned from)
{
    static sstring const& separators =
        *new sstring("/\\"); // never destroyed: events arrive even while the process exits
    return name.find_any(separators, from);
}

/// Waits for a call that runs on the script thread; the windows go on painting meanwhile.
void pumpUntilDone(guiCallbackRecord const& call) TARN_ON(velaGuiRole)
{
    assert(!call.waiter);
    guiThread* thread = pGUI->getThread();
    guiInputScope const nothing(std::nullopt); // what happens meanwhile is not due to the input that is being handled
    while (call.done.load(std::memory_order_acquire) == 0)
        thread->pumpOnce();
}

/// Calls a method of `target` with `self` as its object.
void callAndWait(ScriptObject* target, ScriptObject* self, sstring const& method, ScriptArgs* args, ScriptValue* result)
{
    assert(!pGUI->holdsLock()); // the call may need it on another thread
    guiThread* thread = pGUI->getThread();
    if (thread->isScriptThread()) {
        assertOnScriptThread();
        target->callMethod(self, method, args, result);
        return;
    }
    guiCallbackRecord call{result, thread->isGuiThread() ? nullptr : pevent_create()};
    target->callMethodAsync(self, method, args, guiCallback_AsyncComplete, &call);
    guiCallback_Wait(call);
    if (call.waiter)
        pevent_destroy(call.waiter);
}

/// The argument list of an event: the source object, then what the event name carries. Returns the method's name.
sstring buildArguments(ScriptEngine* engine, sstring const& name, ScriptObject* source, ScriptArgs& args)
{
    guiOwnedValue scratch(pGUI->getPlatform()->createValue(engine));
    scratch->setObject(source);
    args.append(scratch.get());
    return guiCallback_ProcessEventName(name, &args, scratch.get());
}

sstring textOf(ScriptValue const& value) { return value.isString() ? value.toString(0) : sstring(); }

/// Carries the values of the page's controls to script, or back.
void carryFormValues(guiHtmlBase* root, guiFormCarry carry)
{
    if (root && !root->isReleased() && root->getFormObject())
        pGUI->getThread()->callCarryForm(root, carry);
}

/// Blocks user input for the length of a block, if asked to.
class inputBlock
{
public:
    explicit inputBlock(bool isWanted = true) : m_thread(isWanted ? pGUI->getThread() : nullptr)
    {
        if (m_thread)
            m_thread->disable();
    }
    ~inputBlock()
    {
        if (m_thread)
            m_thread->enable();
    }
    inputBlock(inputBlock const&) = delete;
    inputBlock& operator=(inputBlock const&) = delete;

private:
    guiThread* m_thread; // null: input is not blocked
};

} // namespace

void guiCallback_Wait(guiCallbackRecord& call)
{
    if (call.waiter) {
        pevent_wait(call.waiter);
        return;
    }
    if (call.done.load(std::memory_order_acquire) != 0)
        return;
    assertOnGuiThread(); // on the script thread a call has ended when it returns
    pumpUntilDone(call);
}

sstring guiCallback_StripEventName(sstring name)
{
    unsigned end = findSeparator(name, 0);
    return end == sstring::npos ? name : name.subString(0, end);
}

sstring guiCallback_ProcessEventName(sstring name, ScriptArgs* args, ScriptValue* scratch)
{
    unsigned separator = findSeparator(name, 0);
    while (separator != sstring::npos && separator + 1 < name.getLength()) {
        unsigned start = separator + 1;
        separator = findSeparator(name, start);
        unsigned count = separator == sstring::npos ? sstring::npos : separator - start;
        scratch->setString(name.subString(start, count));
        args->append(scratch);
    }
    return guiCallback_StripEventName(name);
}

int guiCallback_ShouldDisable(sstring name)
{
    static char const* const kLowLevel[] = {"eCreate",    "eDestroy",  "ePaint",     "eMouseMove",
                                            "eMouseOver", "eMouseOut", "eMouseDown", "eMouseUp"};
    for (char const* lowLevel : kLowLevel) {
        if (istring(lowLevel) == name)
            return 0;
    }
    return 1;
}

namespace {

/// Whether a custom element hears of this event as it does of the low-level ones, while the user goes on working.
bool isElementEvent(sstring const& name)
{
    static char const* const kNames[] = {"eMouseWheel", "eKey", "eFocus", "eBlur"};
    return std::any_of(std::begin(kNames), std::end(kNames), [&](char const* known) { return istring(known) == name; });
}

/// The promises of a page are kept on the GUI thread. The page may go before this thread's news of one arrives there.
void notePromise(unsigned promise, guiHtmlBase* root, guiPromiseUse use)
{
    if (pGUI->getThread()->isGuiThread()) {
        assertOnGuiThread();
        guiPromises_add(promise, *root, std::move(use));
        return;
    }
    auto page = std::make_shared<guiNodeWatch>(root);
    guiScriptWork_postToGui([promise, page, use = std::move(use)] {
        assertOnGuiThread();
        if (guiHtml* live = page->get())
            guiPromises_add(promise, *guiHtmlBase::of(live), use);
        else
            guiHandlerCall_forget(promise);
    });
}

/// Calls a handler for a page: user input is blocked until it returns, and the values of the page's controls travel.
void callHandler(guiHtmlBase* root, ScriptObject* target, sstring const& method, ScriptArgs* args, ScriptValue* result,
                 guiPromiseUse use)
{
    inputBlock const block;
    guiPageInCall const alive(*root);
    std::shared_ptr<ScriptObject> const event = guiEventObject_make(root);
    carryFormValues(root, guiFormCarry::kToScript);
    unsigned const promise = guiHandlerCall_run(target, method, args, root->getFormObject(), event.get(), result);
    carryFormValues(root, promise == 0 ? guiFormCarry::kToControls : guiFormCarry::kPromised);
    if (promise == 0)
        return;
    if (root->isReleased())
        guiHandlerCall_forget(promise);
    else
        notePromise(promise, root, std::move(use));
}

/// Calls a method for a page that is only a notice of what the user does: nothing is blocked, nothing travels.
void callNotice(ScriptObject* target, sstring const& method, ScriptArgs* args, ScriptObject* event, ScriptValue* result)
{
    if (unsigned const promise = guiHandlerCall_run(target, method, args, nullptr, event, result))
        guiHandlerCall_forget(promise);
}

/// `isHandler`: the method is more than a notice, see callHandler(). Without a page its promise is waited for.
void callMethod(guiHtml* node, ScriptObject* target, sstring const& method, ScriptArgs* args, ScriptValue* result,
                bool isHandler, guiPromiseUse use)
{
    guiHtmlBase* root = node ? guiHtmlBase::of(node) : nullptr;
    if (isHandler && root)
        return callHandler(root, target, method, args, result, std::move(use));
    inputBlock const block(isHandler);
    std::optional<guiPageInCall> alive;
    if (root)
        alive.emplace(*root);
    // An element that script draws has objects of its own for its events.
    bool const isElement = node && node->getType() == guiHtml::kTypeCustom;
    std::shared_ptr<ScriptObject> const event = root && !isElement ? guiEventObject_make(node) : nullptr;
    if (event)
        callNotice(target, method, args, event.get(), result);
    else
        callAndWait(target, target, method, args, result);
}

void callEvent(guiHtml* node, ScriptObject* target, sstring const& name, ScriptObject* source, ScriptValue* result,
               bool isHandler, guiPromiseUse use)
{
    assert(target);
    ScriptEngine* engine = target->getEngine();
    guiOwnedArgs args(pGUI->getPlatform()->createArgs(engine));
    sstring const method = buildArguments(engine, name, source, *args);
    callMethod(node, target, method, args.get(), result, isHandler, std::move(use));
}

} // namespace

void guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source, ScriptValue* result)
{
    guiCallback_CallEvent(node, target, name, source, result, {node, sstring()});
}

void guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring const& name, ScriptObject* source,
                           ScriptValue* result, guiPromiseUse use)
{
    callEvent(node, target, name, source, result, guiCallback_ShouldDisable(name) != 0, std::move(use));
}

sstring guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source)
{
    guiOwnedValue result = guiNewValue();
    guiCallback_CallEvent(node, target, name, source, result.get());
    return textOf(*result);
}

void guiCallback_CallLink(guiHtml* node, ScriptObject* target, sstring const& name, sstring const& address)
{
    assert(target);
    HostPlatform* platform = pGUI->getPlatform();
    guiOwnedArgs args(platform->createArgs(target->getEngine()));
    guiOwnedValue value(platform->createValue(target->getEngine()));
    value->setObject(pGUI->getSession());
    args->append(value.get());
    value->setString(address);
    args->append(value.get());
    value->setNull();
    callMethod(node, target, name, args.get(), value.get(), true, {node, name});
}

sstring guiCallback_CallFilter(ScriptObject* owner, ScriptValue* function, ScriptObject* window, sstring const& text)
{
    ScriptObject* filter = function->toObject(0);
    if (!filter)
        return sstring();
    guiOwnedArgs args = guiNewArgs();
    guiOwnedValue value = guiNewValue();
    value->setObject(window);
    args->append(value.get());
    value->setString(text);
    args->append(value.get());
    value->setNull();
    {
        inputBlock const block;
        callAndWait(filter, owner ? owner : filter, sstring(), args.get(), value.get());
    }
    return textOf(*value);
}

sstring guiCallback_CallFilter(ScriptObject* owner, sstring const& event)
{
    return guiCallback_CallEvent(nullptr, owner, event, pGUI->getSession());
}

void guiCallback_CallGetString(ScriptObject* messages, sstring const& key, ScriptValue* result)
{
    static sstring const& getString = *new sstring("getString"); // never destroyed: pages load while the process exits
    assert(messages && result);
    HostPlatform* platform = pGUI->getPlatform();
    guiOwnedArgs args(platform->createArgs(messages->getEngine()));
    guiOwnedValue value(platform->createValue(messages->getEngine()));
    value->setString(key);
    args->append(value.get());
    inputBlock const block;
    callAndWait(messages, messages, getString, args.get(), result);
}

int guiCallback_CallCustom(guiHtmlCustom* node, ScriptObject* object, sstring name, ScriptObject* source)
{
    if (!object->hasMethod(guiCallback_StripEventName(name)))
        return 1;
    node->onCallback();
    guiOwnedValue result = guiNewValue();
    bool const isHandler = guiCallback_ShouldDisable(name) != 0 && !isElementEvent(name);
    callEvent(node, object, name, source, result.get(), isHandler, {node, sstring()});
    return result->isNumber() ? result->toInt(0) : 0;
}

// A node is named by its address, which a number holds exactly: addresses have fewer bits than the 53 of a double.

void guiCallback_BuildCustomObject_Callback(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args,
                                            ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    if (args.count() < 1 || !args.get(0)->isNumber())
        return;
    auto* node = reinterpret_cast<guiHtml*>(static_cast<std::uintptr_t>(args.get(0)->toNumber(0)));
    if (!pGUI || !pGUI->contains(node))
        return;
    if (ScriptObject* object = node->getCustomObject())
        result.setObject(object);
}

ScriptObject* guiCallback_BuildCustomObject(guiHtml* node)
{
    assert(node);
    if (pGUI->getThread()->isScriptThread())
        return node->getCustomObject();
    static sstring const kBuild("build");
    HostPlatform* platform = pGUI->getPlatform();
    ScriptEngine* engine = guiPageObjectOf(node)->getEngine();
    guiOwnedObject builder(platform->createObject(engine));
    guiOwnedArgs args(platform->createArgs(engine));
    guiOwnedValue value(platform->createValue(engine));
    builder->addMethod(kBuild, guiCallback_BuildCustomObject_Callback);
    value->setNumber(static_cast<double>(reinterpret_cast<std::uintptr_t>(node)));
    args->append(value.get());
    {
        inputBlock const block;
        callAndWait(builder.get(), builder.get(), kBuild, args.get(), value.get());
    }
    return value->toObject(0);
}

void guiCallback_AsyncComplete(ScriptValue& value, void* record)
{
    auto* call = static_cast<guiCallbackRecord*>(record);
    assert(call && call->result);
    assert(call->done.load(std::memory_order_relaxed) == 0);
    *call->result = value;
    if (call->waiter) {
        pevent_set(call->waiter);
        return;
    }
    call->done.store(1, std::memory_order_release); // the record may be gone from here on
    pGUI->getThread()->postNullEvent();
}

void guiCallback_postNullEvent()
{
    if (!pGUI)
        return;
    if (ScriptPump* pump = pGUI->getPump())
        pump->wake();
    pGUI->getThread()->postNullEvent();
}
