// script/guiwindow-load.cpp: how a window gets its page: from the file through the content filters into the page tree.
#include "script/guiwindow.h"

#include "controls/guiscriptmethod.h"
#include "foundation/vela-log.h"
#include "foundation/vela-mlparser.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-textstream.h"
#include "foundation/vela-threadrole.h"
#include "page/guihtmlparser.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "page/guipagefile.h"
#include "page/guipagehost.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guipagewatcher.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"
#include "script/guiwindowcontrols.h"

#include <QFile>
#include <cassert>
#include <memory>
#include <utility>

namespace {

/// Makes the window the session's current one.
void publish(guiWindowData& record)
{
    ScriptObject* session = pGUI->getSession();
    if (!session)
        return;
    guiOwnedValue value = guiNewValue();
    value->setObject(record.window);
    session->setProperty("currentWindow", value.get());
    value->setObject(record.form);
    session->setProperty("currentForm", value.get());
}

/// Builds the page tree of a new window from the text of its file, which is emptied.
int apply(guiHtmlBase& root, guiPageFile& file) TARN_ON(velaGuiRole)
{
    if (guiPageWatcher* watcher = guiPageWatcher::current()) {
        bool const isFile = QFile::exists(sstoq(file.path())); // else a page from text, which is not read again
        watcher->onText(root, isFile ? std::nullopt : std::optional(file.text()), guiDirectoryOf(file.path()));
    }
    auto stream = std::make_unique<datastream>(file.text());
    file.text() = sstring(); // the stream has its own copy
    mlParser markup(std::move(stream));
    guiHtmlParser page(&markup, guiDirectoryOf(file.path()), file.path());
    int result = page.pullWindow(&root);
    if (!page.hasContent())
        velaLog("GuiWindow::load() - unable to find <body> or <html> tag in %s; probably not HTML\n",
                velaPrintable(file.path()).c_str());
    return result;
}

/// Gives a new page what comes from outside: the values that the form holds already, and the pages and pictures that
/// the page names.
void finishLoading(guiHtmlBase* root)
{
    guiNodeWatch live(root);
    root->loadFormValues(root);
    if (live.alive())
        root->dynamicLoad();
    if (live.alive())
        root->startElements(root);
}

/// Makes the page of a window that has none. The filters run script, which may destroy the window.
int loadFirst(guiWindowData& record, ScriptObject* relativeTo, sstring const& path)
{
    assertOnGuiThread();
    assert(!record.root);
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
    if (!live.alive())
        return result;
    root->setHasPage(result != 0 || root->getChildCount() != 0); // as far as it could be read
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

/// Loads the first page on the GUI thread, to which nodes, pictures and measured text belong.
int callLoadFirst(ScriptPrivate* data, ScriptObject* relativeTo, sstring const& path)
{
    guiOwnedArgs args = guiNewArgs();
    guiOwnedValue value = guiNewValue();
    value->setString(path);
    args->append(value.get());
    pGUI->getThread()->callFunction(loadFirst_qt, pGUI->getManager(), data, relativeTo, *args, *value);
    return value->toBool(0);
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
        return pGUI->getThread()->callLoadFile(record->root, path); // resolves the name itself, apart from its bookmark
    return callLoadFirst(data, relativeTo, guiWindow_resolve(relativeTo, path));
}

ScriptObject* guiWindow_control(ScriptPrivate* data, sstring name, void** out)
{
    assertOnGuiThread();
    assert(out);
    *out = nullptr;
    guiWindowData* record = guiWindow_getData(data);
    guiHtml* node = record ? GetControl(record, name) : nullptr;
    if (!node)
        return nullptr;
    ScriptObject* control = node->getCustomObject();
    if (!control)
        control = guiWindowControls_get(*record, *node, name);
    if (control)
        control->keep();
    else
        velaLog("GuiWindow::control() - failed to construct GuiControl object\n");
    *out = control;
    return control;
}
