// script/guicontrol.cpp: see guicontrol.h: the record, the methods and the two read-only properties of the class.
#include "script/guicontrol.h"

#include "controls/guihtmlimage.h"
#include "controls/guiscriptmethod.h"
#include "foundation/vela-log.h"
#include "foundation/vela-poison.h"
#include "foundation/vela-threadrole.h"
#include "page/guilinkname.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guipagewatcher.h"
#include "runtime/guithread.h"
#include "script/guisizepolicy.h"
#include "script/guiwindow.h"

#include <QWidget>
#include <cassert>
#include <cstdlib>
#include <mutex>
#include <new>
#include <optional>
#include <set>

namespace {

// Control objects by window. They do not keep their window, so they are found here and unbound when it ends.
std::mutex theLock;
std::set<std::pair<ScriptObject*, guiControlData*>> theBindings; // guarded by theLock

/// Notes what script says to an element, when somebody wants to know.
template <typename Value>
void note(guiHtml* node, std::optional<Value> guiSaid::*part, Value const& value) TARN_ON(velaGuiRole)
{
    if (guiPageWatcher* watcher = guiPageWatcher::current())
        watcher->said(node).*part = value;
}

/// A file takes the place of a text that script has given the element before.
void dropText(guiHtml* node) TARN_ON(velaGuiRole)
{
    if (guiPageWatcher* watcher = guiPageWatcher::current())
        watcher->said(node).text.reset();
}

/// Gives a picture another file, which is loaded now or, when the window is not on the screen, as soon as it is.
void changePicture(guiHtmlImage& image, sstring const& file) TARN_ON(velaGuiRole)
{
    image.setString(kStringPlace, sstring()); // script names this one, not the page
    note(&image, &guiSaid::picture, guiFullName(&image, file));
    image.setSource(guiFullName(&image, file));
    QWidget* window = image.getTopLevelWidget();
    if (window && window->isVisible())
        image.onShow();
}

void guiControl_loadFile_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(0);
    guiHtml* node = guiIsOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    if (!node)
        return;
    sstring file = guiTextOf(args, 0);
    auto* image = dynamic_cast<guiHtmlImage*>(node);
    if (!image) {
        dropText(node);
        result.setBool(pGUI->getThread()->callLoadFile(node, file));
        return;
    }
    changePicture(*image, file);
    result.setBool(1);
}

void guiControl_loadBackground_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                  ScriptValue& result)
{
    assertOnGuiThread();
    guiHtml* node = guiIsOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    if (node)
        note(node, &guiSaid::background, guiTextOf(args, 0));
    result.setBool(node && pGUI->getThread()->callLoadBackground(node, guiTextOf(args, 0)));
}

void guiControl_setText_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    guiHtml* node = guiIsOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    if (node)
        note(node, &guiSaid::text, guiTextOf(args, 0));
    result.setBool(node && pGUI->getThread()->callSetText(node, guiTextOf(args, 0)));
}

void guiControl_setCaption_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                              ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtml* node = guiIsOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    if (!node)
        return;
    note(node, &guiSaid::caption, guiTextOf(args, 0));
    pGUI->getThread()->callSetCaption(node, guiTextOf(args, 0));
}

void guiControl_play_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtml* node = guiIsOptionalSwitch(args) ? guiControl_getHtml(data, self) : nullptr;
    if (auto* image = dynamic_cast<guiHtmlImage*>(node))
        image->play();
}

void guiControl_enable_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtml* node = guiIsOptionalSwitch(args) ? guiControl_getHtml(data, self) : nullptr;
    if (!node)
        return;
    note(node, &guiSaid::enabled, guiOptionalSwitchOf(args));
    node->setEnabled(guiOptionalSwitchOf(args));
}

void guiControl_disable_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtml* node = args.count() == 0 ? guiControl_getHtml(data, self) : nullptr;
    if (!node)
        return;
    note(node, &guiSaid::enabled, 0);
    node->setEnabled(0);
}

void guiControl_isEnabled_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                             ScriptValue& result)
{
    assertOnGuiThread();
    guiHtml* node = args.count() == 0 ? guiControl_getHtml(data, self) : nullptr;
    result.setBool(node && node->isEnabled());
}

