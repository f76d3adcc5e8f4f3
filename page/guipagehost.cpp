// page/guipagehost.cpp: the default answers of guipagehost.h, and the host in use.
#include "page/guipagehost.h"

#include <atomic>

namespace {

std::atomic<guiPageHost*> theHost{nullptr};

guiPageHost& defaultHost()
{
    static auto& host = *new guiPageHost; // never destroyed: pages may outlive the process's static objects
    return host;
}

} // namespace

int guiPageHost::callHandler(guiHtml*, ScriptObject*, sstring const&, sstring&) { return 0; }
std::vector<sstring> guiPageHost::methodNames(ScriptObject*) { return {}; }
int guiPageHost::callLinkHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring const&,
                                 sstring& reply)
{
    return callHandler(node, target, event, reply);
}
int guiPageHost::openOutside(guiHtml*, sstring const&) { return 0; }
ScriptObject* guiPageHost::buildCustomObject(guiHtml*) { return nullptr; }
void guiPageHost::unbindObject(ScriptObject*, guiHtml*) {}
void guiPageHost::postTrigger(guiHtml*) {}
sstring guiPageHost::resolvePath(ScriptObject*, sstring const& path) { return path; }
int guiPageHost::readText(ScriptObject*, sstring const&, sstring&) { return 0; }
int guiPageHost::filterText(guiPageRoot*, sstring&, sstring&) { return 1; }
guiPictureRef guiPageHost::readImage(ScriptObject*, sstring const&, QSize) { return nullptr; }

guiPageHost& guiPageHost::current()
{
    guiPageHost* host = theHost.load(std::memory_order_acquire);
    return host ? *host : defaultHost();
}

bool guiPageHost::isInstalled() { return theHost.load(std::memory_order_acquire) != nullptr; }
void guiPageHost::install(guiPageHost* host) { theHost.store(host, std::memory_order_release); }
