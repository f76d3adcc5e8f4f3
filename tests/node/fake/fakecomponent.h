// tests/node/fake/fakecomponent.h: a component without windows. It has the four entry points and the five class names,
// calls into script from a second thread like the real one, and counts what the host owes it. It checks the host, not
// itself: whatever the host does wrong ends the process with a line that begins with "fake:".
#pragma once

#include "script/hostinterface.h"
#include "tests/node/fake/guithread.h"

#include <atomic>
#include <map>
#include <string>

/// The record in the private slot of a GuiWindow.
struct FakeWindow
{
    unsigned tag = 0xfeedc0de;
    ScriptObject* object = nullptr;
    ScriptValue* returnValue = nullptr; // the engine's
    ScriptObject* form = nullptr;
    std::atomic<bool> isOpen{false};
    bool hasPage = false;
    std::map<std::string, ScriptObject*> controls; // each kept
};

struct Fake
{
    LibManager* manager = nullptr;
    HostPlatform* platform = nullptr;
    HostLoadFile* files = nullptr;
    HostFormProp* forms = nullptr;
    std::atomic<ScriptEngine*> engine{nullptr};
    ScriptObject* session = nullptr;
    FakeGuiThread gui;
    std::atomic<int> callsInFlight{0};
    std::atomic<int> completions{0};
    std::atomic<int> fires{0};
    std::atomic<int> liveWindows{0};
    std::string destroyed; // what the destroy handlers ended, in order
};

extern Fake fake;

[[noreturn]] void failHost(char const* what);
ScriptPump* fakePump();

/// Runs `job` on the fake GUI thread; the script thread pumps meanwhile, the GUI thread runs it directly.
void callGui(FakeGuiThread::Job const& job);

/// Calls a handler the way a page does: from the GUI thread, with `result` filled when it has ended.
void callHandler(ScriptObject* target, sstring const& name, ScriptArgs* args, ScriptValue* result);

FakeWindow* windowOf(ScriptPrivate* data);
void closeFakeWindow(FakeWindow* window);

int configureWindow(ScriptClass& scriptClass);
int configureControl(ScriptClass& scriptClass);
int configureSizePolicy(ScriptClass& scriptClass);
int configureToolkit(ScriptClass& scriptClass);
