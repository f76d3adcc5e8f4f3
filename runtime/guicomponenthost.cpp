// runtime/guicomponenthost.cpp: see guicomponenthost.h.
#include "runtime/guicomponenthost.h"

#include "controls/guiimagec.h"
#include "foundation/vela-error.h"
#include "foundation/vela-log.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-textstream.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtml.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guifilter.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guilinkcall.h"
#include "runtime/guipagewatcher.h"
#include "runtime/guipromises.h"
#include "runtime/guiscriptwork.h"
#include "runtime/guithread.h"

#include <QDesktopServices>
#include <QUrl>
#include <algorithm>
#include <cassert>
#include <memory>
#include <optional>

namespace {

constexpr unsigned kPathUnits = 1024; // 16-bit units of room, in which the host writes the full name

/// Whether the event is a user's choice in a control, which script finds as the session's current control.
bool isChoice(guiHtml* node, sstring const& event)
{
    return node->getType() == guiHtml::kTypeControl && guiCallback_ShouldDisable(event);
}

/// A page that is shown anew calls nobody: what changes in it is not the user's doing.
bool isQuiet()
{
    guiPageWatcher const* const watcher = guiPageWatcher::current();
    return watcher && watcher->isShowing();
}

} // namespace

// ---- Script ----

int guiComponentHost::callHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring& reply)
{
    return callLinkHandler(node, target, event, sstring(), reply);
}

int guiComponentHost::callLinkHandler(guiHtml* node, ScriptObject* target, sstring const& event, sstring const& frame,
                                      sstring& reply)
{
    assert(node && target);
    if (!target->hasMethod(guiCallback_StripEventName(event)))
        return 0;
    assertOnGuiThread();
    if (isQuiet() || guiPromises_isBusy(node, event))
        return 1;
    if (isChoice(node, event))
        noteChoice(node);
    reply = guiLinkCall_run(node, target, event, frame);
    return 1;
}

std::vector<sstring> guiComponentHost::methodNames(ScriptObject* target)
{
    std::vector<sstring> names(target->methodNames(nullptr, 0));
    names.resize(
        std::min<std::size_t>(names.size(), target->methodNames(names.data(), static_cast<unsigned>(names.size()))));
    return names;
}

int guiComponentHost::openOutside(guiHtml* node, sstring const& address)
{
    assertOnGuiThread();
    if (isQuiet())
        return 1;
    static sstring const& eLink = *new sstring("eLink"); // never destroyed: links are followed while the process exits
    ScriptObject* page = guiPageObjectOf(node);
    if (page && page->hasMethod(eLink)) {
        if (guiPromises_isBusy(node, eLink))
            return 1;
        if (isChoice(node, eLink))
            noteChoice(node);
        guiCallback_CallLink(node, page, eLink, address);
        return 1;
    }
    if (QDesktopServices::openUrl(QUrl(sstoq(address))))
        return 1;
    velaLog("guiComponentHost::openOutside() - the desktop can not open %s\n", velaPrintable(address).c_str());
    return 0;
}

ScriptObject* guiComponentHost::buildCustomObject(guiHtml* node)
{
    bool const isKnown = node->getType() == guiHtml::kTypeControl || node->getType() == guiHtml::kTypeCustom;
    if (!pGUI || !isKnown || !guiPageObjectOf(node))
        return nullptr;
    return guiCallback_BuildCustomObject(node);
}

void guiComponentHost::unbindObject(ScriptObject* object, guiHtml* node)
{
    // A copy of a node has the object of the original, and the object stands for the original only.
    if (!pGUI || pGUI->findNode(object) != node)
        return;
    pGUI->unbindObject(object);
    object->letGo();
}

void guiComponentHost::postTrigger(guiHtml* node)
{
    if (pGUI)
        pGUI->getThread()->postTrigger(node);
}

int guiComponentHost::callElement(guiHtmlCustom* node, ScriptObject* instance, char const* event)
{
    return guiCallback_CallCustom(node, instance, sstring(event), pGUI->getSession());
}

void guiComponentHost::callHandlerHere(ScriptObject* object, char const* name) { guiScriptWork_call(object, name); }

