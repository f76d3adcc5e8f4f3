// host/native/nativeobject.cpp: see nativeobject.h.
#include "host/native/nativeobject.h"

#include "host/native/nativeclass.h"
#include "host/native/nativeengine.h"
#include "host/native/nativetext.h"

#include <cassert>

namespace {

constexpr char16_t kWindowProperty[] = u"window"; // on controls and custom elements: the window they belong to

} // namespace

NativeObjectRef NativeObjectRef::adopt(NativeObject* object)
{
    NativeObjectRef ref;
    ref.m_object = object;
    return ref;
}

void NativeObjectRef::keep() const
{
    if (m_object)
        m_object->keep();
}

void NativeObjectRef::letGo() const
{
    if (m_object)
        m_object->letGo();
}

NativeObjectRef NativeObject::make(std::shared_ptr<NativeEngine> engine, NativeClass const* scriptClass,
                                   std::string className)
{
    return NativeObjectRef::adopt(new NativeObject(std::move(engine), scriptClass, std::move(className)));
}

NativeObject::NativeObject(std::shared_ptr<NativeEngine> engine, NativeClass const* scriptClass, std::string className)
    : m_engine(std::move(engine)), m_class(scriptClass), m_className(std::move(className))
{
    m_number = m_engine->objects().add(this); // last: from here on others see the object
}

NativeObject::~NativeObject()
{
    assert(m_keeps == 0 && m_stage != Stage::kCreated);
    m_engine->objects().remove(this);
}

// ---- life

bool NativeObject::tryKeep()
{
    int keeps = m_keeps.load();
    while (keeps > 0 && !m_keeps.compare_exchange_weak(keeps, keeps + 1)) {}
    return keeps > 0;
}

void NativeObject::keep()
{
    [[maybe_unused]] int keeps = m_keeps.fetch_add(1, std::memory_order_relaxed);
    assert(keeps > 0); // else its end has begun: tryKeep
}

void NativeObject::letGo()
{
    int keeps = m_keeps.fetch_sub(1, std::memory_order_acq_rel);
    assert(keeps > 0);
    if (keeps == 1)
        end();
}

/// The last handle is gone. An object whose destroy handler is still to run is kept once more until it has.
void NativeObject::end()
{
    if (m_stage != Stage::kCreated) {
        delete this;
        return;
    }
    m_keeps.store(1);
    if (m_engine->onScriptThread())
        finishOnScriptThread();
    else
        m_engine->pump().post([this] { finishOnScriptThread(); });
}

void NativeObject::finishOnScriptThread()
{
    assert(m_engine->onScriptThread());
    runDestroyHandler();
    letGo();
}

void NativeObject::runCreateHandler(NativeArguments& args)
{
    assert(m_stage == Stage::kPlain);
    NativeValue result;
    NativeEngine::ComponentCall running(*m_engine);
    if (m_class && m_class->createHandler())
        m_class->createHandler()(m_engine->manager(), &m_private, this, args, result);
    m_stage = Stage::kCreated;
}

void NativeObject::runDestroyHandler()
{
    assert(m_engine->onScriptThread());
    Stage created = Stage::kCreated;
    if (!m_stage.compare_exchange_strong(created, Stage::kDestroyed))
        return;
    NativeArguments none;
    if (m_class && m_class->destroyHandler() && m_engine->hasComponent())
        runReported(m_class->destroyHandler(), *this, u"destroy handler", none);
    m_private.clear();
}

void NativeObject::clear()
{
    std::map<std::u16string, Property> properties;
    std::map<std::u16string, NativeMethod> methods;
    std::lock_guard lock(m_mutex);
    properties.swap(m_properties);
    methods.swap(m_methods);
}

// ---- methods

void NativeObject::setHandler(std::string_view name, NativeHandler handler)
{
    NativeMethod method;
    if (handler)
        method = std::make_shared<NativeHandler const>(std::move(handler));
    setMethod(nativeFromUtf8(name), std::move(method));
}

void NativeObject::makeCallable(NativeHandler handler)
{
    setHandler("", std::move(handler));
    m_callable = true;
}

void NativeObject::addMethod(sstring const& name, ScriptMethod method)
{
    setMethod(nativeFromSString(name), method ? NativeMethod(method) : NativeMethod());
}

