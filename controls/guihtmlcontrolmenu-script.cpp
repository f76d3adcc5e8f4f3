// controls/guihtmlcontrolmenu-script.cpp: the methods of a menu for script, each of which takes an item's name first.
#include "controls/guihtmlcontrolmenu.h"
#include "controls/guiscriptmethod.h"

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

constexpr guiScriptMethod kMethods[] = {
    {"isItemChecked", guiCallOnGuiThread<ask_qt<&menuNode::isItemChecked>>},
    {"checkItem", guiCallOnGuiThread<set_qt<&menuNode::setItemChecked>>},
    {"uncheckItem", guiCallOnGuiThread<clear_qt<&menuNode::setItemChecked>>},
    {"isItemEnabled", guiCallOnGuiThread<ask_qt<&menuNode::isItemEnabled>>},
    {"enableItem", guiCallOnGuiThread<set_qt<&menuNode::setItemEnabled>>},
    {"disableItem", guiCallOnGuiThread<clear_qt<&menuNode::setItemEnabled>>},
    {"setItemText", guiCallOnGuiThread<control_setItemText_qt>},
    {"activateItem", guiCallOnGuiThread<control_activateItem_qt>},
};

} // namespace

void guiHtmlControlMenu::addScriptMethods(ScriptObject* object)
{
    for (guiScriptMethod const& each : kMethods)
        object->addMethod(each.name, each.method);
}
