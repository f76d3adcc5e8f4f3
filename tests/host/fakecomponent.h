// tests/host/fakecomponent.h: a component without a toolkit: its own thread, two classes, and a log of what the host
// did.
#pragma once

#include "host/native/nativeentrypoints.h"

#include <string>
#include <vector>

/// One at a time, like a component. Its class GuiWindow has "open", "close", "isOpen", "show" (waits in the host's pump
/// until the window is closed; gives what "setReturnValue" was given) and "work" (blocks the script thread until the
/// component's thread has called the handler "onWork"; gives its result); "GuiSizePolicy" has the property FIXED.
class FakeComponent
{
public:
    static NativeEntryPoints entryPoints();
    /// What happened since the last call of this function, in words separated by spaces.
    static std::string takeLog();
    /// Makes ConfigCompClass, or Init, fail from now on.
    static void failConfigure(bool fails);
    static void failInit(bool fails);
    /// As if the user had closed all windows, on the component's own thread.
    static void closeAllByUser();
    /// Starts the handler `name` of the window opened last, as a click would, and does not wait.
    static void click(std::string const& name);
    /// Clicks whose handler has not ended, after Shutdown those that never did.
    static int pendingClicks();
};
