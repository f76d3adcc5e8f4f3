// controls/guihtmlcustom-script.cpp: the instance of a custom element's component: made on the script thread, let go on
// the GUI thread; and the method that the instance has beside those of every control.
#include "controls/guieventscope.h"
#include "controls/guihtmlcustom.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiscriptvalue.h"
#include "controls/guitoolkit.h"
#include "controls/guiwidgetfocus.h"
#include "foundation/vela-log.h"
#include "foundation/vela-threadrole.h"
#include "page/guinodewatch.h"
#include "page/guinumbers.h"
#include "page/guipageroot.h"

#include <algorithm>
#include <cassert>
#include <optional>
#include <utility>

namespace {

/// A size that script asks for: pixels as a number, or a text such as "50%". None for anything else.
std::optional<guiLength> readLength(ScriptArgs& args, int index)
{
    if (guiIsString(args, index))
        return guiToLength(guiTextOf(args, index));
    if (!guiIsNumber(args, index))
        return std::nullopt;
    return guiLength{kUnitPixels, static_cast<unsigned>(std::clamp(args.get(index)->toInt(0), 0, kMaxPixels))};
}

void setSize_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    std::optional<guiLength> const width = readLength(args, 0);
    std::optional<guiLength> const height = readLength(args, 1);
    bool const isKnown = width && (args.count() == 1 || (args.count() == 2 && height));
    auto* node = isKnown ? guiControlOf<guiHtmlCustom>(data, self) : nullptr;
    if (!node)
        return;
    node->m.fixed.unitX = width->unit;
    node->m.fixed.x = width->value;
    if (height) {
        node->m.fixed.unitY = height->unit;
        node->m.fixed.y = height->value;
    }
    node->updateLayout(1);
}

} // namespace

void guiHtmlCustom::setCompName(sstring const& name)
{
    guiNodeWatch const self(this);
    endInstance();
    if (!self.alive())
        return;
    m_component.name = name;
    m_isReported = false;
    makeInstance();
}

void guiHtmlCustom::setParam(sstring const& name, sstring const& value)
{
    m_component.params.emplace_back(name, value);
    if (m_hasInstance)
        guiSetText(m.object, name, value);
}

void guiHtmlCustom::makeInstance()
{
    if (m_hasInstance || m_component.name.getLength() == 0 || !guiPageObjectOf(this))
        return;
    guiNodeWatch const self(this);
    m_isBuilding = true;
    guiControlHost::current().buildCustomObject(this);
    if (self.alive())
        m_isBuilding = false;
}

ScriptObject* guiHtmlCustom::getCustomObject()
{
    if (m_isBuilding && guiControlHost::current().isScriptThread()) {
        m_isBuilding = false;
        buildCustomObject_script();
    }
    return m.object;
}

// Called while the GUI thread waits for the script thread, or on a host's only thread. The component's constructor runs
// script, but the node stays: its page is complete, and whoever replaces it now waits for the same thread.
void guiHtmlCustom::buildCustomObject_script()
{
    guiNodeWatch const self(this);
    ScriptObject* page = guiPageObjectOf(this);
    ScriptObject* instance = page ? page->getEngine()->createInstance(m_component.name) : nullptr;
    if (!self.alive()) {
        if (instance)
            instance->letGo();
        return;
    }
    if (!instance) {
        if (!std::exchange(m_isReported, true))
            velaLog("guiHtmlCustom: unable to construct instance of component %s%s\n",
                    velaPrintable(m_component.name).c_str(), velaPrintable(getString(kStringPlace)).c_str());
        return;
    }
    guiControlHost::current().bindObject(instance, this);
    m.object = instance;
    m_hasInstance = true;
    addMethods(instance);
    applyParams(instance);
}

void guiHtmlCustom::addMethods(ScriptObject* instance)
{
    guiControlHost::current().fleshIn(instance, this);
    instance->addMethod(sstring("setSize"), guiCallOnGuiThread<setSize_qt>);
    m_toolkit = BuildToolkit(this);
    makeInput(instance);
    if (m_toolkit)
        guiSetObject(instance, sstring("toolkit"), m_toolkit);
    guiSetObject(instance, sstring("mouse"), mx.mouse);
    if (mx.keyboard)
        guiSetObject(instance, sstring("keyboard"), mx.keyboard);
    mx.mouseX = 0;
    mx.mouseY = 0;
    onCallback();
}

/// The objects that say where the pointer is and which key was pressed.
void guiHtmlCustom::makeInput(ScriptObject* instance)
{
    assert(!mx.mouse);
    if (HostPlatform* platform = guiControlHost::current().platform())
        mx.mouse = platform->createObject(instance->getEngine());
    if (mx.mouse && instance->hasMethod(sstring("eKey")))
        mx.keyboard = guiControlHost::current().platform()->createObject(instance->getEngine());
}

sstring guiHtmlCustom::getTip()
{
    sstring const tip = m_toolkit ? guiStringOf(m_toolkit, "tooltip") : sstring();
    return tip.getLength() != 0 ? tip : m_component.tip;
}

void guiHtmlCustom::applyParams(ScriptObject* instance)
{
    for (auto const& [name, value] : m_component.params)
        guiSetText(instance, name, value);
}

void guiHtmlCustom::notifyOnCreate()
{
    m_isCreated = true;
    if (m_hasInstance)
        call({"eCreate", mx.mouseX, mx.mouseY, {}});
}

void guiHtmlCustom::endInstance()
{
    if (!m_hasInstance)
        return;
    guiNodeWatch const self(this);
    if (std::exchange(m_isCreated, false))
        call({"eDestroy", mx.mouseX, mx.mouseY, {}});
    if (self.alive())
        dropInstance();
}

void guiHtmlCustom::dropInstance()
{
    m_waiting.clear();
    m_isCreated = false;
    m_link->cut();
    m_link = std::make_shared<guiElementLink>(this);
    m_painting = painting();
    DestroyToolkit(std::exchange(m_toolkit, nullptr));
    guiControlHost& host = guiControlHost::current();
    guiDestroyWrapper(m_focusWidget);
    if (HostPlatform* platform = mx.mouse && m_hasInstance ? host.platform() : nullptr) {
        platform->destroyObject(std::exchange(mx.mouse, nullptr));
        if (mx.keyboard)
            platform->destroyObject(std::exchange(mx.keyboard, nullptr));
    }
    if (std::exchange(m_hasInstance, false))
        host.unbindObject(m.object.exchange(nullptr), this);
}
