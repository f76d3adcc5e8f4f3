// host/node/checkphase.cpp: see the header.
#include "host/node/checkphase.h"

#include <node_api.h>

#include <cassert>
#include <map>

#include <dlfcn.h>

namespace {

/// The base address of the program or library that contains `function`; null when it is unknown.
template <typename Function>
void* moduleOf(Function* function)
{
    Dl_info info{};
    return dladdr(reinterpret_cast<void*>(function), &info) != 0 ? info.dli_fbase : nullptr;
}

/// Remembers its answers: dladdr searches all symbols of a module.
bool isNodes(uv_check_t* check)
{
    static void* const nodes = moduleOf(napi_get_uv_event_loop);
    thread_local std::map<uv_check_cb, bool> known;
    auto [at, isNew] = known.try_emplace(check->check_cb);
    if (isNew)
        at->second = nodes && moduleOf(check->check_cb) == nodes;
    return at->second;
}

std::vector<uv_check_t*> activeChecks(uv_loop_t* loop)
{
    std::vector<uv_check_t*> checks;
    auto collect = [](uv_handle_t* handle, void* list) {
        if (handle->type == UV_CHECK && uv_is_active(handle))
            static_cast<std::vector<uv_check_t*>*>(list)->push_back(reinterpret_cast<uv_check_t*>(handle));
    };
    uv_walk(loop, collect, &checks);
    return checks;
}

/// A handle that is stopped keeps its callback.
void startAgain(uv_check_t* check)
{
    auto callback = check->check_cb;
    uv_check_stop(check);
    uv_check_start(check, callback);
}

} // namespace

void startFirst(uv_check_t* check, uv_check_cb callback)
{
    assert(check->loop && !uv_is_closing(reinterpret_cast<uv_handle_t*>(check)));
    uv_check_stop(check);
    uv_check_start(check, callback);
}

void startLast(uv_check_t* check, uv_check_cb callback)
{
    startFirst(check, callback);
    for (auto other : activeChecks(check->loop))
        if (other != check)
            startAgain(other);
}

std::vector<uv_check_t*> stopNodesChecks(uv_loop_t* loop)
{
    auto checks = activeChecks(loop);
    std::erase_if(checks, [](uv_check_t* check) { return !isNodes(check); });
    for (auto check : checks)
        uv_check_stop(check);
    return checks;
}

void restart(std::vector<uv_check_t*> const& checks)
{
    for (auto check : checks)
        startAgain(check);
}