void guiControl_setSizePolicy_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                 ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    if (!guiIsOneString(args))
        return;
    std::optional<guiSizePolicy> policy = guiSizePolicy_fromName(guiTextOf(args, 0));
    guiHtml* node = policy ? guiControl_getHtml(data, self) : nullptr;
    if (!node)
        return;
    node->setSizePolicy(*policy);
    node->updateLayout(1);
}

void guiControl_getSizePolicy_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                 ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    if (args.count() != 0)
        return;
    guiHtml* node = guiControl_getHtml(data, self);
    result.setString(guiSizePolicy_toName(node ? node->getSizePolicy() : kPolicyResize));
}

/// The form of the page that the control is on, null for one that is gone or has no name.
guiFormValues* formOf(ScriptPrivate* data, ScriptObject* self, sstring& name) TARN_ON(velaGuiRole)
{
    guiHtml* node = guiControl_getHtml(data, self);
    guiHtmlBase* root = node ? guiHtmlBase::of(node) : nullptr;
    if (!root || !node->hasString(kStringName))
        return nullptr;
    name = node->getName();
    return &root->formValues();
}

/// The value of the control as it is in the form; null for one that has none.
void guiControl_getValue_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    sstring name;
    if (guiFormValues* form = formOf(data, self, name))
        form->read(name, result);
}

/// Shows another value at once. False when the control can not take it.
void guiControl_setValue_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(1);
    sstring name;
    if (guiFormValues* form = args.count() == 1 ? formOf(data, self, name) : nullptr)
        result.setBool(form->write(name, *args.get(0), false));
}

/// The part of guiControl_onGetProp that runs on the GUI thread. Its argument is the name of the property.
void readClientSize_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    guiRect client;
    if (guiHtml* node = guiControl_getHtml(data, self))
        node->getClientRect(&client);
    result.setInt(guiTextOf(args, 0) == "width" ? client.width : client.height);
}

void publishWindow(ScriptObject* control, ScriptObject* window)
{
    guiOwnedValue value = guiNewValue();
    value->setObject(window);
    control->setProperty("window", value.get());
}

void publishName(ScriptObject* control, sstring const& name)
{
    guiOwnedValue value = guiNewValue();
    value->setString(name);
    control->setProperty("name", value.get());
}

/// Ends the binding to a window, if there is one. Under the lock.
void unbind(guiControlData& record)
{
    [[maybe_unused]] std::size_t const count = theBindings.erase({record.window, &record});
    assert(count == 1 || !record.window);
    record.window = nullptr;
    record.windowData = nullptr;
}

constexpr guiScriptMethod kMethods[] = {
    {"loadBackground", guiCallOnGuiThread<guiControl_loadBackground_qt>},
    {"loadFile", guiCallOnGuiThread<guiControl_loadFile_qt>},
    {"setText", guiCallOnGuiThread<guiControl_setText_qt>},
    {"setCaption", guiCallOnGuiThread<guiControl_setCaption_qt>},
    {"play", guiCallOnGuiThread<guiControl_play_qt>},
    {"enable", guiCallOnGuiThread<guiControl_enable_qt>},
    {"disable", guiCallOnGuiThread<guiControl_disable_qt>},
    {"isEnabled", guiCallOnGuiThread<guiControl_isEnabled_qt>},
    {"setSizePolicy", guiCallOnGuiThread<guiControl_setSizePolicy_qt>},
    {"getSizePolicy", guiCallOnGuiThread<guiControl_getSizePolicy_qt>},
};

constexpr guiScriptMethod kExtensionMethods[] = {
    {"getValue", guiCallOnGuiThread<guiControl_getValue_qt>},
    {"setValue", guiCallOnGuiThread<guiControl_setValue_qt>},
};

} // namespace

bool guiControl_onAddProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    sstring wanted = name.toString(0);
    return !isStatic && (wanted == "width" || wanted == "height");
}

bool guiControl_onDelProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, bool) { return false; }

bool guiControl_onGetProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                          ScriptValue& out, bool isStatic)
{
    assertOnScriptThread();
    if (!guiControl_onAddProp(manager, data, self, name, isStatic))
        return false;
    guiOwnedArgs args = guiNewArgs();
    args->append(const_cast<ScriptValue*>(&name)); // copied, not changed
    out.setNull();
    pGUI->getThread()->callFunction(readClientSize_qt, manager, data, self, *args, out);
    return true;
}

bool guiControl_onSetProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, ScriptValue const&, bool)
{
    return false;
}

