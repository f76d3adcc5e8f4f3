// script/guiwindow-load.cpp: how a window gets its page: from the file through the content filters into the page tree.
#include "script/guiwindow.h"

#include "foundation/vela-mlparser.h"
#include "foundation/vela-textstream.h"
#include "page/guihtmlparser.h"
#include "page/guilinkname.h"
#include "runtime/gui.h"
#include "runtime/guifilter.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"

#include <memory>

namespace {

constexpr unsigned kPathUnits = 1024; // what resolvePath may use without growing the string

sstring resolve(ScriptObject* relativeTo, sstring path)
{
    path.setSize(kPathUnits);
    pGUI->getLoadFile()->resolvePath(relativeTo, path);
    return path;
}

/// Makes the window known to the session: its page is the one being worked with from now on.
void publish(guiWindowData& record)
{
    ScriptObject* session = pGUI->getSession();
    if (session == nullptr)
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

/// Whether the page names files that belong into it: pages for its cells and frames, pictures behind them.
bool namesFiles(guiHtml const* node)
{
    if (node->hasString(kStringSource) || node->hasString(kStringBackground))
        return true;
    for (guiHtml const* child : guiNodesOf(node))
        if (namesFiles(child))
            return true;
    return false;
}

void loadNamedFiles_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    if (guiHtmlBase* root = GetWindow(guiWindow_getData(data)))
        root->dynamicLoad();
}

/// Loads what the page names. Pictures and measured text belong to the GUI thread.
void loadNamedFiles(guiWindowData& record)
{
    HostPlatform* platform = pGUI->getPlatform();
    ScriptArgs* none = platform->createArgs(record.window->getEngine());
    ScriptValue* result = guiComponent::NewScriptValue();
    pGUI->getThread()->callFunction(loadNamedFiles_qt, pGUI->getManager(), record.data, record.window, *none, *result);
    guiComponent::DeleteScriptValue(result);
    platform->destroyArgs(none);
}

} // namespace

int guiWindow_load(ScriptPrivate* data, ScriptObject* relativeTo, sstring path)
{
    guiWindowData* record = guiWindow_getData(data);
    if (record == nullptr)
        return 0;
    path = resolve(relativeTo, path);
    if (record->root != nullptr)
        return pGUI->getThread()->callLoadFile(record->root, path);

    std::unique_ptr<textstream> stream(pGUI->loadTextStream(relativeTo, path));
    sstring text;
    if (stream == nullptr) {
        guiComponent::logError("GuiWindow::load() - failed to load file %s\n", guiComponent::printable(path).c_str());
        return 0;
    }
    if (!readText(*stream, path, text))
        return 0;
    stream.reset(); // the file's bytes are not needed any more

    auto* root = new guiHtmlBase(record->window, data, record->form, path);
    record->root = root;
    publish(*record);
    if (!guiFilter_load(record->window, path, text, record->window, record->form)) {
        guiComponent::logError("GuiWindow::load() - failed to filter file %s\n", guiComponent::printable(path).c_str());
        return 0;
    }
    int result = apply(*root, text, path);
    if (namesFiles(root))
        loadNamedFiles(*record);
    return result;
}

void guiWindow_control(ScriptPrivate* data, sstring name, ScriptValue& out)
{
    out.setNull();
    guiWindowData* record = guiWindow_getData(data);
    guiHtml* node = record != nullptr ? GetControl(record, name) : nullptr;
    if (node == nullptr)
        return;
    if (ScriptObject* existing = node->getCustomObject()) {
        out.setObject(existing);
        return;
    }
    ScriptObject* control = record->window->getEngine()->createInstance("GuiControl");
    if (control == nullptr) {
        guiComponent::logError("GuiWindow::control() - failed to construct GuiControl object\n");
        return;
    }
    guiControl_setPrivateInfo(control->getPrivate(), record->window, name);
    out.setObject(control);
    control->letGo();
}
