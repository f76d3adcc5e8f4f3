// script/guiwindow-methods.cpp: see guiwindow-methods.h. Each method checks the arguments, then reads or changes the
// page root. Without a page it gives its neutral result.
#include "script/guiwindow-methods.h"

#include "controls/guifind.h"
#include "controls/guiformcheck.h"
#include "controls/guihtmlcontextmenu.h"
#include "controls/guiscriptmethod.h"
#include "controls/guiwidget.h"
#include "foundation/vela-qt.h"
#include "foundation/vela-threadrole.h"
#include "page/guipagetext.h"
#include "page/guizoom.h"
#include "runtime/gui.h"
#include "runtime/guihtmlbase.h"
#include "script/guimissingcontrol.h"
#include "script/guisizepolicy.h"
#include "script/guiwindow.h"

#include <QCursor>
#include <algorithm>
#include <optional>

namespace {

guiHtmlBase* rootOf(ScriptPrivate* data) { return GetWindow(guiWindow_getData(data)); }

/// No argument means on; one boolean or number is taken as it is; anything else is not a switch.
std::optional<int> switchArgument(ScriptArgs& args)
{
    if (!guiIsOptionalSwitch(args))
        return std::nullopt;
    if (args.count() == 0)
        return 1;
    return args.get(0)->isBool() ? args.get(0)->toBool(0) : args.get(0)->toInt(0);
}

void setSize(ScriptPrivate* data, ScriptArgs& args, void (guiHtmlBase::*setter)(int width, int height))
{
    guiHtmlBase* root = rootOf(data);
    bool areNumbers = args.count() == 2 && args.get(0)->isNumber() && args.get(1)->isNumber();
    if (root && areNumbers)
        (root->*setter)(args.get(0)->toInt(0), args.get(1)->toInt(0));
}

void setName(ScriptPrivate* data, ScriptArgs& args, void (guiHtmlBase::*setter)(sstring const& name))
{
    guiHtmlBase* root = rootOf(data);
    if (root && guiIsOneString(args))
        (root->*setter)(guiTextOf(args, 0));
}

/// "X", which closes the window, is no control.
void setKeyControl(ScriptPrivate* data, ScriptArgs& args, void (guiHtmlBase::*setter)(sstring const& name),
                   char const* caller)
{
    setName(data, args, setter);
    guiHtmlBase* root = rootOf(data);
    if (root && guiIsOneString(args) && guiTextOf(args, 0) != "X")
        guiCheckControl(*root, guiTextOf(args, 0), caller);
}

void getName(ScriptPrivate* data, ScriptArgs& args, ScriptValue& result, sstring (guiHtmlBase::*getter)() const)
{
    if (args.count() != 0)
        return;
    guiHtmlBase* root = rootOf(data);
    result.setString(root ? (root->*getter)() : sstring());
}

} // namespace

void guiWindow_isOpen_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    guiHtmlBase* root = rootOf(data);
    result.setBool(args.count() == 0 && root && root->isOpen());
}

// The name of a context menu, and a place in the window in pixels; without a place, at the pointer. Whether it is
// shown.
void guiWindow_popup_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setBool(0);
    guiHtmlBase* root = rootOf(data);
    bool const hasPlace = args.count() == 3 && guiIsNumber(args, 1) && guiIsNumber(args, 2);
    if (!root || !root->getWidget() || !guiIsString(args, 0) || (args.count() != 1 && !hasPlace))
        return;
    guiCheckControl(*root, guiTextOf(args, 0), "GuiWindow::popup()");
    sstring name = guiTextOf(args, 0);
    auto* menu = dynamic_cast<guiHtmlContextMenu*>(root->getNamed(name));
    QPoint const place = hasPlace ? root->getWidget()->mapToGlobal(QPoint(args.get(1)->toInt(0), args.get(2)->toInt(0)))
                                  : QCursor::pos();
    result.setBool(menu && menu->popup(place, {}));
}

void guiWindow_isValid_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    if (args.count() == 0)
        result.setBool(rootOf(data) && rootOf(data)->hasPage());
}

void guiWindow_setReturnValue_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (root && args.count() == 1)
        root->setReturnCode(*args.get(0));
}

void guiWindow_setMinimumSize_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setSize(data, args, &guiHtmlBase::setMinimumSize);
}

void guiWindow_setMaximumSize_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setSize(data, args, &guiHtmlBase::setMaximumSize);
}

void guiWindow_setDefaultSize_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setSize(data, args, &guiHtmlBase::setDefaultSize);
}

void guiWindow_setResizable_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (std::optional<int> on = switchArgument(args); on && root)
        root->setResizable(*on);
}

void guiWindow_useSystemFont_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (std::optional<int> on = switchArgument(args); on && root)
        root->setUseSystemFont(*on);
}

