// host/node/nodeobject.cpp: handles of script objects. What touches the interpreter is in NodeEngine.
#include "host/node/nodeobject.h"

#include "host/node/nodeclass.h"
#include "host/node/nodeengine.h"

#include <cassert>
#include <utility>

namespace {

constexpr char16_t kWindowProperty[] = u"window"; // on controls and custom elements: the window they belong to

} // namespace

void NodeObjectReference::take(NodeObject& object) { object.addReference(); }

void NodeObjectReference::drop(NodeObject& object) { object.dropReference(); }

void NodeObjectHolding::take(NodeObject& object) { object.addHold(); }

void NodeObjectHolding::drop(NodeObject& object) { object.dropHold(); }

NodeObjectRef NodeObject::make(NodeEngine& engine, Kind kind, NodeClass* scriptClass)
{
    return NodeObjectRef::adopt(new NodeObject(engine, kind, scriptClass));
}

NodeObject::NodeObject(NodeEngine& engine, Kind kind, NodeClass* scriptClass)
    : m_engine(engine), m_number(engine.nextObjectNumber()), m_kind(kind), m_class(scriptClass)
{}

NodeObject::~NodeObject()
{
    assert(m_references == 0 && m_holds == 0);
    assert(m_engine.isScriptThread() || m_engine.pump().isClosed());
    if (m_engine.pump().isClosed())
        m_script.SuppressDestruct(); // the environment ends and frees its references itself
}

void NodeObject::addReference()
{
    [[maybe_unused]] int before = m_references.fetch_add(1, std::memory_order_relaxed);
    assert(before > 0);
}

void NodeObject::dropReference()
{
    int before = m_references.fetch_sub(1, std::memory_order_acq_rel);
    assert(before > 0);
    if (before != 1)
        return;
    if (m_engine.isScriptThread() || m_engine.pump().isClosed())
        delete this;
    else
        m_engine.post([this] { delete this; }, [this] { delete this; });
}

void NodeObject::addHold()
{
    addReference();
    if (m_holds.fetch_add(1, std::memory_order_acq_rel) == 0)
        updateLifetimeSoon();
}

void NodeObject::dropHold()
{
    int before = m_holds.fetch_sub(1, std::memory_order_acq_rel);
    assert(before > 0);
    if (before == 1)
        updateLifetimeSoon();
    dropReference();
}

void NodeObject::updateLifetimeSoon()
{
    m_engine.runOrPost([self = NodeObjectRef(this)] { self->updateLifetime(); });
}

void NodeObject::bind(Napi::Object object)
{
    assert(m_engine.isScriptThread());
    assert(!m_isBound || m_script.Value().IsEmpty());
    m_unbindsBehind += m_isBound ? 1 : 0;
    m_script = Napi::ObjectReference::New(object, 0);
    m_isFunction = object.IsFunction();
    m_isBound = true;
    m_isStrong = false;
    updateLifetime();
}

Napi::Object NodeObject::script() const
{
    assert(m_engine.isScriptThread());
    return m_isBound ? m_script.Value() : Napi::Object();
}

// The collector's word comes a while after the object has gone, and by then there may be another one.
void NodeObject::unbind()
{
    assert(m_engine.isScriptThread());
    if (m_unbindsBehind > 0) {
        --m_unbindsBehind;
        return;
    }
    m_isBound = false;
    if (!m_engine.pump().isClosed())
        m_script.Reset(); // an environment that ends frees only references to what has not been collected
    m_engine.methodNames().untrack(*this);
    updateLifetime();
}

void NodeObject::setOwner(NodeObject* owner)
{
    assert(m_engine.isScriptThread() && owner->kind() == Kind::kInstance);
    if (m_owner || owner == this)
        return;
    {
        std::lock_guard lock(m_mutex);
        m_owner = NodeObjectRef(owner);
    }
    if (m_isBound)
        m_engine.tie(*owner, *this);
    updateLifetime();
}

void NodeObject::updateLifetime()
{
    assert(m_engine.isScriptThread());
    if (m_isBound && isStrong() != m_isStrong && !m_engine.pump().isClosed()) {
        m_isStrong = !m_isStrong;
        m_isStrong ? m_script.Ref() : m_script.Unref();
    }
    if (m_kind == Kind::kInstance && !m_isBound && !isHeld())
        destroyInstance();
    // An element that has left the page: its window must not keep it until the end.
    if (m_kind == Kind::kScript && m_isBound && m_owner && !isHeld() && !m_engine.pump().isClosed())
        m_engine.untie(*m_owner, *this);
}

