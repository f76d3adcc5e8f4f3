// host/node/addon.cpp: the functions that the JavaScript part of the package calls. Scripts do not see them.
#include "host/node/nodeclass.h"
#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"
#include "page/guinearest.h"

#include <cassert>
#include <cstdio>

#include <unistd.h>

namespace {

using Info = Napi::CallbackInfo const&;

NodeObject* handleArgument(Info info)
{
    assert(info[0].IsObject() || info[0].IsFunction());
    auto handle = NodeEngine::of(info.Env()).handleOf(info[0].As<Napi::Object>());
    return handle.get(); // kept alive by the JavaScript object, which is an argument
}

std::u16string textArgument(Info info, size_t index)
{
    assert(info[index].IsString());
    return info[index].As<Napi::String>().Utf16Value();
}

/// load(path): loads the component library and returns its classes by name.
Napi::Value load(Info info)
{
    auto env = info.Env();
    auto& engine = NodeEngine::of(env);
    auto error = NodeComponent::the().load(info[0].As<Napi::String>());
    if (!error.empty()) {
        Napi::Error::New(env, error).ThrowAsJavaScriptException();
        return {};
    }
    auto classes = Napi::Object::New(env);
    for (auto name = NodeComponent::the().classNames(); *name; ++name) {
        auto& made = engine.addClass(std::make_unique<NodeClass>(engine, *name));
        if (NodeComponent::the().configure(made))
            classes.Set(*name, made.build());
    }
    return classes;
}

/// start(helpers)
void start(Info info) { NodeEngine::of(info.Env()).start(info[0].As<Napi::Object>()); }

/// setPublicClass(name, class): what stands for the component's objects of that class.
void setPublicClass(Info info)
{
    auto known = NodeEngine::of(info.Env()).findClass(textArgument(info, 0));
    assert(known && info[1].IsFunction());
    known->setPublicClass(info[1].As<Napi::Function>());
}

// tableGet(proxy, name), tableHas, tableSet, tableDelete, tableNames: the properties in the table of a handle.
Napi::Value tableGet(Info info)
{
    NodeValue value;
    if (!handleArgument(info)->readTable(textArgument(info, 1), value))
        return info.Env().Undefined();
    return NodeEngine::of(info.Env()).toScript(value);
}

Napi::Value tableHas(Info info)
{
    NodeValue ignored;
    return Napi::Boolean::New(info.Env(), handleArgument(info)->readTable(textArgument(info, 1), ignored));
}

void tableSet(Info info)
{
    handleArgument(info)->writeTable(textArgument(info, 1), NodeEngine::of(info.Env()).fromScript(info[2]));
}

Napi::Value tableDelete(Info info)
{
    return Napi::Boolean::New(info.Env(), handleArgument(info)->eraseTable(textArgument(info, 1)));
}

Napi::Value tableNames(Info info)
{
    auto names = handleArgument(info)->tableNames();
    auto list = Napi::Array::New(info.Env(), names.size());
    for (size_t i = 0; i < names.size(); ++i)
        list.Set(static_cast<uint32_t>(i), Napi::String::New(info.Env(), names[i]));
    return list;
}

Napi::Value pageText(Info info) { return Napi::String::New(info.Env(), handleArgument(info)->pageText()); }

/// session(): the session object, null until the first window has been made.
Napi::Value session(Info info)
{
    auto& engine = NodeEngine::of(info.Env());
    return engine.toScript(engine.session());
}

/// complete(id, value): a call of a script method has ended.
void complete(Info info)
{
    assert(info[0].IsNumber());
    auto& engine = NodeEngine::of(info.Env());
    engine.calls().complete(info[0].As<Napi::Number>().Uint32Value(), engine.fromScript(info[1]));
}

/// promised(id): the handler that was called under this number has returned a promise.
void promised(Info info) { NodeEngine::of(info.Env()).calls().notePromise(info[0].As<Napi::Number>().Uint32Value()); }

/// isInHandler(form): whether a handler of the page with this form is running.
Napi::Value isInHandler(Info info)
{
    return Napi::Boolean::New(info.Env(), NodeEngine::of(info.Env()).runningForm() == handleArgument(info));
}

/// isOpen(window): whether the window counts as open now.
Napi::Value isOpen(Info info)
{
    return Napi::Boolean::New(info.Env(), NodeEngine::of(info.Env()).windows().contains(*handleArgument(info)));
}

void report(Info info) { NodeEngine::of(info.Env()).helpers().report(info[0]); }

Napi::Value isWaiting(Info info)
{
    return Napi::Boolean::New(info.Env(), NodeEngine::of(info.Env()).pump().isWaiting());
}

void runMicrotasks(Info info) { NodeEngine::of(info.Env()).runMicrotasks(); }

void setNextFolder(Info info) { NodeEngine::of(info.Env()).setNextFolder(info[0].As<Napi::String>()); }

void setDefaultFolder(Info info)
{
    NodeEngine::of(info.Env()).services().files().setDefaultFolder(info[0].As<Napi::String>());
}

void mount(Info info)
{
    NodeEngine::of(info.Env()).services().files().mount(info[0].As<Napi::String>(), info[1].As<Napi::String>());
}

NodeFiles& filesOf(Info info) { return NodeEngine::of(info.Env()).services().files(); }

/// confine(folder), allowFile(path), addPage(path, bytes), forgetPage(path): see NodeFiles.
void confine(Info info) { filesOf(info).confine(info[0].As<Napi::String>()); }
void allowFile(Info info) { filesOf(info).allow(info[0].As<Napi::String>()); }
void addPage(Info info) { filesOf(info).addPage(info[0].As<Napi::String>(), info[1].As<Napi::String>()); }
void forgetPage(Info info) { filesOf(info).forgetPage(info[0].As<Napi::String>()); }

/// fileName(folder or object, name): the full path of a file that is named relative to a folder, or to that of the
/// script that made an object; "" for a vfs:// name that leads nowhere.
Napi::Value fileName(Info info)
{
    std::string const folder = info[0].IsString() ? info[0].As<Napi::String>() : handleArgument(info)->folder();
    return Napi::String::New(info.Env(), filesOf(info).resolve(folder, info[1].As<Napi::String>()));
}

/// nearestWord(word, words): the one that was probably meant, "" when none comes close. Case counts.
Napi::Value nearestWord(Info info)
{
    auto const list = info[1].As<Napi::Array>();
    std::vector<std::string> words;
    for (uint32_t i = 0; i < list.Length(); ++i)
        words.push_back(list.Get(i).As<Napi::String>());
    std::string const word = info[0].As<Napi::String>();
    return Napi::String::New(info.Env(), std::string(guiNearestWord(word, {words.begin(), words.end()})));
}

/// ensureStarted(caller): starts the component; an error is about `caller`.
void ensureStarted(Info info)
{
    auto error = NodeComponent::the().ensureStarted(NodeEngine::of(info.Env()));
    if (!error.empty())
        Napi::Error::New(info.Env(), info[0].As<Napi::String>().Utf8Value() + ": " + error)
            .ThrowAsJavaScriptException();
}

/// dropHold(): open windows do not keep the process alive any more.
void dropHold(Info info) { NodeEngine::of(info.Env()).dropHold(); }

/// callSession(name, arguments): a method that the component has added to the session object.
Napi::Value callSession(Info info)
{
    auto& engine = NodeEngine::of(info.Env());
    auto const session = engine.session();
    auto const name = textArgument(info, 0);
    auto const method = session ? session->ownMethod(name) : nullptr;
    return method ? engine.invoke(method, session, toUtf8(name), info[1].As<Napi::Array>()) : info.Env().Null();
}

/// waitFor(start): calls start(id) and returns the value with which complete(id) is called, after that.
Napi::Value waitFor(Info info) { return NodeEngine::of(info.Env()).waitFor(info[0].As<Napi::Function>()); }

/// end(): the main program ends; see NodeComponent::end.
void end(Info info) { NodeComponent::the().end(NodeEngine::of(info.Env())); }

/// leave(code): ends the process at once.
void leave(Info info)
{
    std::fflush(nullptr);
    _exit(info[0].As<Napi::Number>().Int32Value());
}

/// close(): no more calls into script.
void close(Info info) { NodeEngine::of(info.Env()).close(); }

/// Called when an environment ends: for a worker thread always, for the main program unless the process exits first.
void onCleanup(napi_async_cleanup_hook_handle handle, void* data)
{
    auto& engine = *static_cast<NodeEngine*>(data);
    NodeComponent::the().end(engine);
    engine.close();
    auto remove = [handle] { napi_remove_async_cleanup_hook(handle); };
    if (engine.pump().loop())
        engine.pump().stop(remove);
    else
        remove();
}

Napi::Object initialize(Napi::Env env, Napi::Object exports)
{
    auto engine = new NodeEngine(env); // never freed, see there
    napi_set_instance_data(env, engine, nullptr, nullptr);
    napi_add_async_cleanup_hook(env, onCleanup, engine, nullptr);
    auto add = [&](char const* name, auto function) { exports.Set(name, Napi::Function::New(env, function, name)); };
    add("load", load);
    add("start", start);
    add("setPublicClass", setPublicClass);
    add("tableGet", tableGet);
    add("tableHas", tableHas);
    add("tableSet", tableSet);
    add("tableDelete", tableDelete);
    add("tableNames", tableNames);
    add("pageText", pageText);
    add("session", session);
    add("complete", complete);
    add("promised", promised);
    add("isInHandler", isInHandler);
    add("isOpen", isOpen);
    add("report", report);
    add("isWaiting", isWaiting);
    add("runMicrotasks", runMicrotasks);
    add("setNextFolder", setNextFolder);
    add("setDefaultFolder", setDefaultFolder);
    add("mount", mount);
    add("confine", confine);
    add("allowFile", allowFile);
    add("addPage", addPage);
    add("forgetPage", forgetPage);
    add("fileName", fileName);
    add("nearestWord", nearestWord);
    add("ensureStarted", ensureStarted);
    add("dropHold", dropHold);
    add("callSession", callSession);
    add("waitFor", waitFor);
    add("end", end);
    add("leave", leave);
    add("close", close);
    return exports;
}

} // namespace

NODE_API_MODULE(tarn, initialize)
