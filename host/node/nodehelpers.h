// host/node/nodehelpers.h: the functions of the package's JavaScript part that the engine calls ("helpers", see
// index.js), and what happens to an error that escapes from one.
#pragma once

#include "host/hostthread.h"

#include <napi.h>

#include <initializer_list>
#include <map>
#include <string>

/// The helpers of one environment. Script thread.
class NodeHelpers
{
public:
    explicit NodeHelpers(Napi::Env env) : m_env(env) {}

    /// Takes every function of `helpers`, by name. To be called once.
    void start(Napi::Object helpers);

    /// What the helper returned; empty when it threw, which is reported, and after giveUp().
    Napi::Value call(char const* name, std::initializer_list<napi_value> args);

    /// A helper's answer of true or false; `otherwise` when it threw or gave none. An environment may be terminated
    /// between two calls of the interpreter, so nothing here takes a call's success for granted.
    bool ask(char const* name, std::initializer_list<napi_value> args, bool otherwise);

    /// Treats `error` as one that nobody caught, which may end the process.
    void report(Napi::Value error);
    /// Reports the exception that is pending, if there is one.
    void reportPending();

    /// Whether the environment still runs script. A worker thread that is being terminated does not.
    bool isScriptAlive();
    /// Makes every later call do nothing: the environment was terminated.
    void giveUp() { m_hasGivenUp = true; }
    bool hasGivenUp() const { return m_hasGivenUp; }

private:
    Napi::FunctionReference const& find(char const* name) const;

    Napi::Env m_env;
    [[maybe_unused]] HostThread const m_thread;
    std::map<std::string, Napi::FunctionReference, std::less<>> m_functions;
    bool m_hasGivenUp = false;
};
