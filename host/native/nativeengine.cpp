// host/native/nativeengine.cpp: see nativeengine.h.
#include "host/native/nativeengine.h"

#include "host/native/nativetext.h"

#include <cassert>

NativeEngine::ComponentCall::ComponentCall(NativeEngine& engine)
    : m_engine(engine), m_depth(engine.onScriptThread() ? ++engine.m_componentDepth : 0)
{}

NativeEngine::ComponentCall::~ComponentCall()
{
    if (m_depth == 0)
        return;
    assert(m_engine.onScriptThread() && m_engine.m_componentDepth == m_depth);
    --m_engine.m_componentDepth;
}

// ---- classes and objects

NativeClass& NativeEngine::addClass(std::string const& name)
{
    assert(onScriptThread());
    auto& slot = m_classes[name];
    assert(!slot); // objects of the class point to it
    slot = std::make_unique<NativeClass>(name);
    return *slot;
}

NativeClass const* NativeEngine::findClass(std::string_view name) const
{
    auto found = m_classes.find(name);
    return found == m_classes.end() ? nullptr : found->second.get();
}

void NativeEngine::addFactory(std::string const& name, NativeFactory factory)
{
    assert(onScriptThread() && factory);
    m_factories.insert_or_assign(name, std::move(factory));
}

NativeObjectRef NativeEngine::makeObject() { return NativeObject::make(shared_from_this(), nullptr, "Object"); }

NativeObjectRef NativeEngine::construct(std::string const& className, NativeArguments args)
{
    if (NativeClass const* scriptClass = findClass(className))
        return hasComponent() ? constructOfComponent(*scriptClass, args) : NativeObjectRef();
    if (!onScriptThread()) {
        nativeReport("an object of class " + className + " was made outside the script thread");
        return {};
    }
    auto factory = m_factories.find(className);
    if (factory == m_factories.end())
        return {};
    return constructOfApplication(className, NativeFactory(factory->second), args);
}

NativeObjectRef NativeEngine::constructOfComponent(NativeClass const& scriptClass, NativeArguments& args)
{
    NativeObjectRef object = NativeObject::make(shared_from_this(), &scriptClass, scriptClass.name());
    object->runCreateHandler(args);
    return object;
}

NativeObjectRef NativeEngine::constructOfApplication(std::string const& className, NativeFactory const& factory,
                                                     NativeArguments& args)
{
    NativeObjectRef object = NativeObject::make(shared_from_this(), nullptr, className);
    try {
        factory(*object, args);
        return object;
    } catch (std::exception const& error) {
        nativeReport("the constructor of " + className + " threw an exception: " + error.what());
    } catch (...) {
        nativeReport("the constructor of " + className + " threw an exception: of an unknown type");
    }
    return {};
}

ScriptObject* NativeEngine::createInstance(sstring const& className)
{
    return construct(nativeToUtf8(nativeFromSString(className)), {}).release();
}

NativeObjectRef NativeEngine::classObject(std::string const& className)
{
    assert(onScriptThread());
    NativeClass const* scriptClass = findClass(className);
    if (!scriptClass)
        return {};
    NativeObjectRef& object = m_classObjects[className];
    if (!object) {
        object = NativeObject::make(shared_from_this(), nullptr, className);
        for (std::string const& name : scriptClass->classMethodNames())
            object->addMethod(nativeToSString(nativeFromUtf8(name)),
                              scriptClass->findClassMethod(nativeFromUtf8(name)));
    }
    return object;
}

// ---- values

ScriptValue* NativeEngine::makeValue()
{
    auto value = std::make_unique<NativeValue>();
    ScriptValue* key = value.get();
    std::lock_guard lock(m_mutex);
    m_values.emplace(key, std::move(value));
    return key;
}

void NativeEngine::releaseValue(ScriptValue* value)
{
    std::unique_lock lock(m_mutex);
    auto released = m_values.extract(value);
    assert(released); // only what makeValue made, and once
    lock.unlock();    // the value goes without the lock: it may hold the last handle of an object
}

void NativeEngine::dropValues()
{
    decltype(m_values) values;
    std::lock_guard lock(m_mutex);
    values.swap(m_values);
}

size_t NativeEngine::ownedValues() const
{
    std::lock_guard lock(m_mutex);
    return m_values.size();
}

// ---- the session

NativeObjectRef NativeEngine::session() const
{
    std::lock_guard lock(m_mutex);
    return m_session;
}

void NativeEngine::setSession(NativeObjectRef session)
{
    std::lock_guard lock(m_mutex);
    std::swap(m_session, session);
}

// ---- calls

NativeValue NativeEngine::wait(NativeResult result)
{
    assert(onScriptThread());
    struct Box
    {
        NativeValue value;
        std::atomic<bool> ready{false};
    };
    auto box = std::make_shared<Box>();
    result.whenComplete([box, engine = shared_from_this()](NativeValue& value) {
        assert(!box->ready);
        box->value = value;
        box->ready = true;
        engine->pump().wake();
    });
    result = NativeResult(); // a NativeLater that nobody else has is dropped and completes with null
    while (!box->ready && !m_stopped)
        pump().step();
    return box->ready ? box->value : NativeValue();
}

void NativeEngine::startCall(NativeCallTarget target, ScriptCompletion done, void* context)
{
    auto call = std::make_shared<NativeCall>(done, context);
    if (!m_calls.add(call)) {
        NativeValue null;
        call->end(null);
        return;
    }
    pump().post([this, call, target = std::move(target)]() mutable { runCall(target, call); });
}

namespace {

/// For the length of a block, the session has the event that a handler is about, or none.
class EventScope
{
public:
    EventScope(NativeObjectRef session, NativeObjectRef const& event)
        : m_session(std::move(session)), m_outer(m_session ? m_session->get("event") : NativeValue())
    {
        publish(event ? NativeValue(event) : NativeValue());
    }
    ~EventScope() { publish(m_outer); }
    EventScope(EventScope const&) = delete;
    EventScope& operator=(EventScope const&) = delete;

private:
    void publish(NativeValue const& event)
    {
        if (!m_session)
            return;
        if (event.isNull())
            m_session->remove("event");
        else
            m_session->set("event", event);
    }

    NativeObjectRef const m_session;
    NativeValue const m_outer;
};

} // namespace

void NativeEngine::runCall(NativeCallTarget& target, std::shared_ptr<NativeCall> const& call)
{
    assert(onScriptThread());
    if (call->hasEnded())
        return;
    EventScope const scope(session(), target.event);
    NativeResult result = target.holder->invoke(*target.self, target.name, target.args);
    result.whenComplete([engine = shared_from_this(), call](NativeValue& value) { engine->calls().end(call, value); });
}

// ---- the end

void NativeEngine::stopCalls()
{
    m_stopped = true;
    m_calls.close();
    pump().wake();
}

void NativeEngine::destroyObjects()
{
    assert(onScriptThread());
    for (NativeObjectRef const& object : m_objects.all())
        object->runDestroyHandler();
}

void NativeEngine::clear()
{
    assert(onScriptThread() && !hasComponent());
    m_windows.clear();
    pump().runOnce(0); // ends objects whose last handle went on another thread
    setSession(nullptr);
    dropValues();
    m_classObjects.clear();
    m_factories.clear();
    for (NativeObjectRef const& object : m_objects.all())
        object->clear();
}
