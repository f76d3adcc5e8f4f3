// host/native/nativeentrypoints.h: the four entry points of a component.
#pragma once

#include "script/hostinterface.h"

/// In the order of their use.
struct NativeEntryPoints
{
    int (*init)(LibManager& manager);
    char const* const* (*getCompNames)();
    int (*configCompClass)(void* context, char const* name, ScriptClass& scriptClass);
    int (*shutdown)();

    /// The component that this program is linked with.
    static NativeEntryPoints linked();
};
