// script/guicontrol.cpp: the GuiControl class: its record, its methods and its two read-only properties.
#include "script/guicontrol.h"

#include "page/guihtml.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "runtime/guithread.h"
#include "script/guisizepolicy.h"
#include "script/guiwindow.h"

namespace {

template <ScriptMethod onGuiThread>
void handOver(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    pGUI->getThread()->callFunction(onGuiThread, manager, data, self, args, result);
}

bool hasOneString(ScriptArgs& args) { return args.count() == 1 && args.get(0)->isString(); }
bool isSwitch(ScriptValue const& value) { return value.isBool() || value.isNumber(); }

void guiControl_loadFile_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    guiHtml* node = hasOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    result.setBool(node != nullptr && pGUI->getThread()->callLoadFile(node, args.get(0)->toString(0)));
}

void guiControl_loadBackground_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                  ScriptValue& result)
{
    guiHtml* node = hasOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    result.setBool(node != nullptr && pGUI->getThread()->callLoadBackground(node, args.get(0)->toString(0)));
}

void guiControl_setText_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    guiHtml* node = hasOneString(args) ? guiControl_getHtml(data, self) : nullptr;
    result.setBool(node != nullptr && pGUI->getThread()->callSetText(node, args.get(0)->toString(0)));
}

void guiControl_setCaption_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                              ScriptValue& result)
{
    result.setNull();
    if (guiHtml* node = hasOneString(args) ? guiControl_getHtml(data, self) : nullptr)
        pGUI->getThread()->callSetCaption(node, args.get(0)->toString(0));
}

void guiControl_enable_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool isPlain = args.count() == 0;
    if (!isPlain && (args.count() != 1 || !isSwitch(*args.get(0))))
        return;
    if (guiHtml* node = guiControl_getHtml(data, self))
        node->setEnabled(isPlain || args.get(0)->toBool(0));
}

void guiControl_disable_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    result.setNull();
    if (guiHtml* node = guiControl_getHtml(data, self))
        node->setEnabled(0);
}

void guiControl_isEnabled_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    guiHtml* node = guiControl_getHtml(data, self);
    result.setBool(node != nullptr && node->isEnabled());
}

void guiControl_setSizePolicy_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                                 ScriptValue& result)
{
    result.setNull();
    if (!hasOneString(args))
        return;
    std::optional<guiSizePolicy> policy = guiSizePolicy_fromName(args.get(0)->toString(0));
    guiHtml* node = policy ? guiControl_getHtml(data, self) : nullptr;
    if (node != nullptr)
        node->setSizePolicy(*policy);
}

void guiControl_getSizePolicy_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    guiHtml* node = guiControl_getHtml(data, self);
    result.setString(guiSizePolicy_toName(node != nullptr ? node->getSizePolicy() : kPolicyResize));
}

bool guiControl_onAddProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const& name, bool isStatic)
{
    sstring wanted = name.toString(0);
    return !isStatic && (wanted == "width" || wanted == "height");
}

bool guiControl_onDelProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, bool) { return false; }

/// The arguments of a property handler while it runs on the GUI thread.
void readClientSize_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    guiHtml* node = guiControl_getHtml(data, self);
    if (node == nullptr)
        return;
    guiRect client;
    node->getClientRect(&client);
    result.setInt(args.get(0)->toString(0) == "width" ? client.width : client.height);
}

bool guiControl_onGetProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                          ScriptValue& out, bool isStatic)
{
    if (!guiControl_onAddProp(manager, data, self, name, isStatic))
        return false;
    ScriptArgs* args = guiComponent::NewScriptArgs();
    args->append(const_cast<ScriptValue*>(&name));
    out.setNull();
    pGUI->getThread()->callFunction(readClientSize_qt, manager, data, self, *args, out);
    guiComponent::DeleteScriptArgs(args);
    return true;
}

bool guiControl_onSetProp(LibManager&, ScriptPrivate*, ScriptObject*, ScriptValue const&, ScriptValue const&, bool)
{
    return false;
}

