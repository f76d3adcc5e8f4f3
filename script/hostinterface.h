// script/hostinterface.h: everything the component and its host know of each other. The host implements these classes,
// the component calls them; docs/host-abi.md is the reference of every position.
//
// The order of the virtual functions is the binary contract: the function at position n (counted from 1) is slot n of
// the vtable. Each interface is pure virtual functions and nothing else; objects are made and destroyed by the host
// alone, so the destructors are protected and not virtual. Positions that nobody uses are named reservedN: a host
// implements them as empty functions. Positions marked "extension" are part of the contract like all others.
//
// Threads: every function may be called on the script thread and on the GUI thread unless it says otherwise, and never
// while the component holds its lock.
#pragma once

#include "foundation/vela-string.h"

class LibManager;
class ScriptArgs;
class ScriptClass;
class ScriptEngine;
class ScriptObject;
class ScriptPrivate;
class ScriptPump;
class ScriptRuntime;
class ScriptValue;

/// The shape of every function that script can call, and of a class's create and destroy handlers. `self` is the `this`
/// object, `data` its private slot; the result is written into `result`, which starts as null. Script thread.
using ScriptMethod = void (*)(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                              ScriptValue& result);

/// Called by the host when an asynchronous call has ended, exactly once per call, on any thread. `result` is null when
/// the method was missing, threw, or the host is shutting down. It stays the host's.
using ScriptCompletion = void (*)(ScriptValue& result, void* context);

/// Asked whether the class has a dynamic property of this name; true accepts it. `isStatic` is set when the property is
/// looked up on the class itself and clear when it is looked up on an instance.
using ScriptAddProp = bool (*)(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                               bool isStatic);
/// Asked whether the property may be deleted; false refuses.
using ScriptDelProp = bool (*)(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                               bool isStatic);
/// Reads a dynamic property into `out`; false when there is none of this name.
using ScriptGetProp = bool (*)(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                               ScriptValue& out, bool isStatic);
/// Writes a dynamic property; false refuses the value.
using ScriptSetProp = bool (*)(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                               ScriptValue const& value, bool isStatic);

/// Identifiers of the three services that LibManager::getInterface hands out. The lower-case "c" in the third is exact.
inline constexpr char kHostLoadFileGuid[] = "FE74031B-EB9E-4F60-9BDE-7CE53078484D";
inline constexpr char kHostFormPropGuid[] = "8DCD1EE9-5B56-41AE-A9C6-84C0013D4932";
inline constexpr char kHostPlatformGuid[] = "385251A2-815A-419c-8C94-19CD16E03983";

/// The key under which the component stores its records in a ScriptPrivate.
inline constexpr char kPrivateKey[] = "tarn";

/// What the host passes to `Init` and to every ScriptMethod: the door to its services.
class LibManager
{
public:
    /// 1: the service with the identifier that `*guid` points to, as a pointer to its interface, or null. Never owned
    /// by the caller. All three services must exist.
    virtual void* getInterface(char const** guid) = 0;

protected:
    ~LibManager() = default;
};

/// A script class while the component configures it (`ConfigCompClass`). Script thread.
class ScriptClass
{
public:
    /// 1: the handler that runs when script makes an object of the class.
    virtual void setCreateHandler(ScriptMethod handler) = 0;
    /// 2: the handler that runs when an object of the class is destroyed.
    virtual void setDestroyHandler(ScriptMethod handler) = 0;
    /// 3: handlers of the dynamic properties.
    virtual void setPropertyHandlers(ScriptAddProp onAddProp, ScriptDelProp onDelProp, ScriptGetProp onGetProp,
                                     ScriptSetProp onSetProp) = 0;
    /// 4: declares an instance method.
    virtual void addMethod(sstring const& name, ScriptMethod method) = 0;
    /// 5: declares a function of the class itself, called without an instance.
    virtual void addClassMethod(sstring const& name, ScriptMethod method) = 0;

protected:
    ~ScriptClass() = default;
};

/// The arguments of one call.
class ScriptArgs
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    virtual void reserved5() = 0;
    /// 6: adds a copy of `value` at the end.
    virtual void append(ScriptValue* value) = 0;
    /// 7: number of arguments.
    virtual int count() = 0;
    /// 8: the argument at `index` (from 0), null beyond the last. Owned by the list.
    virtual ScriptValue* get(int index) = 0;

protected:
    ~ScriptArgs() = default;
};