/// The old method is destroyed after the lock is released: it may hold the last handle of something.
void NativeObject::setMethod(std::u16string name, NativeMethod method)
{
    std::lock_guard lock(m_mutex);
    std::swap(m_methods[std::move(name)], method);
}

NativeMethod NativeObject::findMethod(std::u16string const& name) const
{
    {
        std::lock_guard lock(m_mutex);
        auto found = m_methods.find(name);
        if (found != m_methods.end() && nativeIsMethod(found->second))
            return found->second;
    }
    ScriptMethod method = m_class ? m_class->findMethod(name) : nullptr;
    return method ? NativeMethod(method) : NativeMethod();
}

bool NativeObject::has(std::string_view name) const { return nativeIsMethod(findMethod(nativeFromUtf8(name))); }

bool NativeObject::hasMethod(sstring const& name) { return nativeIsMethod(findMethod(nativeFromSString(name))); }

NativeResult NativeObject::run(NativeMethod const& method, NativeObject& self, NativeArguments& args)
{
    assert(m_engine->onScriptThread());
    if (auto* handler = std::get_if<std::shared_ptr<NativeHandler const>>(&method))
        return (**handler)(self, args);
    NativeValue result;
    NativeEngine::ComponentCall running(*m_engine);
    if (auto* function = std::get_if<ScriptMethod>(&method); function && m_engine->hasComponent())
        (*function)(m_engine->manager(), &self.m_private, &self, args, result);
    return result;
}

NativeResult NativeObject::runReported(NativeMethod const& method, NativeObject& self, std::u16string const& name,
                                       NativeArguments& args)
{
    auto report = [&](char const* what) {
        nativeReport(m_className + "." + nativeToUtf8(name) + "() threw an exception: " + what);
    };
    try {
        return run(method, self, args);
    } catch (std::exception const& error) {
        report(error.what());
    } catch (...) {
        report("of an unknown type");
    }
    return {};
}

NativeResult NativeObject::invoke(NativeObject& self, std::u16string const& name, NativeArguments& args)
{
    return runReported(findMethod(name), self, name, args);
}

NativeValue NativeObject::callAndWait(NativeObject& self, std::u16string const& name, NativeArguments& args)
{
    if (m_engine->onScriptThread())
        return m_engine->wait(invoke(self, name, args));
    nativeReport(m_className + "." + nativeToUtf8(name) + "() was called outside the script thread");
    return {};
}

NativeValue NativeObject::call(std::string_view name, NativeArguments args)
{
    NativeObjectRef kept(this);
    return callAndWait(*this, nativeFromUtf8(name), args);
}

void NativeObject::callMethod(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptValue* result)
{
    NativeObjectRef kept(this);
    NativeObject* target = self ? static_cast<NativeObject*>(self) : this;
    NativeArguments none;
    NativeValue value =
        callAndWait(*target, nativeFromSString(name), args ? *static_cast<NativeArguments*>(args) : none);
    if (result)
        result->assign(value);
}

NativeCallTarget NativeObject::targetOf(ScriptObject* self, sstring const& name, ScriptArgs* args)
{
    NativeObject* target = self ? static_cast<NativeObject*>(self) : this;
    return {NativeObjectRef(this), NativeObjectRef(target), nativeFromSString(name),
            args ? *static_cast<NativeArguments*>(args) : NativeArguments()};
}

void NativeObject::callMethodAsync(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptCompletion done,
                                   void* context)
{
    m_engine->startCall(targetOf(self, name, args), done, context);
}

/// A NativeLater is no promise: the call ends when it is complete.
void NativeObject::callHandler(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptObject*,
                               ScriptObject* event, ScriptCompletion, ScriptCompletion done, void* context)
{
    if (!m_engine->onScriptThread()) {
        NativeCallTarget target = targetOf(self, name, args);
        target.event = NativeObjectRef(static_cast<NativeObject*>(event));
        return m_engine->startCall(std::move(target), done, context);
    }
    NativeValue result;
    callMethod(self, name, args, &result);
    done(result, context);
}

// ---- properties

bool NativeObject::isDynamic(NativeValue const& name)
{
    assert(!m_class || m_engine->onScriptThread()); // the component answers for its classes there only
    return m_class && m_engine->hasComponent() && m_class->hasDynamic(m_engine->manager(), this, name);
}

