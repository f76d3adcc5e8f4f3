// script/guientrypoints.cpp: the four functions that the library exports, and the table of script classes behind them.
#include "controls/guiimage.h"
#include "controls/guitoolkit.h"
#include "foundation/vela-memmgr.h"
#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "script/guicontrol.h"
#include "script/guiscripthost.h"
#include "script/guisizepolicy.h"
#include "script/guiwindow.h"

namespace {

struct componentClass
{
    char const* name;
    int (*configure)(ScriptClass& scriptClass);
};

constexpr componentClass kClasses[] = {
    {"GuiWindow", guiWindow_onConfigure},         {"GuiControl", guiControl_onConfigure},
    {"GuiSizePolicy", guiSizePolicy_onConfigure}, {"GuiToolkit", guiToolkit_onConfigure},
    {"GuiImage", guiImage_onConfigure},
};

char const* const kClassNames[] = {"GuiWindow", "GuiControl", "GuiSizePolicy", "GuiToolkit", "GuiImage", nullptr};

} // namespace

int Init(LibManager& manager)
{
    if (pGUI)
        return 1;
    MemMgr_Init();
    guiScriptHost_install();
    pGUI = new guiComponent(manager);
    return 1;
}

int Shutdown()
{
    assertOnScriptThread();
    if (!pGUI)
        return 1;
    pGUI->shutdownWait();
    delete pGUI;
    pGUI = nullptr;
    MemMgr_CheckForLeaks();
    MemMgr_ShutDown();
    return 1;
}

char const* const* GetCompNames() { return kClassNames; }

int ConfigCompClass(void*, char const* name, ScriptClass& scriptClass)
{
    assertOnScriptThread();
    if (!name)
        return 0;
    for (componentClass const& known : kClasses) {
        if (stricmp8(reinterpret_cast<unsigned char const*>(name),
                     reinterpret_cast<unsigned char const*>(known.name)) == 0)
            return known.configure(scriptClass) != 0 ? 1 : 0;
    }
    return 0;
}
