// controls/guicontrolhost.cpp: the neutral defaults of guicontrolhost.h, and the host in use.
#include "controls/guicontrolhost.h"

#include <atomic>

namespace {

std::atomic<guiControlHost*> theHost{nullptr};

guiControlHost& neutralHost()
{
    static auto& host = *new guiControlHost; // never destroyed: windows may outlive static objects
    return host;
}

} // namespace

bool guiControlHost::isGuiThread() const { return true; }
bool guiControlHost::isScriptThread() const { return false; }

void guiControlHost::callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                                  ScriptArgs& args, ScriptValue& result)
{
    method(manager, data, self, args, result);
}

void guiControlHost::postUpdate(guiHtml*) {}
bool guiControlHost::isInputBlocked() const { return false; }
void guiControlHost::disableMM() {}
void guiControlHost::enableMM() {}
void guiControlHost::wakeWaiters() {}
void guiControlHost::postToGui(std::function<void()> const& work) { work(); }

void guiControlHost::postToScript(guiHtml*, std::function<void()> const&, std::function<void()> const& done) { done(); }

void guiControlHost::noteChoice(guiHtml*) {}
void guiControlHost::onClose(guiWidget*, guiHtml*) {}
void guiControlHost::onVisible(guiWidget*, bool) {}
void guiControlHost::setCurrentWindow(guiWidget*) {}
ScriptObject* guiControlHost::makeControlObject(guiHtml*) { return nullptr; }
void guiControlHost::fleshIn(ScriptObject*, guiHtml*) {}
int guiControlHost::callElement(guiHtmlCustom*, ScriptObject*, char const*) { return 1; }
void guiControlHost::callHandlerHere(ScriptObject*, char const*) {}
void guiControlHost::bindObject(ScriptObject*, guiHtml*) {}
guiHtml* guiControlHost::nodeOf(ScriptPrivate*, ScriptObject*) { return nullptr; }
ScriptValue* guiControlHost::newValue() { return nullptr; }
void guiControlHost::deleteValue(ScriptValue*) {}
HostPlatform* guiControlHost::platform() { return nullptr; }
HostFormProp* guiControlHost::formProp() { return nullptr; }
HostLoadFile* guiControlHost::loadFile() { return nullptr; }

guiControlHost& guiControlHost::current()
{
    guiControlHost* host = theHost.load(std::memory_order_acquire);
    return host ? *host : neutralHost();
}

void guiControlHost::install(guiControlHost* host)
{
    theHost.store(host, std::memory_order_release);
    guiPageHost::install(host);
}
