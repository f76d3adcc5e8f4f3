#include "host/native/nativeobject.h"

#include "host/native/nativeclass.h"
#include "host/native/nativeengine.h"
#include "host/native/nativetext.h"

#include <optional>

namespace {

constexpr char16_t kWindowProperty[] = u"window"; // on controls and custom elements: the window they belong to

} // namespace

NativeObjectRef NativeObjectRef::adopt(NativeObject* object)
{
    NativeObjectRef ref;
    ref.object_ = object;
    return ref;
}

void NativeObjectRef::keep() const
{
    if (object_)
        object_->keep();
}

void NativeObjectRef::letGo() const
{
    if (object_)
        object_->letGo();
}

NativeObjectRef NativeObject::make(std::shared_ptr<NativeEngine> engine, NativeClass const* scriptClass,
                                   std::string className)
{
    return NativeObjectRef::adopt(new NativeObject(std::move(engine), scriptClass, std::move(className)));
}

NativeObject::NativeObject(std::shared_ptr<NativeEngine> engine, NativeClass const* scriptClass, std::string className)
    : engine_(std::move(engine)), class_(scriptClass), className_(std::move(className))
{
    number_ = engine_->objects().add(this); // last: from here on others see the object
}

NativeObject::~NativeObject() { engine_->objects().remove(this); }

// ---- life

bool NativeObject::tryKeep()
{
    int keeps = keeps_.load();
    while (keeps > 0 && !keeps_.compare_exchange_weak(keeps, keeps + 1)) {}
    return keeps > 0;
}