void guiComponentHost::bindObject(ScriptObject* object, guiHtml* node) { pGUI->bindObject(object, node); }
ScriptValue* guiComponentHost::newValue() { return pGUI ? guiComponent::NewScriptValue() : nullptr; }
void guiComponentHost::deleteValue(ScriptValue* value) { guiComponent::DeleteScriptValue(value); }
HostPlatform* guiComponentHost::platform() { return pGUI ? pGUI->getPlatform() : nullptr; }
HostFormProp* guiComponentHost::formProp() { return pGUI ? pGUI->getFormProp() : nullptr; }

// ---- Files ----

HostLoadFile* guiComponentHost::loadFile() { return pGUI ? pGUI->getLoadFile() : nullptr; }

sstring guiComponentHost::resolvePath(ScriptObject* owner, sstring const& path)
{
    assert(!pGUI->holdsLock());
    sstring full = path;
    full.setSize(kPathUnits);
    pGUI->getLoadFile()->resolvePath(owner, full);
    if (guiPageWatcher* watcher = guiPageWatcher::current())
        watcher->onFile(owner, full);
    return full;
}

int guiComponentHost::readText(ScriptObject* owner, sstring const& path, sstring& text)
{
    if (guiPageWatcher* watcher = guiPageWatcher::current()) {
        assertOnGuiThread();
        watcher->onFile(owner, path);
        if (std::optional<sstring> const known = watcher->textOf(path)) {
            text = *known;
            return 1;
        }
    }
    try {
        std::unique_ptr<textstream> stream = pGUI->loadTextStream(owner, path);
        if (!stream)
            return 0;
        text = stream->toString();
        return 1;
    } catch (velaError const&) {
        return 0; // out of memory
    }
}

int guiComponentHost::filterText(guiPageRoot* root, sstring& name, sstring& text)
{
    assertOnGuiThread();
    guiPageWatcher* const watcher = guiPageWatcher::current();
    if (watcher && watcher->hasText(name))
        return 1; // has been through them
    guiHtmlBase* window = guiHtmlBase::from(root);
    if (!window)
        return guiFilter_load(nullptr, name, text, nullptr, nullptr);
    ScriptObject* page = window->getPageObject();
    guiPageInCall const alive(*window); // a filter is a call into script made for this page
    return guiFilter_load(page, name, text, page, window->getFormObject());
}

guiPictureRef guiComponentHost::readImage(ScriptObject* owner, sstring const& path, QSize shown)
{
    return guiLoadPicture(owner, path, shown);
}

// ---- Threads ----

bool guiComponentHost::isGuiThread() const { return !pGUI || pGUI->getThread()->isGuiThread(); }
bool guiComponentHost::isScriptThread() const { return pGUI && pGUI->getThread()->isScriptThread(); }

void guiComponentHost::callFunction(ScriptMethod method, LibManager& manager, ScriptPrivate* data, ScriptObject* self,
                                    ScriptArgs& args, ScriptValue& result)
{
    pGUI->getThread()->callFunction(method, manager, data, self, args, result);
}

void guiComponentHost::postUpdate(guiHtml* node) { pGUI->getThread()->postUpdate(node); }

void guiComponentHost::postToGui(std::function<void()> const& work)
{
    if (pGUI)
        guiScriptWork_postToGui(work);
}

void guiComponentHost::postToScript(guiHtml* node, std::function<void()> const& work, std::function<void()> const& done)
{
    guiScriptWork_post(node, work, done);
}

void guiComponentHost::disableMM()
{
    if (pGUI)
        pGUI->getThread()->disableMM();
}

bool guiComponentHost::isInputBlocked() const { return pGUI && pGUI->getThread()->isInputBlocked(); }

void guiComponentHost::enableMM()
{
    if (pGUI)
        pGUI->getThread()->enableMM();
}

void guiComponentHost::wakeWaiters() { guiCallback_postNullEvent(); }

// ---- Windows ----

void guiComponentHost::noteChoice(guiHtml* control)
{
    if (guiHtmlBase* root = guiHtmlBase::of(control))
        chooseControl(root->getPagePrivate(), control->getName());
}

void guiComponentHost::onClose(guiWidget* window, guiHtml* root)
{
    if (pGUI)
        pGUI->onClose(window, root);
}

void guiComponentHost::onVisible(guiWidget* window, bool isVisible)
{
    if (pGUI)
        pGUI->onVisible(window, isVisible);
}

void guiComponentHost::setCurrentWindow(guiWidget* window)
{
    if (pGUI)
        pGUI->setCurrentWindow(window);
}