void NodeObject::destroyInstance()
{
    assert(m_engine.isScriptThread() && m_kind == Kind::kInstance);
    if (std::exchange(m_isDestroyed, true))
        return;
    m_class->destroy(*this);
    m_private.clear();
    m_engine.removeInstance(*this);
}

std::string NodeObject::folder() const
{
    std::lock_guard lock(m_mutex);
    if (!m_folder.empty() || !m_owner)
        return m_folder;
    return m_owner->folder();
}

void NodeObject::setFolder(std::string folder)
{
    std::lock_guard lock(m_mutex);
    m_folder = std::move(folder);
}

bool NodeObject::readTable(std::u16string const& name, NodeValue& out) const
{
    std::lock_guard lock(m_mutex);
    auto found = m_table.find(name);
    if (found == m_table.end())
        return false;
    if (auto unheld = found->second.unheld.get())
        out = NodeValue(NodeObjectHold(unheld));
    else
        out = found->second.value;
    return true;
}

NodeObject::Entry NodeObject::makeEntry(NodeValue value) const
{
    auto object = value.object();
    bool isWindow = m_kind == Kind::kInstance && object && object->kind() == Kind::kInstance;
    if (!isWindow)
        return {std::move(value), {}};
    return {NodeValue(), NodeObjectRef(object)};
}

/// The old entry is destroyed after the lock is released: an object may end with it.
bool NodeObject::writeTable(std::u16string const& name, NodeValue value)
{
    Entry entry = makeEntry(std::move(value));
    std::lock_guard lock(m_mutex);
    auto [at, isNew] = m_table.try_emplace(name);
    std::swap(at->second, entry);
    return isNew;
}

bool NodeObject::eraseTable(std::u16string const& name)
{
    std::unique_lock lock(m_mutex);
    auto erased = m_table.extract(name);
    lock.unlock(); // as above
    return !erased.empty();
}

std::vector<std::u16string> NodeObject::tableNames() const
{
    std::lock_guard lock(m_mutex);
    std::vector<std::u16string> names;
    for (auto& [name, entry] : m_table)
        names.push_back(name);
    return names;
}

std::u16string NodeObject::pageText() const
{
    std::lock_guard lock(m_mutex);
    return m_pageText;
}

void NodeObject::setPageText(std::u16string text)
{
    std::lock_guard lock(m_mutex);
    m_pageText = std::move(text);
}

std::map<std::u16string, ScriptMethod> NodeObject::ownMethods() const
{
    std::lock_guard lock(m_mutex);
    return m_ownMethods;
}

ScriptMethod NodeObject::ownMethod(std::u16string const& name) const
{
    std::lock_guard lock(m_mutex);
    auto found = m_ownMethods.find(name);
    return found == m_ownMethods.end() ? nullptr : found->second;
}

void NodeObject::publishMethods(std::shared_ptr<MethodNames const> names)
{
    std::lock_guard lock(m_mutex);
    m_methodNames = std::move(names);
}

bool NodeObject::getProperty(sstring const& name, ScriptValue* out)
{
    auto text = toText(name);
    auto& value = *static_cast<NodeValue*>(out);
    if (m_kind != Kind::kScript && readTable(text, value))
        return true;
    value.setNull();
    bool found = false;
    if (m_kind != Kind::kTable && m_isBound)
        m_engine.runAndWait([&] { found = m_engine.readScript(*this, text, value); });
    return found;
}

void NodeObject::setProperty(sstring const& name, ScriptValue* value)
{
    auto text = toText(name);
    NodeValue copy = value ? *static_cast<NodeValue*>(value) : NodeValue();
    takeWindowAsOwner(text, copy);
    if (m_kind != Kind::kScript) {
        if (writeTable(text, std::move(copy)) && m_kind == Kind::kInstance)
            m_engine.runOrPost([hold = NodeObjectHold(this), text] { hold->m_engine.defineAccessor(*hold, text); });
        return;
    }
    m_engine.runOrPost([hold = NodeObjectHold(this), text, copy] { hold->m_engine.writeScript(*hold, text, copy); });
}

void NodeObject::takeWindowAsOwner(std::u16string const& name, NodeValue const& value)
{
    auto window = value.object();
    if (name != kWindowProperty || m_kind == Kind::kTable || !window || window->kind() != Kind::kInstance)
        return;
    m_engine.runOrPost([hold = NodeObjectHold(this), owner = NodeObjectHold(window)] { hold->setOwner(owner.get()); });
}