/// A script value: null, boolean, number, string, object or function. Made and destroyed by HostPlatform or
/// ScriptEngine.
class ScriptValue
{
public:
    /// 1: can be called as a function.
    virtual bool isFunction() const = 0;
    /// 2
    virtual bool isNumber() const = 0;
    /// 3
    virtual bool isBool() const = 0;
    /// 4 (extension) null or undefined.
    virtual bool isNull() const = 0;
    /// 5
    virtual bool isString() const = 0;
    /// 6: an object that is no function.
    virtual bool isObject() const = 0;
    /// 7 (extension) a number without a fraction that fits into a signed 32-bit integer.
    virtual bool isInt() const = 0;
    /// 8: the number, rounded toward zero and limited to 32 bits; `fallback` for a value that is no number.
    virtual int toInt(int fallback) const = 0;
    /// 9: the boolean, or whether a number is not zero; `fallback` for anything else.
    virtual bool toBool(int fallback) const = 0;
    /// 10: the number; `fallback` for a value that is no number.
    virtual double toNumber(double fallback) const = 0;
    /// 11: the value as text, "" for null. `flags` is always 0.
    virtual sstring toString(int flags) const = 0;
    /// 12: the object or function, null for anything else. Borrowed: valid as long as this value holds it;
    /// ScriptObject::keep makes it last. `flags` is always 0.
    virtual ScriptObject* toObject(int flags) const = 0;
    virtual void reserved13() = 0;
    /// 14
    virtual void setNull() = 0;
    /// 15 (extension)
    virtual void setInt(int value) = 0;
    /// 16
    virtual void setBool(int value) = 0;
    /// 17 (extension)
    virtual void setNumber(double value) = 0;
    /// 18
    virtual void setString(sstring const& value) = 0;
    /// 19: holds `value` (a null pointer: null) until the value changes.
    virtual void setObject(ScriptObject* value) = 0;
    virtual void reserved20() = 0;
    /// 21: becomes a copy of `other`.
    virtual void assign(ScriptValue const& other) = 0;

    /// The component's own: assigns through position 21. Takes no slot.
    ScriptValue& operator=(ScriptValue const& other)
    {
        assign(other);
        return *this;
    }

protected:
    ScriptValue() = default;
    ScriptValue(ScriptValue const&) = default;
    ~ScriptValue() = default;
};

/// A script object. The host hands out the same pointer for the same object as long as anybody keeps it.
class ScriptObject
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    virtual void reserved5() = 0;
    virtual void reserved6() = 0;
    virtual void reserved7() = 0;
    virtual void reserved8() = 0;
    virtual void reserved9() = 0;
    /// 10 (extension) reads a property into `out`; false, and null in `out`, when the object has none of this name.
    virtual bool getProperty(sstring const& name, ScriptValue* out) = 0;
    /// 11: sets a property to a copy of `value`.
    virtual void setProperty(sstring const& name, ScriptValue* value) = 0;
    /// 12 (extension) removes a property; no error when there is none.
    virtual void deleteProperty(sstring const& name) = 0;
    /// 13 (extension) whether the object has a property of this name.
    virtual bool hasProperty(sstring const& name) = 0;
    /// 14 (extension) adds a method to this one object. It shadows a class method of the same name.
    virtual void addMethod(sstring const& name, ScriptMethod method) = 0;
    /// 15 (extension) the object's private slot, never null, owned by the object.
    virtual ScriptPrivate* getPrivate() = 0;
    /// 16 (extension) holds the object, so that it outlives the value it came from. Counted.
    virtual void keep() = 0;
    /// 17 (extension) lets go of one `keep`.
    virtual void letGo() = 0;
    /// 18: host book-keeping: called with 0 right after the session object was made. The result is ignored.
    virtual int beginSession(int flags) = 0;
    /// 19: host book-keeping: called once before the session object is destroyed. The result is ignored.
    virtual int endSession() = 0;
    /// 20 (extension): the window that this object stands for was opened (1) or has closed (0). A host keeps its
    /// process alive while a window is open. GUI thread, outside the component lock; the host returns at once.
    virtual void windowState(int isOpen) = 0;
    /// 21 (extension): the numbers that an array holds, those of arrays inside it in their place: stores as many as fit
    /// into `out` and returns how many there are. -1 when the object is no array, holds something else, or the host
    /// does not know. Script thread.
    virtual int readNumbers(double* out, int capacity) = 0;
    /// 22 (extension): the names for which `hasMethod` says yes: stores as many as fit into `out` and returns how many
    /// there are; 0 when the host does not know. Never waits for the script thread. Any thread.
    virtual unsigned methodNames(sstring* out, unsigned capacity) = 0;
    virtual void reserved23() = 0;
    /// 24: calls a script method of this object and waits. Script thread only. `result` is null when the method is
    /// missing or throws; the host reports the error to the user. An empty name on a function object calls the function
    /// itself; position 26 alike.
    virtual void callMethod(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptValue* result) = 0;
    virtual void reserved25() = 0;
    /// 26: starts a call of a script method and returns; the method runs on the script thread, and `done` is called
    /// with the result and `context` when it has ended. Any thread. `args` may be destroyed as soon as this returns.
    virtual void callMethodAsync(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptCompletion done,
                                 void* context) = 0;
    /// 27 (extension): calls the handler `name` of this object, which a page asks for. On the script thread the handler
    /// runs before this returns, on any other thread as at position 26. While it runs, script finds the values of the
    /// page in `form` (may be null), as properties that are plain data until it returns, and `event` (may be null) as
    /// the session's property "event", which is not there otherwise. `done` is called exactly once
    /// with the result. A handler that returns a promise is not waited for: `promised` is called with null, and `done`
    /// when the promise has settled, on the script thread. A host without promises never calls `promised`.
    virtual void callHandler(ScriptObject* self, sstring const& name, ScriptArgs* args, ScriptObject* form,
                             ScriptObject* event, ScriptCompletion promised, ScriptCompletion done, void* context) = 0;
    /// 28 (extension): nobody waits any more for the promise of the handler that was called with this context: the host
    /// forgets it, and need not call `done`. Any thread, on any object.
    virtual void forgetHandler(void* context) = 0;
    virtual void reserved29() = 0;
    /// 30: whether the object has a method of this name. Never waits for the script thread: on another thread it
    /// answers from what the script thread last published.
    virtual bool hasMethod(sstring const& name) = 0;
    virtual void reserved31() = 0;
    virtual void reserved32() = 0;
    virtual void reserved33() = 0;
    /// 34: the engine that the object lives in.
    virtual ScriptEngine* getEngine() = 0;

