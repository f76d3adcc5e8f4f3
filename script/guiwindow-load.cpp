// script/guiwindow-load.cpp: how a window gets its page: from the file through the content filters into the page tree.
#include "script/guiwindow.h"

#include "controls/guiscriptmethod.h"
#include "foundation/vela-log.h"
#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlparser.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipagefile.h"
#include "page/guipagehost.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"

namespace {

/// Makes the window known to the session: its page is the one being worked with from now on.
void publish(guiWindowData& record)
{
    ScriptObject* session = pGUI->getSession();
    if (!session)
        return;
    ScriptValue* value = guiComponent::NewScriptValue();
    value->setObject(record.window);
    session->setProperty("currentWindow", value);
    value->setObject(record.form);
    session->setProperty("currentForm", value);
    guiComponent::DeleteScriptValue(value);
}

/// Builds the page tree of a new window from the page's text, which is used up.
int apply(guiHtmlBase& root, guiPageFile& file)
{
    datastream stream(file.text());
    file.text() = sstring(); // the stream has its own copy
    mlParser markup(&stream);
    guiHtmlParser page(&markup, guiDirectoryOf(file.path()));
    int result = page.pullWindow(&root);
    if (!page.hasContent())
        velaLog("GuiWindow::load() - unable to find <body> or <html> tag in %s; probably not HTML\n",
                velaPrintable(file.path()).c_str());
    return result;
}

/// What a new page takes in from outside: first values that the form holds already, and the pages and pictures that
/// the page names.
void finishLoading(guiHtmlBase* root)
{
    guiNodeWatch live(root);
    root->formValues().load(root);
    if (live.alive())
        root->dynamicLoad();
}

/// Makes the page of a window that has none. Filters are script, which may destroy the window.
int loadFirst(guiWindowData& record, ScriptObject* relativeTo, sstring const& path)
{
    guiPageFile file(path, "GuiWindow::load()");
    if (!file.read(relativeTo))
        return 0;
    auto* root = new guiHtmlBase(record.window, record.data, record.form, path);
    record.root = root;
    publish(record);
    guiNodeWatch live(root);
    if (!file.filter(root) || !live.alive() || root->isReleased())
        return 0;
    int const result = apply(*root, file);
    if (live.alive())
        finishLoading(root);
    return result;
}

void loadFirst_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(0);
    guiWindowData* record = guiWindow_getData(data);
    if (record && !record->root)
        result.setBool(loadFirst(*record, self, guiTextOf(args, 0)));
}

/// Nodes, pictures and measured text belong to the GUI thread.
int callLoadFirst(ScriptPrivate* data, ScriptObject* relativeTo, sstring const& path)
{
    ScriptArgs* args = guiComponent::NewScriptArgs();
    ScriptValue* value = guiComponent::NewScriptValue();
    value->setString(path);
    args->append(value);
    pGUI->getThread()->callFunction(loadFirst_qt, pGUI->getManager(), data, relativeTo, *args, *value);
    int const result = value->toBool(0);
    guiComponent::DeleteScriptValue(value);
    guiComponent::DeleteScriptArgs(args);
    return result;
}

} // namespace

sstring guiWindow_resolve(ScriptObject* relativeTo, sstring path)
{
    return guiPageHost::current().resolvePath(relativeTo, path);
}

int guiWindow_load(ScriptPrivate* data, ScriptObject* relativeTo, sstring path)
{
    assertOnScriptThread();
    guiWindowData* record = guiWindow_getData(data);
    if (!record)
        return 0;
    if (record->root)
        return pGUI->getThread()->callLoadFile(record->root, path); // which resolves the name, behind its bookmark
    return callLoadFirst(data, relativeTo, guiWindow_resolve(relativeTo, path));
}

ScriptObject* guiWindow_control(ScriptPrivate* data, sstring name, void** out)
{
    assertOnGuiThread();
    *out = nullptr;
    guiWindowData* record = guiWindow_getData(data);
    guiHtml* node = record ? GetControl(record, name) : nullptr;
    if (!node)
        return nullptr;
    ScriptObject* control = node->getCustomObject();
    if (control) {
        control->keep();
    } else if ((control = CreateControlObject(record->window))) {
        guiControl_setPrivateInfo(control->getPrivate(), record->window, name);
    } else {
        velaLog("GuiWindow::control() - failed to construct GuiControl object\n");
    }
    *out = control;
    return control;
}
