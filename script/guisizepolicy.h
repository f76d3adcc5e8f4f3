// script/guisizepolicy.h: the script class GuiSizePolicy: three constants that name what a node does with content
// larger than itself.
#pragma once

#include "foundation/vela-string.h"
#include "page/guitypes.h"
#include "script/hostinterface.h"

#include <optional>

/// Declares the class. Always 1. Any thread.
int guiSizePolicy_onConfigure(ScriptClass& scriptClass);

// What the host calls. The three names are properties of the class itself, and can not be set or deleted.

bool guiSizePolicy_onAddProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                             bool isStatic);
bool guiSizePolicy_onDelProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                             bool isStatic);
bool guiSizePolicy_onGetProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                             ScriptValue& out, bool isStatic);
bool guiSizePolicy_onSetProp(LibManager& manager, ScriptPrivate* data, ScriptObject* self, ScriptValue const& name,
                             ScriptValue const& value, bool isStatic);

/// The policy called "SCROLL", "RESIZE" or "FIXED", exactly; none for any other word.
std::optional<guiSizePolicy> guiSizePolicy_fromName(sstring const& name);
/// The name of a policy, "RESIZE" for any other value.
char const* guiSizePolicy_toName(guiSizePolicy policy);