void NativeObject::letGo()
{
    if (keeps_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        end();
}

/// The last handle is gone. An object whose destroy handler is still to run is kept once more until it has.
void NativeObject::end()
{
    if (stage_ != Stage::Created) {
        delete this;
        return;
    }
    keeps_.store(1);
    if (engine_->onScriptThread())
        finishOnScriptThread();
    else
        engine_->pump().post([this] { finishOnScriptThread(); });
}

void NativeObject::finishOnScriptThread()
{
    runDestroyHandler();
    letGo();
}

void NativeObject::runCreateHandler(NativeArguments& args)
{
    NativeValue result;
    std::optional<NativeEngine::ComponentCall> running; // counts what runs on the script thread
    if (engine_->onScriptThread())
        running.emplace(*engine_);
    if (class_ && class_->createHandler())
        class_->createHandler()(engine_->manager(), &private_, this, args, result);
    stage_ = Stage::Created;
}

void NativeObject::runDestroyHandler()
{
    Stage created = Stage::Created;
    if (!stage_.compare_exchange_strong(created, Stage::Destroyed))
        return;
    NativeArguments none;
    if (class_ && class_->destroyHandler() && engine_->hasComponent())
        runReported(class_->destroyHandler(), *this, u"destroy handler", none);
    private_.clear();
}

void NativeObject::clear()
{
    std::map<std::u16string, Property> properties;
    std::map<std::u16string, NativeMethod> methods;
    std::lock_guard lock(mutex_);
    properties.swap(properties_);
    methods.swap(methods_);
}

// ---- methods

void NativeObject::setHandler(std::string_view name, NativeHandler handler)
{
    NativeMethod method;
    if (handler)
        method = std::make_shared<const NativeHandler>(std::move(handler));
    setMethod(nativeFromUtf8(name), std::move(method));
}

void NativeObject::makeCallable(NativeHandler handler)
{
    setHandler("", std::move(handler));
    callable_ = true;
}

void NativeObject::addMethod(sstring const& name, ScriptMethod method)
{
    setMethod(nativeFromSString(name), method ? NativeMethod(method) : NativeMethod());
}

/// The old method is destroyed after the lock is released: it may hold the last handle of something.
void NativeObject::setMethod(std::u16string name, NativeMethod method)
{
    std::lock_guard lock(mutex_);
    std::swap(methods_[std::move(name)], method);
}

NativeMethod NativeObject::findMethod(std::u16string const& name) const
{
    {
        std::lock_guard lock(mutex_);
        auto found = methods_.find(name);
        if (found != methods_.end() && nativeIsMethod(found->second))
            return found->second;
    }
    ScriptMethod method = class_ ? class_->findMethod(name) : nullptr;
    return method ? NativeMethod(method) : NativeMethod();
}

bool NativeObject::has(std::string_view name) const { return nativeIsMethod(findMethod(nativeFromUtf8(name))); }

bool NativeObject::hasMethod(sstring const& name) { return nativeIsMethod(findMethod(nativeFromSString(name))); }

NativeResult NativeObject::run(NativeMethod const& method, NativeObject& self, NativeArguments& args)
{
    if (auto* handler = std::get_if<std::shared_ptr<const NativeHandler>>(&method))
        return (**handler)(self, args);
    NativeValue result;
    NativeEngine::ComponentCall running(*engine_);
    if (auto* function = std::get_if<ScriptMethod>(&method); function && engine_->hasComponent())
        (*function)(engine_->manager(), &self.private_, &self, args, result);
    return result;
}

NativeResult NativeObject::runReported(NativeMethod const& method, NativeObject& self, std::u16string const& name,
                                       NativeArguments& args)
{
    auto report = [&](const char* what) {
        nativeReport(className_ + "." + nativeToUtf8(name) + "() threw an exception: " + what);
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
    if (engine_->onScriptThread())
        return engine_->wait(invoke(self, name, args));
    nativeReport(className_ + "." + nativeToUtf8(name) + "() was called outside the script thread");
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

void NativeObject::callMethodAsync(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptCompletion done,
                                   void* context)
{
    NativeObject* target = self ? static_cast<NativeObject*>(self) : this;
    engine_->startCall({NativeObjectRef(this), NativeObjectRef(target), nativeFromSString(name),
                        args ? *static_cast<NativeArguments*>(args) : NativeArguments()},
                       done, context);
}

// ---- properties

NativeValue NativeObject::get(std::string_view name)
{
    NativeEngine::ComponentCall running(*engine_);
    NativeValue out;
    NativeValue key(name);
    if (class_ && engine_->hasComponent() && class_->hasDynamic(engine_->manager(), this, key))
        class_->getDynamic(engine_->manager(), this, key, out);
    else
        readProperty(nativeFromUtf8(name), out);
    return out;
}

bool NativeObject::set(std::string_view name, NativeValue const& value)
{
    NativeEngine::ComponentCall running(*engine_);
    NativeValue key(name);
    if (class_ && engine_->hasComponent() && class_->hasDynamic(engine_->manager(), this, key))
        return class_->setDynamic(engine_->manager(), this, key, value);
    writeProperty(nativeFromUtf8(name), value);
    return true;
}

bool NativeObject::remove(std::string_view name)
{
    NativeEngine::ComponentCall running(*engine_);
    NativeValue key(name);
    if (class_ && engine_->hasComponent() && class_->hasDynamic(engine_->manager(), this, key))
        return class_->removeDynamic(engine_->manager(), this, key);
    eraseProperty(nativeFromUtf8(name));
    return true;
}

bool NativeObject::readProperty(std::u16string const& name, NativeValue& out) const
{
    NativeValue value;
    std::unique_lock lock(mutex_);
    auto found = properties_.find(name);
    bool exists = found != properties_.end();
    unsigned long long unheld = exists ? found->second.unheld : 0;
    if (exists)
        value = found->second.value;
    lock.unlock();
    if (unheld != 0)
        value = NativeValue(engine_->objects().find(unheld));
    out = std::move(value);
    return exists;
}

/// The old value leaves the table under the lock and is destroyed outside of it: it may hold the last handle of an
/// object.
void NativeObject::exchangeProperty(std::u16string const& name, Property property)
{
    std::lock_guard lock(mutex_);
    std::swap(properties_[name], property);
}

void NativeObject::writeProperty(std::u16string const& name, NativeValue value)
{
    exchangeProperty(name, {std::move(value)});
}

void NativeObject::eraseProperty(std::u16string const& name)
{
    Property old;
    std::lock_guard lock(mutex_);
    auto found = properties_.find(name);
    if (found == properties_.end())
        return;
    std::swap(old, found->second);
    properties_.erase(found);
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
        exchangeProperty(key, {NativeValue(), window->number_});
    else
        writeProperty(key, std::move(copy));
}

void NativeObject::deleteProperty(sstring const& name) { eraseProperty(nativeFromSString(name)); }

bool NativeObject::hasProperty(sstring const& name)
{
    std::u16string key = nativeFromSString(name);
    std::lock_guard lock(mutex_);
    return properties_.contains(key);
}

// ---- the rest

void NativeObject::setFolder(std::filesystem::path folder)
{
    std::lock_guard lock(mutex_);
    folder_ = std::move(folder);
}

std::filesystem::path NativeObject::folder() const
{
    std::lock_guard lock(mutex_);
    return folder_;
}

void NativeObject::setPageText(std::u16string text)
{
    std::lock_guard lock(mutex_);
    pageText_.swap(text);
}

std::string NativeObject::pageText() const
{
    std::lock_guard lock(mutex_);
    return nativeToUtf8(pageText_);
}

std::string NativeObject::describe() const
{
    return callable_ ? std::string("[function]") : "[object " + className_ + "]";
}

int NativeObject::beginSession(int)
{
    engine_->setSession(NativeObjectRef(this));
    return 1;
}

int NativeObject::endSession()
{
    engine_->setSession(nullptr);
    return 1;
}

void NativeObject::windowState(int isOpen) { engine_->windows().setOpen(NativeObjectRef(this), isOpen != 0); }

ScriptEngine* NativeObject::getEngine() { return engine_.get(); }