protected:
    ~ScriptObject() = default;
};

/// The slot of one script object in which the component keeps a pointer of its own.
class ScriptPrivate
{
public:
    virtual void reserved1() = 0;
    /// 2: the pointer stored under `key`, or null.
    virtual void* getData(char const* key) = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    /// 5: stores `data`; the host never reads what it points to and never frees it.
    virtual void setData(char const* key, void* data) = 0;

protected:
    ~ScriptPrivate() = default;
};

/// Runs script work on the script thread while that thread waits inside the component.
class ScriptPump
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    virtual void reserved5() = 0;
    virtual void reserved6() = 0;
    virtual void reserved7() = 0;
    virtual void reserved8() = 0;
    virtual void reserved9() = 0;
    /// 10: runs what is ready and returns without waiting. `flags` is always 0. Script thread.
    virtual void runOnce(int flags) = 0;
    virtual void reserved11() = 0;
    virtual void reserved12() = 0;
    virtual void reserved13() = 0;
    /// 14: one step: returns when there was work, when it was woken, or after at most 50 ms. Script thread.
    virtual void step() = 0;
    /// 15 (extension) makes a step that is waiting, or else the next one, return. Any thread; never blocks. Wakes are
    /// not counted.
    virtual void wake() = 0;

protected:
    ~ScriptPump() = default;
};

/// What an engine runs in; the component asks it for nothing but the message pump.
class ScriptRuntime
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    virtual void reserved5() = 0;
    virtual void reserved6() = 0;
    virtual void reserved7() = 0;
    virtual void reserved8() = 0;
    virtual void reserved9() = 0;
    virtual void reserved10() = 0;
    virtual void reserved11() = 0;
    virtual void reserved12() = 0;
    virtual void reserved13() = 0;
    virtual void reserved14() = 0;
    virtual void reserved15() = 0;
    virtual void reserved16() = 0;
    virtual void reserved17() = 0;
    virtual void reserved18() = 0;
    virtual void reserved19() = 0;
    virtual void reserved20() = 0;
    virtual void reserved21() = 0;
    virtual void reserved22() = 0;
    virtual void reserved23() = 0;
    virtual void reserved24() = 0;
    virtual void reserved25() = 0;
    virtual void reserved26() = 0;
    virtual void reserved27() = 0;
    virtual void reserved28() = 0;
    virtual void reserved29() = 0;
    virtual void reserved30() = 0;
    virtual void reserved31() = 0;
    virtual void reserved32() = 0;
    virtual void reserved33() = 0;
    virtual void reserved34() = 0;
    /// 35: the message pump of the script thread, or null. `flags` is always 0. Lives as long as the runtime.
    virtual ScriptPump* getPump(int flags) = 0;

protected:
    ~ScriptRuntime() = default;
};

/// One interpreter. Lives at least as long as the component.
class ScriptEngine
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    /// 4: the runtime of this engine.
    virtual ScriptRuntime* getRuntime() = 0;
    /// 5 (extension) a new instance of the named class, one of the component's ("GuiControl") or one that the
    /// application registered; its create handler has run. Kept once for the caller (`letGo` ends it); null when there
    /// is no such class or its constructor throws. Any thread for the component's classes, without waiting for the
    /// script thread; script thread for the application's.
    virtual ScriptObject* createInstance(sstring const& className) = 0;
    /// 6 (extension): 1 when the form has booleans for check boxes without a value, and numbers, or null, for controls
    /// of numbers; 0 when it has texts for both, and null for a box that is off. Any thread.
    virtual int hasFormBooleans() = 0;
    virtual void reserved7() = 0;
    virtual void reserved8() = 0;
    virtual void reserved9() = 0;
    /// 10: a new value, null at first, owned by the engine until it is released.
    virtual ScriptValue* makeValue() = 0;
    virtual void reserved11() = 0;
    virtual void reserved12() = 0;
    virtual void reserved13() = 0;
    /// 14: releases a value made by position 10.
    virtual void releaseValue(ScriptValue* value) = 0;

