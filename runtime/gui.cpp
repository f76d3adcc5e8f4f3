// runtime/gui.cpp: the component object.
#include "runtime/gui.h"

#include "controls/guiwidget.h"
#include "foundation/threading.h"
#include "foundation/vela-log.h"
#include "foundation/vela-textstream.h"
#include "foundation/vela-threadrole.h"
#include "runtime/guicallback.h"
#include "runtime/guifilter.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"

#include <cassert>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>
#include <vector>

guiComponent* pGUI = nullptr;

namespace {

template <class Service>
Service* getService(LibManager& manager, char const* guid)
{
    auto* service = static_cast<Service*>(manager.getInterface(&guid));
    assert(service); // every host has all three
    return service;
}

void tellWindowState(guiHtml* root, int isOpen)
{
    assert(!pGUI->holdsLock());
    if (ScriptObject* page = root ? guiPageObjectOf(root) : nullptr)
        page->windowState(isOpen);
}

/// The factory of host objects, none of which outlives the component.
HostPlatform& hostPlatform()
{
    assert(pGUI);
    return *pGUI->getPlatform();
}

/// Holds the component lock for the length of a block.
class componentLock
{
public:
    explicit componentLock(guiComponent& component) : m_component(component) { m_component.enter(); }
    ~componentLock() { m_component.leave(); }
    componentLock(componentLock const&) = delete;
    componentLock& operator=(componentLock const&) = delete;

private:
    guiComponent& m_component;
};

} // namespace

guiComponent::guiComponent(LibManager& manager) : hashlist<guiHtml>(kBuckets), m_manager(manager)
{
    assert(!pGUI);
    guiHtml::setRegistry(this);
    m_t.thread = new guiThread(pthread_self());
    m_t.lock = rmutex_create();
    m_idle = pevent_create();
    m_loadFile = getService<HostLoadFile>(manager, kHostLoadFileGuid);
    m_formProp = getService<HostFormProp>(manager, kHostFormPropGuid);
    m_platform = getService<HostPlatform>(manager, kHostPlatformGuid);
    m_loadFile->attach();
}

guiComponent::~guiComponent()
{
    assertOnScriptThread();
    closeWindows();
    if (ScriptObject* session = m_session.exchange(nullptr)) {
        session->endSession();
        m_platform->destroyObject(session);
    }
    m_loadFile->release();
    destroyLock();
    delete m_t.thread;
    pevent_destroy(m_idle);
    guiFilter_destroyAll();
    guiHtml::setRegistry(nullptr);
}

/// The GUI thread runs a little longer, but shares nothing with this thread any more.
void guiComponent::destroyLock()
{
    assert(holdsLock());
    rmutex* lock = std::exchange(m_t.lock, nullptr);
    rmutex_release(lock); // a mutex that is held must not be destroyed
    rmutex_destroy(lock);
}

/// Windows that the host left open go before the objects that their painting needs. Entered and left with the component
/// lock held; in between the GUI thread takes it to close a window.
void guiComponent::closeWindows()
{
    assert(holdsLock());
    std::vector<guiHtml*> const roots = openPages();
    leave();
    for (guiHtml* root : roots)
        m_t.thread->callPageClose(static_cast<guiHtmlBase*>(root));
    m_t.thread->callPageClose(nullptr); // waits for what was posted before: the release of a page takes the lock
    enter();
    assert(m_windows.empty());
}

void guiComponent::enter()
{
    if (!m_t.lock)
        return;
    rmutex_request(m_t.lock);
    m_lockHolder.store(pthread_self(), std::memory_order_relaxed);
    ++m_lockDepth;
}

void guiComponent::leave()
{
    if (!m_t.lock)
        return;
    assert(holdsLock());
    if (--m_lockDepth == 0)
        m_lockHolder.store(pthread_t{}, std::memory_order_relaxed);
    rmutex_release(m_t.lock);
}

/// A thread always sees its own entry, and never takes another thread's entry for its own.
bool guiComponent::holdsLock() const
{
    return pthread_equal(m_lockHolder.load(std::memory_order_relaxed), pthread_self()) != 0;
}

void guiComponent::setEngine(ScriptEngine* engine)
{
    assertOnScriptThread();
    m_t.engine.store(engine, std::memory_order_release);
    if (!engine || getSession())
        return;
    ScriptObject* session = m_platform->createObject(engine);
    session->beginSession(0);
    m_session.store(session, std::memory_order_release);
}

ScriptPump* guiComponent::getPump() const
{
    ScriptEngine* engine = getEngine();
    ScriptRuntime* scriptRuntime = engine ? engine->getRuntime() : nullptr;
    return scriptRuntime ? scriptRuntime->getPump(0) : nullptr;
}

void guiComponent::setCurrentWindow(guiWidget* widget)
{
    assertOnGuiThread();
    if (widget == m_currentWindow)
        return;
    m_currentWindow = widget;
    ScriptObject* session = getSession();
    if (!getEngine() || !session)
        return;
    guiPageRoot* root = widget ? widget->htmlBase : nullptr;
    guiOwnedValue value = guiNewValue();
    if (root && root->getPageObject())
        value->setObject(root->getPageObject());
    else
        value->setNull();
    session->setProperty("currentWindow", value.get());
}

