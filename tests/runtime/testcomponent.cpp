// tests/runtime/testcomponent.cpp: the entry points of a component that is the window runtime and no more. Its one
// class makes objects that have no page, and bring their engine as windows do.
#include "foundation/vela-memmgr.h"
#include "foundation/vela-threadrole.h"
#include "host/native/nativehost.h"
#include "runtime/gui.h"
#include "runtime/guicomponenthost.h"
#include "runtime/guithread.h"

namespace {

char const* const kClassNames[] = {"GuiWindow", nullptr};

void onCreate(LibManager&, ScriptPrivate*, ScriptObject* self, ScriptArgs&, ScriptValue& result)
{
    pGUI->setEngine(self->getEngine());
    result.setBool(1);
}

/// There are no script classes to tell which control was chosen.
class testHost final : public guiComponentHost
{
    void chooseControl(ScriptPrivate*, sstring const&) override {}
};

/// Many tests here make nodes on their own thread while the GUI thread rests: nobody plays its role then.
void releaseGuiRole(LibManager& manager)
{
    auto release = [](LibManager&, ScriptPrivate*, ScriptObject*, ScriptArgs&, ScriptValue&) { velaGuiRole.release(); };
    NativeArguments args;
    NativeValue result;
    pGUI->getThread()->callFunction(release, manager, nullptr, nullptr, args, result);
}

} // namespace

int Init(LibManager& manager)
{
    MemMgr_Init();
    static testHost& host = *new testHost; // never destroyed: pages may outlive static objects
    guiControlHost::install(&host);
    pGUI = new guiComponent(manager);
    releaseGuiRole(manager);
    return 1;
}

int Shutdown()
{
    pGUI->shutdownWait();
    delete pGUI;
    pGUI = nullptr;
    MemMgr_ShutDown();
    return 1;
}

char const* const* GetCompNames() { return kClassNames; }

int ConfigCompClass(void*, char const*, ScriptClass& scriptClass)
{
    scriptClass.setCreateHandler(onCreate);
    return 1;
}
