// host/node/nodeobject.h: one script object as the component sees it: a handle in C++, to which a JavaScript object
// belongs as long as the interpreter has a use for one.
//
// Three kinds. A Table is what the component creates for itself (session, form, rectangle): its properties are here,
// and script sees them through a proxy. An Instance belongs to one of the component's classes; properties that the
// component sets are here too and are accessors on the JavaScript side. A Script object is the application's own: its
// properties live in the interpreter, and other threads ask the script thread for them.
#pragma once

#include "host/hostslots.h"
#include "host/node/nodeprivate.h"
#include "host/node/nodevalue.h"

#include <napi.h>

#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

class NodeClass;
class NodeEngine;

class NodeObject final : public ScriptObjectSlots
{
public:
    enum class Kind
    {
        kTable,
        kInstance,
        kScript
    };
    using MethodNames = std::set<std::u16string, std::less<>>;

    /// A new object. `scriptClass` only for an Instance; it outlives the object.
    static NodeObjectRef make(NodeEngine& engine, Kind kind, NodeClass* scriptClass = nullptr);
    NodeObject(NodeObject const&) = delete;
    NodeObject& operator=(NodeObject const&) = delete;

    // Lifetime, for NodeObjectRef and NodeObjectHold. A reference keeps the handle; a hold is a reference that also
    // keeps the JavaScript object. Any thread; what is to be done after the last of them is posted to the script
    // thread.
    void addReference();
    void dropReference();
    void addHold();
    void dropHold();
    bool isHeld() const { return m_holds.load(std::memory_order_acquire) > 0; }

    /// Counts the objects of the engine: greater than that of every object made before.
    unsigned long long number() const { return m_number; }
    Kind kind() const { return m_kind; }
    bool isFunction() const { return m_isFunction; }
    NodeClass* scriptClass() const { return m_class; }
    NodeEngine& engine() const { return m_engine; }

    // The JavaScript side. Script thread only.
    /// Ties the handle to `object`; the object must keep one reference of the handle until it is collected.
    void bind(Napi::Object object);
    /// The JavaScript object, empty when there is none.
    Napi::Object script() const;
    /// The JavaScript object was collected.
    void unbind();
    /// From now on `owner`'s JavaScript object keeps this one's, instead of the holds of the component: a window and
    /// its controls refer to each other, and only the interpreter can tell when nobody else refers to either.
    void setOwner(NodeObject* owner);
    NodeObject* owner() const { return m_owner.get(); }
    /// Makes the reference to the JavaScript object strong or weak, as the holds demand, and ends an Instance that
    /// nobody holds and that has no JavaScript object.
    void updateLifetime();
    /// Runs the destroy handler of an Instance, once. The caller has a reference.
    void destroyInstance();

    /// The folder that relative file names start from: the object's own, its owner's, or "".
    std::string folder() const;
    void setFolder(std::string folder);

    // The table of properties. Any thread.
    bool readTable(std::u16string const& name, NodeValue& out) const;
    /// True when the table had no such name before.
    bool writeTable(std::u16string const& name, NodeValue value);
    bool eraseTable(std::u16string const& name);
    std::vector<std::u16string> tableNames() const;
    /// The text handed over by HostFormProp::setPageText.
    std::u16string pageText() const;
    void setPageText(std::u16string text);

    // Methods. Any thread.
    std::map<std::u16string, ScriptMethod> ownMethods() const;
    /// The added method of this name, null when there is none.
    ScriptMethod ownMethod(std::u16string const& name) const;
    void publishMethods(std::shared_ptr<MethodNames const> names);
    /// Whether somebody has ever asked hasMethod() of it. Any thread.
    bool isAsked() const { return m_isAsked.load(std::memory_order_relaxed); }

    // What the component calls.
    bool getProperty(sstring const& name, ScriptValue* out) override;
    void setProperty(sstring const& name, ScriptValue* value) override;
    void deleteProperty(sstring const& name) override;
    bool hasProperty(sstring const& name) override;
    void addMethod(sstring const& name, ScriptMethod method) override;
    ScriptPrivate* getPrivate() override { return &m_private; }
    void keep() override { addHold(); }
    void letGo() override { dropHold(); }
    int beginSession(int flags) override;
    int endSession() override;
    void windowState(int isOpen) override;
    int readNumbers(double* out, int capacity) override;
    void callMethod(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptValue* result) override;
    void callMethodAsync(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptCompletion done,
                         void* context) override;
    void callHandler(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptObject* form, ScriptObject* event,
                     ScriptCompletion promised, ScriptCompletion done, void* context) override;
    void forgetHandler(void* context) override;
    /// On the script thread, where the component asks before it adds a method: whether the object has one, whoever it
    /// is from. On other threads, which ask for pages: whether a page may call it (js/methods.js).
    bool hasMethod(sstring const& name) override;
    unsigned methodNames(sstring* out, unsigned capacity) override;
    ScriptEngine* getEngine() override;

private:
    /// A property value. A window in the table of one of its controls is not held (see setOwner).
    struct Entry
    {
        NodeValue value;
        NodeObjectRef unheld; // used instead of `value` when it is not empty
    };

    NodeObject(NodeEngine& engine, Kind kind, NodeClass* scriptClass);
    ~NodeObject();
    Entry makeEntry(NodeValue value) const;
    void updateLifetimeSoon();
    bool isStrong() const { return m_holds.load(std::memory_order_acquire) > 0 && !m_owner; }
    void takeWindowAsOwner(std::u16string const& name, NodeValue const& value);

    NodeEngine& m_engine;
    unsigned long long const m_number;
    Kind const m_kind;
    NodeClass* const m_class; // not owned
    bool m_isFunction = false;
    std::atomic<int> m_references{1};
    std::atomic<int> m_holds{0};
    std::atomic<bool> m_isBound{false}; // has a JavaScript object; changes on the script thread
    std::atomic<bool> m_isAsked{false};
    NodePrivate m_private;

    // Script thread.
    Napi::ObjectReference m_script;
    int m_unbindsBehind = 0; // calls of unbind() to come for objects that others have replaced since
    bool m_isStrong = false;
    bool m_isDestroyed = false;

    mutable std::mutex m_mutex; // guards what follows
    std::string m_folder;
    NodeObjectRef m_owner; // set once, on the script thread
    std::map<std::u16string, Entry> m_table;
    std::map<std::u16string, ScriptMethod> m_ownMethods;
    std::shared_ptr<MethodNames const> m_methodNames;
    std::u16string m_pageText;
};
