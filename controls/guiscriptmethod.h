// controls/guiscriptmethod.h: how the methods of script objects are written. Each has a half for the script thread,
// which only hands the call over and waits, and a half for the GUI thread, which looks at the arguments and does the
// work.
#pragma once

#include "controls/guicontrolhost.h"

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
    return dynamic_cast<Node*>(guiControlHost::current().nodeOf(data, self));
}

// ---- What methods ask of their arguments. An index beyond the last is of no kind. ----

inline bool guiIsString(ScriptArgs& args, int index) { return index < args.count() && args.get(index)->isString(); }
inline bool guiIsNumber(ScriptArgs& args, int index) { return index < args.count() && args.get(index)->isNumber(); }
/// A boolean, or a number taken as one.
inline bool guiIsSwitch(ScriptArgs& args, int index)
{
    return index < args.count() && (args.get(index)->isBool() || args.get(index)->isNumber());
}
/// One string and nothing else.
inline bool guiIsOneString(ScriptArgs& args) { return args.count() == 1 && guiIsString(args, 0); }
/// Nothing, which means on, or one switch.
inline bool guiIsOptionalSwitch(ScriptArgs& args)
{
    return args.count() == 0 || (args.count() == 1 && guiIsSwitch(args, 0));
}

inline sstring guiTextOf(ScriptArgs& args, int index) { return args.get(index)->toString(0); }
inline int guiSwitchOf(ScriptArgs& args, int index) { return args.get(index)->toBool(0); }
/// 1 without arguments, else the first as a switch.
inline int guiOptionalSwitchOf(ScriptArgs& args) { return args.count() == 0 ? 1 : guiSwitchOf(args, 0); }
