// host/node/nodemethodnames.cpp: see the header.
#include "host/node/nodemethodnames.h"

#include "host/node/nodehelpers.h"
#include "host/node/nodeobject.h"

#include <cassert>
#include <memory>
#include <utility>

void NodeMethodNames::track(NodeObject& object)
{
    assert(m_thread.isCurrent());
    m_tracked.insert(&object);
    m_fresh.insert(&object);
}

void NodeMethodNames::untrack(NodeObject& object)
{
    assert(m_thread.isCurrent());
    m_tracked.erase(&object);
    m_fresh.erase(&object);
}

void NodeMethodNames::publish()
{
    std::vector<NodeObjectRef> objects;
    for (auto object : m_tracked)
        if (object->isAsked() || !object->owner() || m_fresh.contains(object))
            objects.emplace_back(object);
    m_fresh.clear();
    publishEach(objects);
}

void NodeMethodNames::publishFresh(NodeObject* self)
{
    auto fresh = std::exchange(m_fresh, {});
    for (auto object = self; object; object = object->owner())
        fresh.insert(object);
    publishEach({fresh.begin(), fresh.end()});
}

/// Looking at an object may run script, that of a Proxy: objects may come and go meanwhile, so the caller keeps these.
void NodeMethodNames::publishEach(std::vector<NodeObjectRef> const& objects)
{
    for (auto& object : objects)
        publishOne(*object);
}

void NodeMethodNames::publishOne(NodeObject& object)
{
    Napi::HandleScope scope(m_env);
    assert(m_thread.isCurrent());
    auto script = object.script();
    if (script.IsEmpty())
        return;
    auto changed = m_helpers.call("scanMethods", {script});
    if (changed.IsEmpty() || !changed.IsArray())
        return;
    auto list = changed.As<Napi::Array>();
    auto names = std::make_shared<NodeObject::MethodNames>();
    for (uint32_t i = 0; i < list.Length(); ++i)
        if (Napi::Value const name = list.Get(i); name.IsString())
            names->insert(name.As<Napi::String>().Utf16Value());
    object.publishMethods(std::move(names));
}