NativeValue NativeObject::get(std::string_view name)
{
    NativeEngine::ComponentCall running(*m_engine);
    NativeValue out;
    NativeValue key(name);
    if (isDynamic(key))
        m_class->getDynamic(m_engine->manager(), this, key, out);
    else
        readProperty(nativeFromUtf8(name), out);
    return out;
}

bool NativeObject::set(std::string_view name, NativeValue const& value)
{
    NativeEngine::ComponentCall running(*m_engine);
    NativeValue key(name);
    if (isDynamic(key))
        return m_class->setDynamic(m_engine->manager(), this, key, value);
    writeProperty(nativeFromUtf8(name), value);
    return true;
}

bool NativeObject::remove(std::string_view name)
{
    NativeEngine::ComponentCall running(*m_engine);
    NativeValue key(name);
    if (isDynamic(key))
        return m_class->removeDynamic(m_engine->manager(), this, key);
    eraseProperty(nativeFromUtf8(name));
    return true;
}

bool NativeObject::readProperty(std::u16string const& name, NativeValue& out) const
{
    NativeValue value;
    std::unique_lock lock(m_mutex);
    auto found = m_properties.find(name);
    bool exists = found != m_properties.end();
    unsigned long long unheld = exists ? found->second.unheld : 0;
    if (exists)
        value = found->second.value;
    lock.unlock();
    if (unheld != 0)
        value = NativeValue(m_engine->objects().find(unheld));
    out = std::move(value);
    return exists;
}

/// The old value leaves the table under the lock and is destroyed outside of it: it may hold the last handle of an
/// object.
void NativeObject::exchangeProperty(std::u16string const& name, Property property)
{
    std::lock_guard lock(m_mutex);
    std::swap(m_properties[name], property);
}

void NativeObject::writeProperty(std::u16string const& name, NativeValue value)
{
    exchangeProperty(name, {std::move(value)});
}

void NativeObject::eraseProperty(std::u16string const& name)
{
    Property old;
    std::lock_guard lock(m_mutex);
    auto found = m_properties.find(name);
    if (found == m_properties.end())
        return;
    std::swap(old, found->second);
    m_properties.erase(found);
}

bool NativeObject::getProperty(sstring const& name, ScriptValue* out)
{
    return readProperty(nativeFromSString(name), *static_cast<NativeValue*>(out));
}

void NativeObject::setProperty(sstring const& name, ScriptValue* value)
{
    std::u16string key = nativeFromSString(name);
    NativeValue copy = value ? *static_cast<NativeValue*>(value) : NativeValue();
    NativeObjectRef window = key == kWindowProperty ? copy.object() : NativeObjectRef();
    if (window)
        exchangeProperty(key, {NativeValue(), window->m_number});
    else
        writeProperty(key, std::move(copy));
}

void NativeObject::deleteProperty(sstring const& name) { eraseProperty(nativeFromSString(name)); }

bool NativeObject::hasProperty(sstring const& name)
{
    std::u16string key = nativeFromSString(name);
    std::lock_guard lock(m_mutex);
    return m_properties.contains(key);
}

// ---- the rest

void NativeObject::setFolder(std::filesystem::path folder)
{
    std::lock_guard lock(m_mutex);
    m_folder = std::move(folder);
}

std::filesystem::path NativeObject::folder() const
{
    std::lock_guard lock(m_mutex);
    return m_folder;
}

void NativeObject::setPageText(std::u16string text)
{
    std::lock_guard lock(m_mutex);
    m_pageText.swap(text);
}

std::string NativeObject::pageText() const
{
    std::lock_guard lock(m_mutex);
    return nativeToUtf8(m_pageText);
}

std::string NativeObject::describe() const
{
    return m_callable ? std::string("[function]") : "[object " + m_className + "]";
}

int NativeObject::beginSession(int)
{
    m_engine->setSession(NativeObjectRef(this));
    return 1;
}

int NativeObject::endSession()
{
    m_engine->setSession(nullptr);
    return 1;
}

void NativeObject::windowState(int isOpen) { m_engine->windows().setOpen(NativeObjectRef(this), isOpen != 0); }

ScriptEngine* NativeObject::getEngine() { return m_engine.get(); }
