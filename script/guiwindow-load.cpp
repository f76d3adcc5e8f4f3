// script/guiwindow-load.cpp: how a window gets its page: from the file through the content filters into the page tree.
#include "script/guiwindow.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "page/guilinkname.h"
#include "page/guinodewatch.h"
#include "runtime/gui.h"
#include "runtime/guifilter.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"

#include <memory>

namespace {

constexpr unsigned kPathUnits = 1024; // what resolvePath may use without growing the string

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

/// The stream's text, or nothing with a log line when it does not fit into memory.
bool readText(textstream& stream, sstring const& path, sstring& text)
{
    try {
        text = stream.toString();
        return true;
    } catch (velaError const& error) {
        guiComponent::logError("GuiWindow::load() - failed to load file %s\n", guiComponent::printable(path).c_str());
        return false;
    }
}

/// Builds the page tree of a new window from the page's text, which is used up.
int apply(guiHtmlBase& root, sstring& text, sstring const& path)
{
    datastream stream(text);
    text = sstring(); // the stream has its own copy
    mlParser markup(&stream);
    guiHtmlParser page(&markup, guiDirectoryOf(path));
    int result = page.pullWindow(&root);
    if (!page.hasContent())
        guiComponent::logError("GuiWindow::load() - unable to find <body> or <html> tag in %s; probably not HTML\n",
                               guiComponent::printable(path).c_str());
    return result;
}

/// What a new page takes in from outside: first values that the form holds already, and the pages and pictures that
/// the page names.
void finishLoading_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    guiNodeWatch live(root);
    if (root)
        root->formValues().load(root);
    if (live.alive())
        root->dynamicLoad();
}

/// Pictures, measured text and controls belong to the GUI thread.
void finishLoading(ScriptPrivate* data, ScriptObject* window)
{
    ScriptArgs* none = guiComponent::NewScriptArgs();
    ScriptValue* result = guiComponent::NewScriptValue();
    pGUI->getThread()->callFunction(finishLoading_qt, pGUI->getManager(), data, window, *none, *result);
    guiComponent::DeleteScriptValue(result);
    guiComponent::DeleteScriptArgs(none);
}

} // namespace

sstring guiWindow_resolve(ScriptObject* relativeTo, sstring path)
{
    path.setSize(kPathUnits);
    pGUI->getLoadFile()->resolvePath(relativeTo, path);
    return path;
}

int guiWindow_load(ScriptPrivate* data, ScriptObject* relativeTo, sstring path)
{
    guiWindowData* record = guiWindow_getData(data);
    if (!record)
        return 0;
    if (record->root)
        return pGUI->getThread()->callLoadFile(record->root, path); // which resolves the name, behind its bookmark
    path = guiWindow_resolve(relativeTo, path);
    std::unique_ptr<textstream> stream(pGUI->loadTextStream(relativeTo, path));
    sstring text;
    if (!stream) {
        guiComponent::logError("GuiWindow::load() - failed to load file %s\n", guiComponent::printable(path).c_str());
        return 0;
    }
    if (!readText(*stream, path, text))
        return 0;
    stream.reset(); // the file's bytes are not needed any more

    auto* root = new guiHtmlBase(record->window, data, record->form, path);
    record->root = root;
    publish(*record);
    guiNodeWatch live(root); // a filter is a script, which may destroy the window
    if (!guiFilter_load(record->window, path, text, record->window, record->form)) {
        guiComponent::logError("GuiWindow::load() - failed to filter file %s\n", guiComponent::printable(path).c_str());
        return 0;
    }
    if (!live.alive() || root->isReleased())
        return 0;
    int result = apply(*root, text, path);
    finishLoading(data, record->window);
    return result;
}

ScriptObject* guiWindow_control(ScriptPrivate* data, sstring name, void** out)
{
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
        guiComponent::logError("GuiWindow::control() - failed to construct GuiControl object\n");
    }
    *out = control;
    return control;
}
