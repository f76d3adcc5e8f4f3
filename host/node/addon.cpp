// host/node/addon.cpp: what index.js gets from the addon. No part of the public interface: index.js is.
#include "host/node/nodeclass.h"
#include "host/node/nodecomponent.h"
#include "host/node/nodeengine.h"

#include <cassert>

namespace {

using Info = Napi::CallbackInfo const&;

NodeObject* handleArgument(Info info)
{
    assert(info[0].IsObject() || info[0].IsFunction());
    auto handle = NodeEngine::of(info.Env()).handleOf(info[0].As<Napi::Object>());
    return handle.get(); // the JavaScript object, an argument, keeps it
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

// tableGet(proxy, name), tableHas, tableSet, tableDelete, tableNames: the properties that lie with the handle.
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

/// session(): the session object, null as long as no window was made.
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

void report(Info info) { NodeEngine::of(info.Env()).helpers().report(info[0]); }

Napi::Value isWaiting(Info info)
{
    return Napi::Boolean::New(info.Env(), NodeEngine::of(info.Env()).pump().isWaiting());
}

void setNextFolder(Info info) { NodeEngine::of(info.Env()).setNextFolder(info[0].As<Napi::String>()); }

void setDefaultFolder(Info info)
{
    NodeEngine::of(info.Env()).services().files().setDefaultFolder(info[0].As<Napi::String>());
}

void mount(Info info)
{
    NodeEngine::of(info.Env()).services().files().mount(info[0].As<Napi::String>(), info[1].As<Napi::String>());
}

/// end(): the main program ends; see NodeComponent::end.
void end(Info info) { NodeComponent::the().end(NodeEngine::of(info.Env())); }

/// close(): no more calls into script.
void close(Info info) { NodeEngine::of(info.Env()).close(); }

/// The environment is going away: of a worker thread always, of the main program unless the process exits on the way.
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
    add("report", report);
    add("isWaiting", isWaiting);
    add("setNextFolder", setNextFolder);
    add("setDefaultFolder", setDefaultFolder);
    add("mount", mount);
    add("end", end);
    add("close", close);
    return exports;
}

} // namespace

NODE_API_MODULE(tarn, initialize)
