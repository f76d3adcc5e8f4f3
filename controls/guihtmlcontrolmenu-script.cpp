// controls/guihtmlcontrolmenu-script.cpp: the methods of a menu for script, each of which takes an item's name first.
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guiscriptmethod.h"
#include "foundation/vela-log.h"

namespace {

using menuNode = guiHtmlControlMenu;

/// The menu, when there are `count` arguments and the first is an item's name.
menuNode* menuFor(ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, int count = 1)
{
    return args.count() == count && guiIsString(args, 0) ? guiControlOf<menuNode>(data, self) : nullptr;
}

/// A method that returns a state of an item.
template <int (menuNode::*getter)(sstring const& name)>
void ask_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    menuNode* menu = menuFor(data, self, args);
    result.setBool(menu && (menu->*getter)(guiTextOf(args, 0)));
}

/// A method that turns a state on, or, with a second argument, on or off.
template <void (menuNode::*setter)(sstring const& name, int on)>
void set_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool const hasSwitch = guiIsSwitch(args, 1);
    if (menuNode* menu = menuFor(data, self, args, hasSwitch ? 2 : 1))
        (menu->*setter)(guiTextOf(args, 0), hasSwitch ? guiSwitchOf(args, 1) : 1);
}

/// A method that turns a state off.
template <void (menuNode::*setter)(sstring const& name, int on)>
void clear_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (menuNode* menu = menuFor(data, self, args))
        (menu->*setter)(guiTextOf(args, 0), 0);
}

void control_setItemText_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (menuNode* menu = guiIsString(args, 1) ? menuFor(data, self, args, 2) : nullptr)
        menu->setItemText(guiTextOf(args, 0), guiTextOf(args, 1));
}

void control_activateItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                             ScriptValue& result)
{
    result.setNull();
    if (menuNode* menu = menuFor(data, self, args))
        menu->activateItem(guiTextOf(args, 0));
}

/// The argument is missing, or null.
bool isAbsent(ScriptArgs& args, int index) { return index >= args.count() || args.get(index)->isNull(); }
bool isOptionalText(ScriptArgs& args, int index) { return isAbsent(args, index) || guiIsString(args, index); }
sstring optionalText(ScriptArgs& args, int index) { return isAbsent(args, index) ? sstring() : guiTextOf(args, index); }

/// A name, a text (without one the name is shown), the name of the menu around it, a type.
void control_addItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    bool const areTexts = guiIsString(args, 0) && isOptionalText(args, 1) && isOptionalText(args, 2) &&
                          isOptionalText(args, 3) && args.count() <= 4;
    menuNode* menu = areTexts ? guiControlOf<menuNode>(data, self) : nullptr;
    if (!menu)
        return;
    guiMenuItemContent content;
    content.name = guiTextOf(args, 0);
    content.text = isAbsent(args, 1) ? content.name : guiTextOf(args, 1);
    content.type = guiReadItemType(optionalText(args, 3)).value_or(guiMenuItemType::kNormal);
    content.checkable = content.type != guiMenuItemType::kNormal;
    menu->addItem(content, optionalText(args, 2));
}

void control_removeItem_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (menuNode* menu = menuFor(data, self, args))
        menu->removeItem(guiTextOf(args, 0));
}

void control_setItemKey_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    menuNode* menu = guiIsString(args, 1) ? menuFor(data, self, args, 2) : nullptr;
    if (!menu)
        return;
    sstring const text = guiTextOf(args, 1);
    std::optional<QKeySequence> const key = guiReadKey(text);
    if (!key && text.getLength() != 0)
        velaLog("tarn: MenuControl.setItemKey(): there are no keys %s\n", velaPrintable(text).c_str());
    else
        menu->setItemKey(guiTextOf(args, 0), key.value_or(QKeySequence()));
}

void control_setItemIcon_qt(LibManager&, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args, ScriptValue& result)
{
    result.setNull();
    if (menuNode* menu = guiIsString(args, 1) ? menuFor(data, self, args, 2) : nullptr)
        menu->setItemIcon(guiTextOf(args, 0), guiTextOf(args, 1));
}

constexpr guiScriptMethod kMethods[] = {
    {"isItemChecked", guiCallOnGuiThread<ask_qt<&menuNode::isItemChecked>>},
    {"checkItem", guiCallOnGuiThread<set_qt<&menuNode::setItemChecked>>},
    {"uncheckItem", guiCallOnGuiThread<clear_qt<&menuNode::setItemChecked>>},
    {"isItemEnabled", guiCallOnGuiThread<ask_qt<&menuNode::isItemEnabled>>},
    {"enableItem", guiCallOnGuiThread<set_qt<&menuNode::setItemEnabled>>},
    {"disableItem", guiCallOnGuiThread<clear_qt<&menuNode::setItemEnabled>>},
    {"setItemText", guiCallOnGuiThread<control_setItemText_qt>},
    {"addItem", guiCallOnGuiThread<control_addItem_qt>},
    {"removeItem", guiCallOnGuiThread<control_removeItem_qt>},
    {"setItemKey", guiCallOnGuiThread<control_setItemKey_qt>},
    {"setItemIcon", guiCallOnGuiThread<control_setItemIcon_qt>},
    {"activateItem", guiCallOnGuiThread<control_activateItem_qt>},
};

} // namespace

void guiHtmlControlMenu::addScriptMethods(ScriptObject* object)
{
    for (guiScriptMethod const& each : kMethods)
        object->addMethod(each.name, each.method);
}