void guiComponent::onOpen(guiWidget* widget, guiHtml* root)
{
    assertOnGuiThread();
    assert(widget);
    {
        componentLock lock(*this);
        assert(!m_windows.contains(widget));
        m_windows[widget] = {root, false};
    }
    tellWindowState(root, 1);
}

void guiComponent::onClose(guiWidget* widget, guiHtml* root)
{
    assertOnGuiThread();
    if (widget == m_currentWindow)
        m_currentWindow = nullptr; // another window may get the same address
    {
        componentLock lock(*this);
        if (m_windows.erase(widget) == 0)
            return;
    }
    tellWindowState(root, 0);
}

void guiComponent::onVisible(guiWidget* widget, bool isVisible)
{
    assertOnGuiThread();
    {
        componentLock lock(*this);
        auto found = m_windows.find(widget);
        if (found == m_windows.end() || found->second.isVisible == isVisible)
            return;
        found->second.isVisible = isVisible;
    }
    if (!isVisible)
        guiCallback_postNullEvent(); // whoever waits for the window looks again
}

bool guiComponent::isWindowOpen(guiWidget* widget)
{
    componentLock lock(*this);
    return m_windows.contains(widget);
}

std::vector<guiHtml*> guiComponent::openPages()
{
    componentLock lock(*this);
    std::vector<guiHtml*> pages;
    for (auto const& window : m_windows)
        pages.push_back(window.second.root);
    return pages;
}

bool guiComponent::hasOpenWindow()
{
    componentLock lock(*this);
    return !m_windows.empty();
}

bool guiComponent::isShown(guiWidget* widget)
{
    componentLock lock(*this);
    auto found = m_windows.find(widget);
    return found != m_windows.end() && found->second.isVisible;
}

void guiComponent::runPump(guiWidget* widget)
{
    assertOnScriptThread();
    if (!getEngine())
        return;
    m_t.thread->forceEnable();
    ScriptPump* pump = getPump();
    if (!pump)
        return;
    if (!widget) {
        pump->runOnce(0);
        return;
    }
    while (isShown(widget))
        pump->step();
}

std::unique_ptr<textstream> guiComponent::loadTextStream(ScriptObject* relativeTo, sstring path)
{
    assert(!holdsLock());
    void const* data = nullptr;
    unsigned length = 0;
    if (!m_loadFile->readFile(relativeTo, path, &data, &length))
        return nullptr;
    // The host's bytes last only until its next read, so the stream gets a copy.
    auto* copy = static_cast<unsigned char*>(std::malloc(length != 0 ? length : 1));
    if (!copy)
        return nullptr;
    if (length != 0)
        std::memcpy(copy, data, length);
    return std::make_unique<textstream>(copy, length, 1);
}

void guiComponent::bindObject(ScriptObject* object, guiHtml* node)
{
    assert(object);
    assert(contains(node));
    componentLock lock(*this);
    m_nodes[object] = node;
}

void guiComponent::unbindObject(ScriptObject* object)
{
    componentLock lock(*this);
    m_nodes.erase(object);
}

guiHtml* guiComponent::findNode(ScriptObject* object)
{
    componentLock lock(*this);
    auto found = m_nodes.find(object);
    assert(found == m_nodes.end() || contains(found->second)); // a node unbinds its object before it goes
    return found != m_nodes.end() ? found->second : nullptr;
}

void guiComponent::shutdownEnter()
{
    componentLock lock(*this);
    ++m_shutdownCount;
}

void guiComponent::shutdownLeave()
{
    componentLock lock(*this);
    if (m_shutdownCount != 0)
        --m_shutdownCount;
    if (m_shutdownCount == 0)
        pevent_set(m_idle);
}

bool guiComponent::hasCallsInFlight(unsigned count) const
{
    assert(holdsLock());
    return m_shutdownCount >= count;
}

void guiComponent::shutdownWait()
{
    constexpr int kPollMs = 1000;
    assertOnScriptThread();
    assert(!holdsLock());
    enter();
    while (m_shutdownCount != 0) {
        leave();
        pevent_wait_timeout(m_idle, kPollMs); // the end of the last call cuts the poll short
        enter();
    }
}

void guiComponent::logError(char const* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    std::vfprintf(stderr, format, arguments);
    va_end(arguments);
}

std::string guiComponent::printable(sstring const& text) { return velaPrintable(text); }

ScriptObject* guiComponent::NewScriptObject() { return hostPlatform().createObject(pGUI->getEngine()); }
ScriptValue* guiComponent::NewScriptValue() { return hostPlatform().createValue(pGUI->getEngine()); }
ScriptArgs* guiComponent::NewScriptArgs() { return hostPlatform().createArgs(pGUI->getEngine()); }
void guiComponent::DeleteScriptObject(ScriptObject* object) { hostPlatform().destroyObject(object); }
void guiComponent::DeleteScriptValue(ScriptValue* value) { hostPlatform().destroyValue(value); }
void guiComponent::DeleteScriptArgs(ScriptArgs* args) { hostPlatform().destroyArgs(args); }
