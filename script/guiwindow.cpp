// script/guiwindow.cpp: see guiwindow.h: the table of methods and the life of the record. What the methods do on the
// GUI thread is in guiwindow-methods.cpp, loading a page in guiwindow-load.cpp.
#include "script/guiwindow.h"

#include "controls/guiscriptmethod.h"
#include "foundation/vela-log.h"
#include "foundation/vela-poison.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "runtime/guicallback.h"
#include "runtime/guifilter.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"
#include "script/guimissingcontrol.h"
#include "script/guisession.h"
#include "script/guiwindow-methods.h"
#include "script/guiwindowcontrols.h"

#include <cassert>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

constexpr ScriptMethod guiWindow_isOpen_script = guiCallOnGuiThread<guiWindow_isOpen_qt>;
constexpr ScriptMethod guiWindow_popup_script = guiCallOnGuiThread<guiWindow_popup_qt>;
constexpr ScriptMethod guiWindow_isValid_script = guiCallOnGuiThread<guiWindow_isValid_qt>;
constexpr ScriptMethod guiWindow_setReturnValue_script = guiCallOnGuiThread<guiWindow_setReturnValue_qt>;
constexpr ScriptMethod guiWindow_setMinimumSize_script = guiCallOnGuiThread<guiWindow_setMinimumSize_qt>;
constexpr ScriptMethod guiWindow_setMaximumSize_script = guiCallOnGuiThread<guiWindow_setMaximumSize_qt>;
constexpr ScriptMethod guiWindow_setDefaultSize_script = guiCallOnGuiThread<guiWindow_setDefaultSize_qt>;
constexpr ScriptMethod guiWindow_setResizable_script = guiCallOnGuiThread<guiWindow_setResizable_qt>;
constexpr ScriptMethod guiWindow_useSystemFont_script = guiCallOnGuiThread<guiWindow_useSystemFont_qt>;
constexpr ScriptMethod guiWindow_readZoom_script = guiCallOnGuiThread<guiWindow_readZoom_qt>;
constexpr ScriptMethod guiWindow_writeZoom_script = guiCallOnGuiThread<guiWindow_writeZoom_qt>;
constexpr ScriptMethod guiWindow_setTitle_script = guiCallOnGuiThread<guiWindow_setTitle_qt>;
constexpr ScriptMethod guiWindow_setIcon_script = guiCallOnGuiThread<guiWindow_setIcon_qt>;
constexpr ScriptMethod guiWindow_getTitle_script = guiCallOnGuiThread<guiWindow_getTitle_qt>;
constexpr ScriptMethod guiWindow_setFocus_script = guiCallOnGuiThread<guiWindow_setFocus_qt>;
constexpr ScriptMethod guiWindow_getFocus_script = guiCallOnGuiThread<guiWindow_getFocus_qt>;
constexpr ScriptMethod guiWindow_setEnterControl_script = guiCallOnGuiThread<guiWindow_setEnterControl_qt>;
constexpr ScriptMethod guiWindow_getEnterControl_script = guiCallOnGuiThread<guiWindow_getEnterControl_qt>;
constexpr ScriptMethod guiWindow_setEscapeControl_script = guiCallOnGuiThread<guiWindow_setEscapeControl_qt>;
constexpr ScriptMethod guiWindow_getEscapeControl_script = guiCallOnGuiThread<guiWindow_getEscapeControl_qt>;
constexpr ScriptMethod guiWindow_setSizePolicy_script = guiCallOnGuiThread<guiWindow_setSizePolicy_qt>;
constexpr ScriptMethod guiWindow_getSizePolicy_script = guiCallOnGuiThread<guiWindow_getSizePolicy_qt>;
constexpr ScriptMethod guiWindow_control_script = guiCallOnGuiThread<guiWindow_control_qt>;
constexpr ScriptMethod guiWindow_readForm_script = guiCallOnGuiThread<guiWindow_readForm_qt>;
constexpr ScriptMethod guiWindow_writeForm_script = guiCallOnGuiThread<guiWindow_writeForm_qt>;
constexpr ScriptMethod guiWindow_isFormValid_script = guiCallOnGuiThread<guiWindow_isFormValid_qt>;
constexpr ScriptMethod guiWindow_findText_script = guiCallOnGuiThread<guiWindow_findText_qt>;
constexpr ScriptMethod guiWindow_writePdf_script = guiCallOnGuiThread<guiWindow_writePdf_qt>;
constexpr ScriptMethod guiWindow_getSelection_script = guiCallOnGuiThread<guiWindow_getSelection_qt>;

// The methods below send blocking events of their own, so they run on the script thread. Handlers that run meanwhile
// may destroy the window, so each step looks at the record again.

void guiWindow_open_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    int modal = args.count() == 1 && args.get(0)->isBool() && args.get(0)->toBool(0);
    result.setBool(guiWindow_open(data, modal));
}

/// Tells the window's script object that the window is open.
void raisePostOpen(guiWindowData const& record)
{
    static sstring const kPostOpen("ePostOpen");
    guiOwnedValue ignored = guiNewValue();
    guiCallback_CallEvent(record.root, record.window, kPostOpen, pGUI->getSession(), ignored.get());
}