void guiControl_onCreate(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    assert(!guiControl_getData(data));
    void* memory = std::malloc(sizeof(guiControlData));
    if (!memory)
        throw std::bad_alloc();
    data->setData(kPrivateKey, new (memory) guiControlData{kRecordTag, nullptr, sstring(), self, nullptr, false});
    result.setBool(1);
}

void guiControl_onDestroy(LibManager&, ScriptPrivate* data, [[maybe_unused]] ScriptObject* self, ScriptArgs&,
                          ScriptValue& result)
{
    assertOnScriptThread();
    result.setBool(1);
    guiControlData* record = guiControl_getData(data);
    if (!record)
        return;
    {
        std::lock_guard<std::mutex> guard(theLock);
        unbind(*record);
    }
    assert(record->self == self);
    data->setData(kPrivateKey, nullptr);
    record->~guiControlData();
    velaPoison(record, sizeof *record);
    std::free(record);
}

int guiControl_onConfigure(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(guiControl_onCreate);
    scriptClass.setDestroyHandler(guiControl_onDestroy);
    scriptClass.setPropertyHandlers(guiControl_onAddProp, guiControl_onDelProp, guiControl_onGetProp,
                                    guiControl_onSetProp);
    for (guiScriptMethod const& entry : kMethods)
        scriptClass.addMethod(entry.name, entry.method);
    return 1;
}

int guiControl_onConfigureExtension(ScriptClass& scriptClass)
{
    for (guiScriptMethod const& entry : kExtensionMethods)
        scriptClass.addMethod(entry.name, entry.method);
    return 1;
}

guiControlData* guiControl_getData(ScriptPrivate* data) { return guiRecordIn<guiControlData>(data); }

void guiControl_setPrivateInfo(ScriptPrivate* data, ScriptObject* window, sstring const& name)
{
    guiControlData* record = guiControl_getData(data);
    if (!record)
        return;
    {
        std::lock_guard<std::mutex> guard(theLock);
        unbind(*record);
        record->window = window;
        record->windowData = window ? guiWindow_getData(window->getPrivate()) : nullptr;
        assert(!theBindings.contains({window, record}));
        theBindings.insert({window, record});
    }
    publishWindow(record->self, window);
    guiControl_setPrivateName(data, name);
}

void guiControl_setPrivateName(ScriptPrivate* data, sstring const& name)
{
    guiControlData* record = guiControl_getData(data);
    if (!record)
        return;
    {
        std::lock_guard<std::mutex> guard(theLock);
        record->name = name;
    }
    publishName(record->self, name);
}

void guiControl_forgetWindow(ScriptObject* window)
{
    assertOnScriptThread();
    std::lock_guard<std::mutex> guard(theLock);
    auto at = theBindings.lower_bound({window, nullptr});
    while (at != theBindings.end() && at->first == window) {
        guiControlData* record = (at++)->second;
        unbind(*record);
    }
}

guiHtml* guiControl_getHtml(ScriptPrivate* data, ScriptObject* self)
{
    assertOnGuiThread();
    // An object that was made for a node stands for that node; others may have the same name, or no name either.
    if (guiHtml* node = pGUI->findNode(self))
        return node;
    guiControlData* record = guiControl_getData(data);
    if (!record)
        return nullptr;
    std::unique_lock<std::mutex> guard(theLock);
    guiWindowData* window = record->windowData;
    sstring name = record->name;
    bool isUnnamedNode = record->isOfNode && name.getLength() == 0;
    guard.unlock();
    return GetWindow(window) && !isUnnamedNode ? GetControl(window, name) : nullptr;
}

ScriptObject* CreateControlObject(ScriptObject* page)
{
    return page ? page->getEngine()->createInstance("GuiControl") : nullptr;
}

void FleshInControlObject(ScriptObject* object, guiHtml* node)
{
    assert(object && node);
    ScriptObject* window = guiPageObjectOf(node);
    guiControl_setPrivateInfo(object->getPrivate(), window, node->getName());
    guiControlData* record = guiControl_getData(object->getPrivate());
    if (record)
        record->isOfNode = true;
    for (guiScriptMethod const& entry : kMethods)
        if (!object->hasMethod(entry.name))
            object->addMethod(entry.name, entry.method);
    if (!record) { // an object of another class, which a script component has made
        publishWindow(object, window);
        publishName(object, node->getName());
    }
}