void guiControl_onCreate(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    data->setData(kPrivateKey, new guiControlData{kRecordTag, nullptr, sstring(), self, false});
    result.setBool(1);
}

void guiControl_onDestroy(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs&, ScriptValue& result)
{
    result.setBool(1);
    guiControlData* record = guiControl_getData(data);
    if (record == nullptr)
        return;
    if (record->window != nullptr)
        record->window->letGo();
    data->setData(kPrivateKey, nullptr);
    delete record;
}

struct methodEntry
{
    const char* name;
    ScriptMethod method;
};

constexpr methodEntry kMethods[] = {
    {"loadBackground", handOver<guiControl_loadBackground_qt>},
    {"loadFile", handOver<guiControl_loadFile_qt>},
    {"setText", handOver<guiControl_setText_qt>},
    {"setCaption", handOver<guiControl_setCaption_qt>},
    {"enable", handOver<guiControl_enable_qt>},
    {"disable", handOver<guiControl_disable_qt>},
    {"isEnabled", handOver<guiControl_isEnabled_qt>},
    {"setSizePolicy", handOver<guiControl_setSizePolicy_qt>},
    {"getSizePolicy", handOver<guiControl_getSizePolicy_qt>},
};

} // namespace

int guiControl_onConfigure(ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(guiControl_onCreate);
    scriptClass.setDestroyHandler(guiControl_onDestroy);
    scriptClass.setPropertyHandlers(guiControl_onAddProp, guiControl_onDelProp, guiControl_onGetProp,
                                    guiControl_onSetProp);
    for (methodEntry const& entry : kMethods)
        scriptClass.addMethod(entry.name, entry.method);
    return 1;
}

guiControlData* guiControl_getData(ScriptPrivate* data)
{
    if (data == nullptr)
        return nullptr;
    try {
        auto* record = static_cast<guiControlData*>(data->getData(kPrivateKey));
        return record != nullptr && record->tag == kRecordTag ? record : nullptr;
    } catch (...) {
        return nullptr; // a host's slot that fails holds no record
    }
}

void guiControl_setPrivateInfo(ScriptPrivate* data, ScriptObject* window, sstring const& name)
{
    guiControlData* record = guiControl_getData(data);
    if (record == nullptr)
        return;
    window->keep();
    if (record->window != nullptr)
        record->window->letGo();
    record->window = window;
    ScriptValue* value = guiComponent::NewScriptValue();
    value->setObject(window);
    record->self->setProperty("window", value);
    guiComponent::DeleteScriptValue(value);
    guiControl_setPrivateName(data, name);
}

void guiControl_setPrivateName(ScriptPrivate* data, sstring const& name)
{
    guiControlData* record = guiControl_getData(data);
    if (record == nullptr)
        return;
    record->name = name;
    ScriptValue* value = guiComponent::NewScriptValue();
    value->setString(name);
    record->self->setProperty("name", value);
    guiComponent::DeleteScriptValue(value);
}

ScriptObject* CreateControlObject(ScriptObject* page) { return page->getEngine()->createInstance("GuiControl"); }

void FleshInControlObject(ScriptObject* control, guiHtml* node)
{
    guiHtmlBase* base = node->getBaseHtml();
    guiControl_setPrivateInfo(control->getPrivate(), base->getPageObject(), node->getName());
    if (guiControlData* record = guiControl_getData(control->getPrivate()))
        record->isNameless = node->getName().getLength() == 0;
    for (methodEntry const& entry : kMethods)
        if (!control->hasMethod(entry.name))
            control->addMethod(entry.name, entry.method);
}

guiHtml* guiControl_getHtml(ScriptPrivate* data, ScriptObject* self)
{
    if (guiHtml* node = pGUI->findNode(self))
        return node;
    guiControlData* record = guiControl_getData(data);
    if (record != nullptr && record->isNameless)
        return nullptr;
    guiWindowData* window =
        record != nullptr && record->window != nullptr ? guiWindow_getData(record->window->getPrivate()) : nullptr;
    if (window == nullptr || window->root == nullptr)
        return nullptr;
    return GetControl(window, record->name);
}
