// runtime/guipromises.cpp: see guipromises.h.
#include "runtime/guipromises.h"

#include "page/guinodewatch.h"
#include "runtime/guihandlercall.h"
#include "runtime/guihtmlbase.h"

#include <algorithm>
#include <cassert>
#include <map>
#include <memory>
#include <utility>
#include <vector>

namespace {

struct pendingPromise
{
    pendingPromise(guiHtmlBase& page, guiPromiseUse u) : root(page), node(u.node), use(std::move(u)) {}

    guiHtmlBase& root; // forgets this before it goes
    guiNodeWatch node;
    guiPromiseUse use;
    bool wasRaised = false;
};

using promiseMap = std::map<unsigned, std::unique_ptr<pendingPromise>>;

/// By number. Never destroyed: pages may outlive static objects.
promiseMap& thePromises() TARN_ON(velaGuiRole)
{
    static auto& promises = *new promiseMap;
    return promises;
}

} // namespace

void guiPromises_add(unsigned promise, guiHtmlBase& root, guiPromiseUse use)
{
    [[maybe_unused]] bool const isNew =
        thePromises().emplace(promise, std::make_unique<pendingPromise>(root, std::move(use))).second;
    assert(isNew);
}

bool guiPromises_isBusy(guiHtml const* node, sstring const& event)
{
    for (auto const& [number, pending] : thePromises()) {
        if (pending->use.event != event || pending->node.get() != node)
            continue;
        pending->wasRaised = true;
        return true;
    }
    return false;
}

bool guiPromises_isPending(guiHtmlBase const& root, sstring const& event)
{
    return std::any_of(thePromises().begin(), thePromises().end(), [&](auto const& each) {
        return &each.second->root == &root && each.second->use.event == event;
    });
}

void guiPromises_settled(unsigned promise, ScriptValue const& value)
{
    assertOnGuiThread();
    auto const taken = thePromises().extract(promise);
    if (!taken)
        return; // its page is gone
    pendingPromise const& pending = *taken.mapped();
    guiNodeWatch const live(&pending.root);
    pending.root.formValues().endPromise();
    if (live.alive() && pending.use.settled)
        pending.use.settled(value, pending.wasRaised);
}

void guiPromises_forget(guiHtmlBase const& root, bool withWindow)
{
    std::vector<std::unique_ptr<pendingPromise>> forgotten; // script's objects may end with them
    for (auto at = thePromises().begin(); at != thePromises().end();) {
        pendingPromise& pending = *at->second;
        if (&pending.root != &root || (pending.use.isOfWindow && !withWindow)) {
            ++at;
            continue;
        }
        guiHandlerCall_forget(at->first);
        pending.root.formValues().dropPromise();
        forgotten.push_back(std::move(at->second));
        at = thePromises().erase(at);
    }
}

unsigned guiPromises_count() { return static_cast<unsigned>(thePromises().size()); }
