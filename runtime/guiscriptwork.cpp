// runtime/guiscriptwork.cpp: see guiscriptwork.h. The host calls a method of an object that is made for the occasion;
// its argument is the number of the work, because a script method gets nothing but values.
#include "runtime/guiscriptwork.h"

#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

#include <cassert>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace {

/// One piece of work. Destroyed when the host has completed its call.
struct pendingWork
{
    pendingWork(guiHtmlBase& root, std::function<void()> w, std::function<void()> d)
        : alive(root), run(std::move(w)), done(std::move(d))
    {}
    guiPageInCall alive;
    std::function<void()> run;
    std::function<void()> done;
};

/// The work on its way, by number. Any thread.
class workTable
{
public:
    unsigned add(std::unique_ptr<pendingWork> work)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        m_works[++m_last] = std::move(work);
        return m_last;
    }
    /// What is to be run for this number; empty for an unknown one, and when it was asked for before.
    std::function<void()> takeRun(unsigned number)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        auto found = m_works.find(number);
        return found != m_works.end() ? std::exchange(found->second->run, nullptr) : nullptr;
    }
    std::unique_ptr<pendingWork> take(unsigned number)
    {
        std::lock_guard<std::mutex> guard(m_lock);
        auto node = m_works.extract(number);
        return node ? std::move(node.mapped()) : nullptr;
    }

private:
    std::mutex m_lock;
    std::map<unsigned, std::unique_ptr<pendingWork>> m_works; // guarded by m_lock
    unsigned m_last = 0;                                      // guarded by m_lock
};

workTable& theWorks()
{
    static auto& table = *new workTable; // never destroyed: calls are completed even while the process exits
    return table;
}

void runWork(LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (args.count() < 1 || !args.get(0)->isNumber())
        return;
    if (auto run = theWorks().takeRun(static_cast<unsigned>(args.get(0)->toNumber(0))))
        run();
}

/// The completion function of the call; the context is the work's number.
void endWork(ScriptValue&, void* context)
{
    std::unique_ptr<pendingWork> const work =
        theWorks().take(static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(context)));
    assert(work);
    work->done();
}

} // namespace

void guiScriptWork_postToGui(std::function<void()> work)
{
    pGUI->getThread()->postEvent(new guiEventWork(std::move(work)));
}

void guiScriptWork_post(guiHtml* node, std::function<void()> work, std::function<void()> done)
{
    assertOnGuiThread();
    static sstring const& kRun = *new sstring("run");
    guiHtmlBase* root = pGUI ? guiHtmlBase::of(node) : nullptr;
    if (!root || !root->getPageObject()) {
        done();
        return;
    }
    HostPlatform* platform = pGUI->getPlatform();
    ScriptEngine* engine = root->getPageObject()->getEngine();
    guiOwnedObject const runner(platform->createObject(engine)); // the call keeps it
    guiOwnedArgs const args(platform->createArgs(engine));
    guiOwnedValue const number(platform->createValue(engine));
    unsigned const id = theWorks().add(std::make_unique<pendingWork>(*root, std::move(work), std::move(done)));
    number->setNumber(id);
    args->append(number.get());
    runner->addMethod(kRun, runWork);
    runner->callMethodAsync(runner.get(), kRun, args.get(), endWork, reinterpret_cast<void*>(std::uintptr_t{id}));
}

void guiScriptWork_call(ScriptObject* object, char const* name)
{
    HostPlatform* platform = pGUI->getPlatform();
    ScriptEngine* engine = object->getEngine();
    guiOwnedArgs const args(platform->createArgs(engine));
    guiOwnedValue const value(platform->createValue(engine));
    value->setObject(pGUI->getSession());
    args->append(value.get());
    object->callMethod(object, sstring(name), args.get(), value.get());
}
