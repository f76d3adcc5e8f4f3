// controls/guicontrolmethod.h: how the methods of a control's script object reach its node: each has a half for the
// script thread, which only hands the call over and waits, and a half for the GUI thread, which does the work.
#pragma once

#include "runtime/gui.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"
#include "script/hostinterface.h"

/// The script-thread half of a method.
template <ScriptMethod onGuiThread>
void guiControlHandOver(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                        ScriptValue& result)
{
    pGUI->getThread()->callFunction(onGuiThread, manager, data, self, args, result);
}

/// The control that a script object stands for; null when it is gone, or of another class. GUI thread.
template <typename Node>
Node* guiControlOf(ScriptPrivate* data, ScriptObject* self)
{
    return dynamic_cast<Node*>(guiControl_getHtml(data, self));
}

/// What methods test of their arguments.
inline bool guiIsString(ScriptArgs& args, int index) { return index < args.count() && args.get(index)->isString(); }
inline bool guiIsNumber(ScriptArgs& args, int index) { return index < args.count() && args.get(index)->isNumber(); }
/// A boolean, or a number taken as one.
inline bool guiIsSwitch(ScriptArgs& args, int index)
{
    return index < args.count() && (args.get(index)->isBool() || args.get(index)->isNumber());
}
inline sstring guiTextOf(ScriptArgs& args, int index) { return args.get(index)->toString(0); }
inline int guiSwitchOf(ScriptArgs& args, int index) { return args.get(index)->toBool(0); }

/// A method by name.
struct guiControlMethod
{
    char const* name;
    ScriptMethod method;
};