// In percent.
void guiWindow_readZoom_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase const* root = rootOf(data);
    if (args.count() == 0)
        result.setInt(static_cast<int>(root ? root->getZoom() : unsigned{kUnzoomed}));
}

void guiWindow_writeZoom_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (root && args.count() == 1 && args.get(0)->isNumber())
        guiZoomPage(*root, static_cast<unsigned>(std::max(args.get(0)->toInt(0), 0)));
}

void guiWindow_setTitle_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setName(data, args, &guiHtmlBase::setTitle);
}

void guiWindow_setIcon_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setName(data, args, &guiHtmlBase::setIcon);
}

void guiWindow_getTitle_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    getName(data, args, result, &guiHtmlBase::getTitle);
}

void guiWindow_setFocus_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (!root || !guiIsOneString(args))
        return;
    guiCheckControl(*root, guiTextOf(args, 0), "GuiWindow::setFocus()");
    root->setFocus(guiTextOf(args, 0));
}

void guiWindow_getFocus_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (args.count() == 0)
        result.setString(root ? root->getFocus() : sstring());
}

void guiWindow_setEnterControl_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                  ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setKeyControl(data, args, &guiHtmlBase::setEnterControl, "GuiWindow::setEnterControl()");
}

void guiWindow_getEnterControl_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                  ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    getName(data, args, result, &guiHtmlBase::getEnterControl);
}

void guiWindow_setEscapeControl_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                   ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    setKeyControl(data, args, &guiHtmlBase::setEscapeControl, "GuiWindow::setEscapeControl()");
}

void guiWindow_getEscapeControl_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args,
                                   ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    getName(data, args, result, &guiHtmlBase::getEscapeControl);
}

void guiWindow_setSizePolicy_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (!root || !guiIsOneString(args))
        return;
    std::optional<guiSizePolicy> policy = guiSizePolicy_fromName(guiTextOf(args, 0));
    if (!policy)
        return;
    root->setSizePolicy(*policy);
    root->updateLayout(1);
}

void guiWindow_getSizePolicy_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (args.count() == 0)
        result.setString(guiSizePolicy_toName(root ? root->getSizePolicy() : kPolicyResize));
}

void guiWindow_control_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    if (!guiIsOneString(args))
        return;
    void* control = nullptr;
    if (ScriptObject* object = guiWindow_control(data, guiTextOf(args, 0), &control)) {
        result.setObject(object);
        object->letGo();
    }
}

// The value of a property of the form as the page shows it now. Without arguments all values are brought into the form.
void guiWindow_readForm_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setNull();
    guiHtmlBase* root = rootOf(data);
    if (root && args.count() == 0)
        root->formValues().store();
    else if (root && guiIsOneString(args))
        root->formValues().read(guiTextOf(args, 0), result);
}

// Whether the values of all controls are as the page asks for. A window without a page asks for nothing.
void guiWindow_isFormValid_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    guiHtmlBase* root = args.count() == 0 ? rootOf(data) : nullptr;
    result.setBool(!root || guiIsFormValid(root));
}

// The text that the user has selected on the page, as it would be copied.
void guiWindow_getSelection_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    guiHtmlBase* root = args.count() == 0 ? rootOf(data) : nullptr;
    guiPageText* text = root ? root->pageText() : nullptr;
    result.setString(text ? qtoss(text->selection.text()) : sstring());
}

// A text, whether the case of letters matters, and -1 for the place before the current one, 1 for the one behind it, 0
// for the first. How many places there are. May run script.
void guiWindow_findText_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    result.setInt(0);
    guiHtmlBase* root = rootOf(data);
    bool const isFind = args.count() == 3 && guiIsString(args, 0) && args.get(1)->isBool() && guiIsNumber(args, 2);
    if (!root || !isFind)
        return;
    int const step = args.get(2)->toInt(0);
    guiFindStep const to = step < 0 ? guiFindStep::kPrevious : step > 0 ? guiFindStep::kNext : guiFindStep::kFirst;
    result.setInt(static_cast<int>(guiFind(*root, sstoq(guiTextOf(args, 0)), args.get(1)->toBool(0) != 0, to)));
}

// A name, a value, and whether the page takes it only when the running handlers have returned. False when the control
// can not take it.
void guiWindow_writeForm_qt(LibManager&, ScriptPrivate* data, ScriptObject*, ScriptArgs& args, ScriptValue& result)
{
    assertOnGuiThread();
    guiWindowData const* record = guiWindow_getData(data);
    bool const isWrite = record && args.count() == 3 && guiIsString(args, 0) && args.get(2)->isBool();
    result.setBool(isWrite);
    if (isWrite && record->root)
        result.setBool(record->root->formValues().write(guiTextOf(args, 0), *args.get(1), args.get(2)->toBool(0)));
    else if (isWrite) // the page that is loaded first takes it
        pGUI->getFormProp()->writeProperty(record->form, guiTextOf(args, 0), args.get(1));
}
