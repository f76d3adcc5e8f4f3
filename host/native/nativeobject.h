// host/native/nativeobject.h: a script object: a table of properties, a table of methods, and the component's private
// slot.
#pragma once

#include "host/hostslots.h"
#include "host/native/nativemethod.h"
#include "host/native/nativeprivate.h"

#include <atomic>
#include <filesystem>
#include <list>
#include <map>
#include <memory>
#include <mutex>

class NativeClass;
class NativeEngine;
struct NativeCallTarget;

/// Made by NativeEngine and NativePlatform, kept alive by handles. The tables may be used on any thread; methods run on
/// the script thread. So does the destroy handler of a component class: when the last handle goes on another thread,
/// the end of the object is posted to the script thread.
class NativeObject final : public ScriptObjectSlots
{
public:
    /// A new object that is kept once, for the caller. `scriptClass` is null for a plain object and outlives the
    /// object; `className` is for messages.
    static NativeObjectRef make(std::shared_ptr<NativeEngine> engine, NativeClass const* scriptClass,
                                std::string className);
    NativeObject(NativeObject const&) = delete;
    NativeObject& operator=(NativeObject const&) = delete;

    /// Adds a handler: any callable (NativeObject&, NativeArguments const&) that returns a value, a NativeLater or
    /// nothing. It shadows a method of the class. Any thread.
    template <typename Callable>
    void on(std::string_view name, Callable callable)
    {
        setHandler(name, nativeWrap<NativeObject>(std::move(callable)));
    }
    /// `on` for a handler that is a NativeHandler already; an empty one removes the method.
    void setHandler(std::string_view name, NativeHandler handler);

    /// Calls a method by name, as a script would, and waits for its result; null when there is none of this name.
    /// Script thread.
    NativeValue call(std::string_view name, NativeArguments args = {});
    /// Whether there is a method of this name. Any thread.
    bool has(std::string_view name) const;

    /// Reads a property: a dynamic one of the class, or one from the table; null when there is none. Dynamic ones on
    /// the script thread only.
    NativeValue get(std::string_view name);
    /// Sets a property; false when the class refuses it. Dynamic ones on the script thread only.
    bool set(std::string_view name, NativeValue const& value);
    /// Removes a property; false when the class refuses. Dynamic ones on the script thread only.
    bool remove(std::string_view name);

    /// Makes the object a function: its value tests as one, and a call with an empty method name runs `handler`.
    void makeCallable(NativeHandler handler);
    bool isCallable() const { return m_callable; }

    /// The folder that relative file names of this object belong to; empty (the default) means the host's.
    void setFolder(std::filesystem::path folder);
    std::filesystem::path folder() const;

    /// The name of the class, "Object" for a plain object.
    std::string const& className() const { return m_className; }
    /// "[object Class]" or "[function]".
    std::string describe() const;

    /// Runs the method `name` with `self` as the `this` object. Errors are reported, never thrown. Script thread.
    NativeResult invoke(NativeObject& self, std::u16string const& name, NativeArguments& args);

    // For the engine.
    /// Keeps the object unless its end has begun.
    bool tryKeep();
    /// Runs the create handler of the class; the destroy handler will run once from then on. Any thread.
    void runCreateHandler(NativeArguments& args);
    /// Runs the destroy handler if it has not run yet. Script thread.
    void runDestroyHandler();
    /// Empties both tables, which breaks cycles of objects and handlers.
    void clear();
    NativeClass const* scriptClass() const { return m_class; }

    // The table of the form service and of the slots below. Any thread.
    bool readProperty(std::u16string const& name, NativeValue& out) const;
    void writeProperty(std::u16string const& name, NativeValue value);
    void eraseProperty(std::u16string const& name);
    void setPageText(std::u16string text);
    /// The page text that the component handed over last (HostFormProp::setPageText), in UTF-8.
    std::string pageText() const;

    // What the component calls.
    bool getProperty(sstring const& name, ScriptValue* out) override;
    /// The property "window" does not hold its window: a control belongs to a page that the window owns, so that
    /// neither would ever end. It reads as null once the window is gone.
    void setProperty(sstring const& name, ScriptValue* value) override;
    void deleteProperty(sstring const& name) override;
    bool hasProperty(sstring const& name) override;
    void addMethod(sstring const& name, ScriptMethod method) override;
    ScriptPrivate* getPrivate() override { return &m_private; }
    void keep() override;
    void letGo() override;
    int beginSession(int flags) override;
    int endSession() override;
    void windowState(int isOpen) override;
    void callMethod(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptValue* result) override;
    void callMethodAsync(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptCompletion done,
                         void* context) override;
    void callHandler(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptObject* form, ScriptObject* event,
                     ScriptCompletion promised, ScriptCompletion done, void* context) override;
    bool hasMethod(sstring const& name) override;
    ScriptEngine* getEngine() override;

private:
    NativeObject(std::shared_ptr<NativeEngine> engine, NativeClass const* scriptClass, std::string className);
    ~NativeObject();

    /// Whether the class has a dynamic property of this name.
    bool isDynamic(NativeValue const& name);
    void end();
    void finishOnScriptThread();
    NativeCallTarget targetOf(ScriptObject* self, sstring const& name, ScriptArgs* args);
    NativeMethod findMethod(std::u16string const& name) const;
    void setMethod(std::u16string name, NativeMethod method);
    NativeResult run(NativeMethod const& method, NativeObject& self, NativeArguments& args);
    NativeResult runReported(NativeMethod const& method, NativeObject& self, std::u16string const& name,
                             NativeArguments& args);
    NativeValue callAndWait(NativeObject& self, std::u16string const& name, NativeArguments& args);

    enum class Stage
    {
        kPlain,
        kCreated,
        kDestroyed
    };

    /// A property is a value or, for a window that must not be held, the number of its object.
    struct Property
    {
        NativeValue value;
        unsigned long long unheld = 0; // 0: the value counts
    };
    void exchangeProperty(std::u16string const& name, Property property);

    std::shared_ptr<NativeEngine> const m_engine;
    unsigned long long m_number; // in the engine's table of objects
    NativeClass const* const m_class;
    std::string const m_className;
    std::atomic<int> m_keeps{1};
    std::atomic<Stage> m_stage{Stage::kPlain};
    std::atomic<bool> m_callable{false};
    NativePrivate m_private;
    mutable std::mutex m_mutex; // guards everything below
    std::map<std::u16string, Property> m_properties;
    std::map<std::u16string, NativeMethod> m_methods;
    std::filesystem::path m_folder;
    std::u16string m_pageText;
};
