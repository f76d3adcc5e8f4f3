// host/native/nativeentrypoints.h: the four functions that a component is made of.
#pragma once

#include "script/hostinterface.h"

/// The entry points of one component, in the order of their use.
struct NativeEntryPoints
{
    int (*init)(LibManager& manager);
    char const* const* (*getCompNames)();
    int (*configCompClass)(void* context, char const* name, ScriptClass& scriptClass);
    int (*shutdown)();

    /// The component that this program is linked with.
    static NativeEntryPoints linked();
};
