// runtime/guicallback.cpp: turns an event name into a call of a script method, from either thread.
#include "runtime/guicallback.h"

#include "controls/guihtmlcustom.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

#include <cstdint>

namespace {

unsigned findSeparator(sstring const& name, unsigned from)
{
    static sstring const& separators = *new sstring("/\\"); // for ever: events arrive while the process exits, too
    return name.find_any(separators, from);
}

/// Waits for a call that runs on the script thread; the GUI keeps painting meanwhile.
void pumpUntilDone(guiCallbackRecord const& call) TARN_ON(velaGuiRole)
{
    guiThread* thread = pGUI->getThread();
    while (call.done.load(std::memory_order_acquire) == 0)
        thread->pumpOnce();
}

void waitForCall(guiCallbackRecord& call)
{
    if (call.waiter) {
        pevent_wait(call.waiter);
        return;
    }
    assertOnGuiThread();
    pumpUntilDone(call);
}

/// Calls a method of `target` with `self` as its object.
void callAndWait(ScriptObject* target, ScriptObject* self, sstring const& method, ScriptArgs* args, ScriptValue* result)
{
    guiThread* thread = pGUI->getThread();
    if (thread->isScriptThread()) {
        assertOnScriptThread();
        target->callMethod(self, method, args, result);
        return;
    }
    guiCallbackRecord call{result, thread->isGuiThread() ? nullptr : pevent_create()};
    target->callMethodAsync(self, method, args, guiCallback_AsyncComplete, &call);
    waitForCall(call);
    if (call.waiter)
        pevent_destroy(call.waiter);
}

/// The argument list of an event: the source object, then what the event name carries. Returns the method's name.
sstring buildArguments(ScriptEngine* engine, sstring const& name, ScriptObject* source, ScriptArgs* args)
{
    HostPlatform* platform = pGUI->getPlatform();
    ScriptValue* scratch = platform->createValue(engine);
    scratch->setObject(source);
    args->append(scratch);
    sstring method = guiCallback_ProcessEventName(name, args, scratch);
    platform->destroyValue(scratch);
    return method;
}

sstring textOf(ScriptValue const& value) { return value.isString() ? value.toString(0) : sstring(); }

/// Brings the values of the page's controls to script, or back.
void carryFormValues(guiHtmlBase* root, guiFormCarry carry)
{
    if (root && !root->isReleased() && root->getFormObject())
        pGUI->getThread()->callCarryForm(root, carry);
}

} // namespace

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

void guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source, ScriptValue* result)
{
    guiThread* thread = pGUI->getThread();
    int disable = guiCallback_ShouldDisable(name);
    if (disable)
        thread->disable();

    HostPlatform* platform = pGUI->getPlatform();
    ScriptArgs* args = platform->createArgs(target->getEngine());
    sstring method = buildArguments(target->getEngine(), name, source, args);
    guiHtmlBase* root = node ? guiHtmlBase::of(node) : nullptr; // its counter keeps it alive across the call
    if (root)
        root->shutdownEnter();
    if (disable)
        carryFormValues(root, guiFormCarry::ToScript);
    callAndWait(target, target, method, args, result);
    if (disable)
        carryFormValues(root, guiFormCarry::ToControls);
    if (root)
        root->shutdownLeave();
    platform->destroyArgs(args);

    if (disable)
        thread->enable();
}

sstring guiCallback_CallEvent(guiHtml* node, ScriptObject* target, sstring name, ScriptObject* source)
{
    ScriptValue* result = guiComponent::NewScriptValue();
    guiCallback_CallEvent(node, target, name, source, result);
    sstring text = textOf(*result);
    guiComponent::DeleteScriptValue(result);
    return text;
}

sstring guiCallback_CallFilter(ScriptObject* owner, ScriptValue* function, ScriptObject* window, sstring const& text)
{
    ScriptObject* filter = function->toObject(0);
    if (!filter)
        return sstring();
    guiThread* thread = pGUI->getThread();
    ScriptArgs* args = guiComponent::NewScriptArgs();
    ScriptValue* value = guiComponent::NewScriptValue();
    value->setObject(window);
    args->append(value);
    value->setString(text);
    args->append(value);
    value->setNull();
    thread->disable();
    callAndWait(filter, owner ? owner : filter, sstring(), args, value);
    thread->enable();
    sstring filtered = textOf(*value);
    guiComponent::DeleteScriptValue(value);
    guiComponent::DeleteScriptArgs(args);
    return filtered;
}

sstring guiCallback_CallFilter(ScriptObject* owner, sstring const& event)
{
    return guiCallback_CallEvent(nullptr, owner, event, pGUI->getSession());
}

void guiCallback_CallGetString(ScriptObject* messages, sstring const& key, ScriptValue* result)
{
    static sstring const& getString = *new sstring("getString"); // for ever: pages load while the process exits
    HostPlatform* platform = pGUI->getPlatform();
    ScriptArgs* args = platform->createArgs(messages->getEngine());
    ScriptValue* value = platform->createValue(messages->getEngine());
    value->setString(key);
    args->append(value);
    pGUI->getThread()->disable();
    callAndWait(messages, messages, getString, args, result);
    pGUI->getThread()->enable();
    platform->destroyValue(value);
    platform->destroyArgs(args);
}

int guiCallback_CallCustom(guiHtmlCustom* node, ScriptObject* object, sstring name, ScriptObject* source)
{
    if (!object->hasMethod(guiCallback_StripEventName(name)))
        return 1;
    node->onCallback();
    ScriptValue* result = guiComponent::NewScriptValue();
    guiCallback_CallEvent(node, object, name, source, result);
    int number = result->isNumber() ? result->toInt(0) : 0;
    guiComponent::DeleteScriptValue(result);
    return number;
}

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

// A node is named by its address, which a number holds exactly.
ScriptObject* guiCallback_BuildCustomObject(guiHtml* node)
{
    guiThread* thread = pGUI->getThread();
    if (thread->isScriptThread())
        return node->getCustomObject();
    static sstring const kBuild("build");
    HostPlatform* platform = pGUI->getPlatform();
    ScriptEngine* engine = guiPageObjectOf(node)->getEngine();
    ScriptObject* builder = platform->createObject(engine);
    ScriptArgs* args = platform->createArgs(engine);
    ScriptValue* value = platform->createValue(engine);
    builder->addMethod(kBuild, guiCallback_BuildCustomObject_Callback);
    value->setNumber(static_cast<double>(reinterpret_cast<std::uintptr_t>(node)));
    args->append(value);
    thread->disable();
    callAndWait(builder, builder, kBuild, args, value);
    thread->enable();
    ScriptObject* object = value->toObject(0);
    platform->destroyValue(value);
    platform->destroyArgs(args);
    platform->destroyObject(builder);
    return object;
}

void guiCallback_AsyncComplete(ScriptValue& value, void* record)
{
    auto* call = static_cast<guiCallbackRecord*>(record);
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
