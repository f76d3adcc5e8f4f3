// controls/guiscriptmethod.h: how the methods of script objects are written. Each has a half on the script thread,
// which only passes the call on and waits, and a half on the GUI thread, which checks the arguments and does the work.
#pragma once

#include "controls/guicontrolhost.h"
#include "foundation/vela-threadrole.h"

#include <cassert>

/// A method by name.
struct guiScriptMethod
{
    char const* name;
    ScriptMethod method;
};

/// The script-thread half of a method whose other half is `onGuiThread`.
template <ScriptMethod onGuiThread>
void guiCallOnGuiThread(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptArgs& args,
                        ScriptValue& result)
{
    guiControlHost::current().callFunction(onGuiThread, manager, data, self, args, result);
}

/// The control that a script object stands for; null when it is gone, or of another class. GUI thread.
template <typename Node>
Node* guiControlOf(ScriptPrivate* data, ScriptObject* self)
{
    assertOnGuiThread();
    return dynamic_cast<Node*>(guiControlHost::current().nodeOf(data, self));
}

// ---- The types of arguments: false for an index behind the last argument ----

inline bool guiIsString(ScriptArgs& args, int index) { return index < args.count() && args.get(index)->isString(); }
inline bool guiIsNumber(ScriptArgs& args, int index) { return index < args.count() && args.get(index)->isNumber(); }
/// A boolean, or a number that is used as one.
inline bool guiIsSwitch(ScriptArgs& args, int index)
{
    return index < args.count() && (args.get(index)->isBool() || args.get(index)->isNumber());
}
/// One string and nothing else.
inline bool guiIsOneString(ScriptArgs& args) { return args.count() == 1 && guiIsString(args, 0); }
/// No argument, which means on, or one switch.
inline bool guiIsOptionalSwitch(ScriptArgs& args)
{
    return args.count() == 0 || (args.count() == 1 && guiIsSwitch(args, 0));
}

// ---- Their values: only for an argument that is there ----

inline sstring guiTextOf(ScriptArgs& args, int index)
{
    assert(index < args.count());
    return args.get(index)->toString(0);
}
inline int guiSwitchOf(ScriptArgs& args, int index)
{
    assert(guiIsSwitch(args, index));
    return args.get(index)->toBool(0);
}
/// 1 without arguments, else the first as a switch.
inline int guiOptionalSwitchOf(ScriptArgs& args) { return args.count() == 0 ? 1 : guiSwitchOf(args, 0); }