/// Opens the window and tells it so, for whoever waits until it is closed. Gives the widget that it was opened with,
/// null when it has closed already; that is only compared with the open windows. False when it could not be opened.
bool startShow(ScriptPrivate* data, guiWidget*& widget)
{
    if (!guiWindow_open(data, 1))
        return false;
    guiHtmlBase* opened = GetWindow(guiWindow_getData(data));
    if (!opened)
        return false;
    widget = opened->getWidget();
    raisePostOpen(*guiWindow_getData(data));
    return true;
}

/// The first half of show(), for a host that waits in another way. True when the window was opened.
void guiWindow_startShow_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    assertOnScriptThread();
    guiWidget* widget = nullptr;
    result.setBool(startShow(data, widget));
}

/// What show() gives back; null without a page.
void guiWindow_getReturnValue_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    if (ScriptValue* returned = root ? root->getReturnCode() : nullptr)
        result = *returned;
}

void guiWindow_show_script(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                           ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    guiWidget* widget = nullptr;
    if (!startShow(data, widget))
        return;
    if (widget)
        pGUI->runPump(widget);
    guiWindow_getReturnValue_script(manager, data, self, args, result);
}

/// The object whose properties are the values of the page's controls.
void guiWindow_getForm_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    assertOnScriptThread();
    guiWindowData const* record = guiWindow_getData(data);
    result.setObject(record ? record->form : nullptr);
}

void guiWindow_close_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    guiWindow_close(data);
}

void guiWindow_load_script(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    if (guiIsOneString(args))
        result.setBool(guiWindow_load(data, self, guiTextOf(args, 0)));
}

void guiWindow_loadFile_script(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                               ScriptValue& result)
{
    assertOnScriptThread();
    guiWindow_load_script(pGUI->getManager(), data, self, args, result);
}

void guiWindow_setText_script(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    if (!guiIsOneString(args))
        return;
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    result.setBool(root && pGUI->getThread()->callSetText(root, guiTextOf(args, 0)));
}

void guiWindow_loadBackground_script(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                     ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    if (!guiIsOneString(args))
        return;
    sstring path = guiWindow_resolve(self, guiTextOf(args, 0));
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    result.setBool(root && pGUI->getThread()->callLoadBackground(root, path));
}

/// The page tree belongs to the GUI thread, so it is deleted there.
void deleteRoot_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue&)
{
    assertOnGuiThread();
    guiWindowData* record = guiWindow_getData(data);
    assert(record);
    guiHtmlBase::release(std::exchange(record->root, nullptr));
}

constexpr guiScriptMethod kMethods[] = {
    {"open", guiWindow_open_script},
    {"show", guiWindow_show_script},
    {"close", guiWindow_close_script},
    {"isOpen", guiWindow_isOpen_script},
    {"load", guiWindow_load_script},
    {"setReturnValue", guiWindow_setReturnValue_script},
    {"isValid", guiWindow_isValid_script},
    {"setMinimumSize", guiWindow_setMinimumSize_script},
    {"setMaximumSize", guiWindow_setMaximumSize_script},
    {"setDefaultSize", guiWindow_setDefaultSize_script},
    {"setResizable", guiWindow_setResizable_script},
    {"setText", guiWindow_setText_script},
    {"loadFile", guiWindow_loadFile_script},
    {"loadBackground", guiWindow_loadBackground_script},
    {"useSystemFont", guiWindow_useSystemFont_script},
    {"setTitle", guiWindow_setTitle_script},
    {"getTitle", guiWindow_getTitle_script},
    {"setFocus", guiWindow_setFocus_script},
    {"getFocus", guiWindow_getFocus_script},
    {"setEnterControl", guiWindow_setEnterControl_script},
    {"getEnterControl", guiWindow_getEnterControl_script},
    {"setEscapeControl", guiWindow_setEscapeControl_script},
    {"getEscapeControl", guiWindow_getEscapeControl_script},
    {"setSizePolicy", guiWindow_setSizePolicy_script},
    {"getSizePolicy", guiWindow_getSizePolicy_script},
    {"control", guiWindow_control_script},
};

constexpr guiScriptMethod kExtensionMethods[] = {
    {"getForm", guiWindow_getForm_script},
    {"readForm", guiWindow_readForm_script},
    {"writeForm", guiWindow_writeForm_script},
    {"isFormValid", guiWindow_isFormValid_script},
    {"startShow", guiWindow_startShow_script},
    {"getReturnValue", guiWindow_getReturnValue_script},
    {"popup", guiWindow_popup_script},
    {"setIcon", guiWindow_setIcon_script},
    {"getSelection", guiWindow_getSelection_script},
    {"findText", guiWindow_findText_script},
    {"readZoom", guiWindow_readZoom_script},
    {"writeZoom", guiWindow_writeZoom_script},
    {"writePdf", guiWindow_writePdf_script},
    {"startPrint", guiWindow_startPrint_script},
};

} // namespace