protected:
    ~ScriptEngine() = default;
};

/// The factory service: everything made here is released here. Any thread.
class HostPlatform
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    /// 5 (extension): the connection to the display is lost, and the toolkit is about to end the process. True when the
    /// host ends it instead; the GUI thread then does nothing more, so that no function of the component may be called.
    /// GUI thread.
    virtual bool displayLost() = 0;
    /// 6: a new plain object.
    virtual ScriptObject* createObject(ScriptEngine* engine) = 0;
    /// 7: an empty argument list.
    virtual ScriptArgs* createArgs(ScriptEngine* engine) = 0;
    /// 8: a value, null at first.
    virtual ScriptValue* createValue(ScriptEngine* engine) = 0;
    /// 9 (extension): how much memory all decoded pictures and movies may take together, in MiB; 0: as usual, 512.
    virtual unsigned pictureMemory() = 0;
    /// 10
    virtual void destroyObject(ScriptObject* object) = 0;
    /// 11
    virtual void destroyArgs(ScriptArgs* args) = 0;
    /// 12
    virtual void destroyValue(ScriptValue* value) = 0;

protected:
    ~HostPlatform() = default;
};

/// The file service. Any thread.
class HostLoadFile
{
public:
    virtual void reserved1() = 0;
    virtual void reserved2() = 0;
    virtual void reserved3() = 0;
    virtual void reserved4() = 0;
    virtual void reserved5() = 0;
    virtual void reserved6() = 0;
    virtual void reserved7() = 0;
    virtual void reserved8() = 0;
    /// 9: rewrites `path` into the full path of the file, relative to the script that owns `relativeTo` (null: the
    /// program's own folder). The caller has reserved 1024 units in `path`.
    virtual void resolvePath(ScriptObject* relativeTo, sstring& path) = 0;
    /// 10: the bytes of a file: a pointer and a length that stay valid until the same thread's next call of this
    /// function. False when the file can not be read; nothing is printed then, the caller reports it.
    virtual bool readFile(ScriptObject* relativeTo, sstring path, void const** data, unsigned* length) = 0;
    /// 11: called once when the component starts.
    virtual void attach() = 0;
    /// 12: called once when the component ends.
    virtual void release() = 0;

protected:
    ~HostLoadFile() = default;
};

/// The form-property service: the values of a window's controls as properties of its form object. Any thread; backed by
/// a plain table, so that no call waits for the script thread.
class HostFormProp
{
public:
    /// 1 (extension) reads a property into `out`; false, and null in `out`, when the form has none of this name.
    virtual bool readProperty(ScriptObject* form, sstring const& name, ScriptValue* out) = 0;
    /// 2 (extension) sets a property to a copy of `value`.
    virtual void writeProperty(ScriptObject* form, sstring const& name, ScriptValue* value) = 0;
    /// 3 (extension) removes a property; no error when there is none.
    virtual void eraseProperty(ScriptObject* form, sstring const& name) = 0;
    /// 4 (extension) hands the text of the page that is being filtered to the host, before and after each filter.
    virtual void setPageText(ScriptObject* form, sstring const& text) = 0;

protected:
    ~HostFormProp() = default;
};

// The four entry points that libtarn.so exports.
extern "C" {
/// Makes the component and starts its GUI thread; returns when that thread runs. The calling thread becomes the script
/// thread. A second call does nothing. Always 1.
__attribute__((visibility("default"))) int Init(LibManager& manager);
/// Waits until no call into script made for a page is in flight, then ends the component and its GUI thread. The host
/// has completed every pending asynchronous call before. Script thread. Always 1.
__attribute__((visibility("default"))) int Shutdown();
/// The five class names, in order, and a null pointer at the end. Static; never freed.
__attribute__((visibility("default"))) char const* const* GetCompNames();
/// Declares the class called `name` (compared without regard to case) through `scriptClass`. 0 for an unknown name.
/// "GuiWindowExtension" and "GuiControlExtension" declare methods of these two classes that are no script's to call: a
/// host with properties and promises makes those of them (docs/host-abi.md).
/// `context` is not used.
__attribute__((visibility("default"))) int ConfigCompClass(void* context, char const* name, ScriptClass& scriptClass);
}