void NodeObject::deleteProperty(sstring const& name)
{
    auto text = toText(name);
    if (m_kind != Kind::kScript)
        eraseTable(text);
    if (m_kind != Kind::kTable)
        m_engine.runOrPost([hold = NodeObjectHold(this), text] { hold->m_engine.eraseScript(*hold, text); });
}

bool NodeObject::hasProperty(sstring const& name)
{
    NodeValue ignored;
    return getProperty(name, &ignored);
}

void NodeObject::addMethod(sstring const& name, ScriptMethod method)
{
    auto text = toText(name);
    {
        std::lock_guard lock(m_mutex);
        m_ownMethods[text] = method;
    }
    m_engine.runOrPost(
        [hold = NodeObjectHold(this), text, method] { hold->m_engine.defineMethod(*hold, text, method); });
}

int NodeObject::beginSession(int)
{
    for (auto name : {u"currentWindow", u"currentControl", u"currentForm"})
        writeTable(name, NodeValue()); // until the component publishes one
    m_engine.setSession(this);
    return 1;
}

int NodeObject::endSession()
{
    m_engine.setSession(nullptr);
    return 1;
}

void NodeObject::windowState(int isOpen) { m_engine.windows().notice(*this, isOpen != 0); }

int NodeObject::readNumbers(double* out, int capacity)
{
    return m_kind == Kind::kScript && m_isBound && m_engine.isScriptThread()
               ? m_engine.readNumbers(*this, out, capacity)
               : -1;
}

void NodeObject::callMethod(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptValue* result)
{
    auto& receiver = self ? *static_cast<NodeObject*>(self) : *this;
    auto value = m_engine.callAndWait(*this, receiver, toText(name), static_cast<NodeArgs*>(args)->values());
    if (result)
        result->assign(value);
}

void NodeObject::callMethodAsync(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptCompletion done,
                                 void* context)
{
    auto call = m_engine.calls().add([done, context](NodeValue& value) { done(value, context); });
    auto receiver = self ? static_cast<NodeObject*>(self) : this;
    auto run = [hold = NodeObjectHold(this), receiver = NodeObjectHold(receiver), text = toText(name),
                values = static_cast<NodeArgs*>(args)->values(),
                call] { hold->m_engine.callScript(*call, *hold, *receiver, text, values); };
    m_engine.pump().post({std::move(run), {}, true});
}

void NodeObject::callHandler(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptObject* form,
                             ScriptObject* event, ScriptCompletion promised, ScriptCompletion done, void* context)
{
    auto call = m_engine.calls().add([done, context](NodeValue& value) { done(value, context); },
                                     NodeCall::Handler{promised, context});
    if (call->isDone())
        return; // the engine is closed
    auto receiver = self ? static_cast<NodeObject*>(self) : this;
    auto run = [hold = NodeObjectHold(this), receiver = NodeObjectHold(receiver),
                values = NodeObjectHold(static_cast<NodeObject*>(form)),
                what = NodeObjectHold(static_cast<NodeObject*>(event)), text = toText(name),
                list = static_cast<NodeArgs*>(args)->values(), call] {
        hold->m_engine.callHandler(*call, *hold, *receiver, {values.get(), what.get()}, text, list);
    };
    if (m_engine.isScriptThread())
        m_engine.runInsideCall(run);
    else
        m_engine.pump().post({std::move(run), {}, true});
}

void NodeObject::forgetHandler(void* context) { m_engine.calls().forget(context); }

bool NodeObject::hasMethod(sstring const& name)
{
    m_isAsked.store(true, std::memory_order_relaxed);
    auto text = toText(name);
    if (text.empty())
        return m_isFunction; // the empty name calls the function itself
    if (m_engine.isScriptThread())
        return ownMethod(text) || (m_class && m_class->hasMethod(text)) ||
               (m_isBound && m_engine.hasScriptMethod(*this, text));
    std::lock_guard lock(m_mutex);
    return m_methodNames && m_methodNames->contains(text);
}

unsigned NodeObject::methodNames(sstring* out, unsigned capacity)
{
    std::shared_ptr<MethodNames const> names;
    {
        std::lock_guard lock(m_mutex);
        names = m_methodNames;
    }
    if (!names)
        return 0;
    unsigned index = 0;
    for (auto const& name : *names)
        if (index < capacity)
            out[index++] = toSstring(name);
    return static_cast<unsigned>(names->size());
}

ScriptEngine* NodeObject::getEngine() { return &m_engine; }
