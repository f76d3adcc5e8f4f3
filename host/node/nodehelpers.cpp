// host/node/nodehelpers.cpp: see the header.
#include "host/node/nodehelpers.h"

#include <cassert>

void NodeHelpers::start(Napi::Object helpers)
{
    assert(m_thread.isCurrent() && m_functions.empty());
    auto names = helpers.GetPropertyNames();
    for (uint32_t i = 0; i < names.Length(); ++i) {
        auto name = names.Get(i).As<Napi::String>().Utf8Value();
        auto& kept = m_functions[name];
        kept = Napi::Persistent(helpers.Get(name).As<Napi::Function>());
        kept.SuppressDestruct();
    }
}

Napi::FunctionReference const& NodeHelpers::find(char const* name) const
{
    auto found = m_functions.find(name);
    assert(m_thread.isCurrent());
    assert(found != m_functions.end()); // else index.js does not pass this function
    return found->second;
}

Napi::Value NodeHelpers::call(char const* name, std::initializer_list<napi_value> args)
{
    if (m_hasGivenUp)
        return {};
    auto result = find(name).Call(args);
    if (!m_env.IsExceptionPending())
        return result;
    reportPending();
    return {}; // what the wrapper gives for a call that threw is not empty
}

bool NodeHelpers::ask(char const* name, std::initializer_list<napi_value> args, bool otherwise)
{
    Napi::Value const answer = call(name, args);
    bool value = otherwise;
    return !answer.IsEmpty() && napi_get_value_bool(m_env, answer, &value) == napi_ok ? value : otherwise;
}

void NodeHelpers::report(Napi::Value error) { napi_fatal_exception(m_env, error); }

void NodeHelpers::reportPending()
{
    if (m_env.IsExceptionPending())
        report(m_env.GetAndClearPendingException().Value());
}

bool NodeHelpers::isScriptAlive()
{
    if (m_hasGivenUp)
        return false;
    Napi::HandleScope scope(m_env);
    auto answer = find("isAlive").Call({});
    if (m_env.IsExceptionPending())
        m_env.GetAndClearPendingException();
    return !answer.IsEmpty();
}
