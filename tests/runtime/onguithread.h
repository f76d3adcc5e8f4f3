// tests/runtime/onguithread.h: work for the GUI thread, where pages and windows live.
#pragma once

#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guithread.h"

#include <functional>

/// Runs `work` on the GUI thread, inside an event of the component, and waits for it.
inline void onGuiThread(std::function<void()> const& work)
{
    static std::function<void()> const* theWork;
    theWork = &work;
    auto run = [](LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) { (*theWork)(); };
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(run, pGUI->getManager(), nullptr, nullptr, args, result);
}