void guiWindow_onLoad_script(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    result.setNull();
    if (self) {
        pGUI->setEngine(self->getEngine());
        guiSession_complete();
    }
    if (args.count() < 1 || !args.get(0)->isString())
        return;
    sstring pattern = guiTextOf(args, 0);
    if (args.count() == 1) {
        guiFilter_remove(pattern);
    } else if (args.count() == 2 && args.get(1)->isFunction()) {
        guiFilter_add(pattern, args.get(1));
    } else if (args.count() == 2 && args.get(1)->isObject()) {
        guiFilter_add(pattern, args.get(1)->toObject(0));
    }
}

void guiWindow_onCreate(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnScriptThread();
    pGUI->setEngine(self->getEngine());
    guiSession_complete();
    assert(!guiWindow_getData(data));
    auto* record = static_cast<guiWindowData*>(std::calloc(1, sizeof(guiWindowData)));
    if (!record)
        throw std::bad_alloc();
    record->tag = kRecordTag;
    record->window = self;
    record->data = data;
    record->form = guiComponent::NewScriptObject();
    data->setData(kPrivateKey, record);
    if (guiIsOneString(args))
        guiWindow_load(data, self, guiTextOf(args, 0));
    result.setBool(1);
}

void guiWindow_onDestroy(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                         ScriptValue& result)
{
    assertOnScriptThread();
    guiWindowData* record = guiWindow_getData(data);
    result.setBool(1);
    if (!record)
        return;
    if (record->root)
        pGUI->getThread()->callFunction(deleteRoot_qt, manager, data, self, args, result);
    if (guiWindow_getData(data) != record)
        return; // a handler that ran meanwhile has destroyed the window already
    assert(!record->root);
    guiControl_forgetWindow(record->window);
    guiWindowControls_release(record->window);
    data->setData(kPrivateKey, nullptr);
    if (record->control)
        record->control->letGo();
    guiComponent::DeleteScriptObject(record->form);
    velaPoison(record, sizeof *record);
    std::free(record);
}

int guiWindow_onConfigure(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(guiWindow_onCreate);
    scriptClass.setDestroyHandler(guiWindow_onDestroy);
    for (guiScriptMethod const& entry : kMethods)
        scriptClass.addMethod(entry.name, entry.method);
    scriptClass.addClassMethod("onLoad", guiWindow_onLoad_script);
    return 1;
}

int guiWindow_onConfigureExtension(ScriptClass& scriptClass)
{
    for (guiScriptMethod const& entry : kExtensionMethods)
        scriptClass.addMethod(entry.name, entry.method);
    return 1;
}

guiWindowData* guiWindow_getData(ScriptPrivate* data) { return guiRecordIn<guiWindowData>(data); }

guiHtmlBase* GetWindow(void* record)
{
    auto* window = static_cast<guiWindowData*>(record);
    return window && window->tag == kRecordTag ? window->root : nullptr;
}

guiHtml* GetControl(void* record, sstring& name)
{
    guiHtmlBase* root = GetWindow(record);
    if (!root) {
        velaLog("GuiWindow::GetControl() - invalid window data supplied for control %s (0x%08lX)\n",
                velaPrintable(name).c_str(), static_cast<unsigned long>(reinterpret_cast<std::uintptr_t>(record)));
        return nullptr;
    }
    assertOnGuiThread();
    if (name.getLength() == 0)
        return root;
    guiHtml* node = root->getNamed(name);
    if (!node)
        guiTellMissingControl(*root, name, "GuiWindow::GetControl()");
    return node;
}

void SetCurrentControl(ScriptPrivate* data, sstring& name)
{
    guiWindowData* record = guiWindow_getData(data);
    ScriptObject* session = pGUI->getSession();
    if (!record || !record->control || !session)
        return;
    guiOwnedValue value = guiNewValue();
    value->setObject(record->control);
    session->setProperty("currentControl", value.get());
    guiControl_setPrivateName(record->control->getPrivate(), name);
}

namespace {

void clearCurrentControl()
{
    if (ScriptObject* session = pGUI->getSession())
        session->setProperty("currentControl", guiNewValue().get());
}

} // namespace

void guiWindow_chooseControl(ScriptPrivate* data, sstring name)
{
    assertOnGuiThread();
    guiWindowData* record = guiWindow_getData(data);
    if (!record)
        return;
    if (name.getLength() == 0)
        return clearCurrentControl();
    if (!record->control) {
        record->control = CreateControlObject(record->window);
        if (!record->control)
            return;
        guiControl_setPrivateInfo(record->control->getPrivate(), record->window, name);
    }
    SetCurrentControl(data, name);
}

int guiWindow_open(ScriptPrivate* data, int modal)
{
    assertOnScriptThread();
    guiHtmlBase* root = GetWindow(guiWindow_getData(data));
    return root ? pGUI->getThread()->callPageOpen(root, modal) : 0;
}

void guiWindow_close(ScriptPrivate* data)
{
    if (guiHtmlBase* root = GetWindow(guiWindow_getData(data)))
        pGUI->getThread()->callPageClose(root);
}
