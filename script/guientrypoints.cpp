// script/guientrypoints.cpp: the four functions that the library exports, and the table of script classes behind them.
#include "controls/guiimage.h"
#include "controls/guitoolkit.h"
#include "foundation/vela-memmgr.h"
#include "foundation/vela-string.h"
#include "foundation/vela-threadrole.h"
#include "runtime/gui.h"
#include "runtime/guithread.h"
#include "script/guicontrol.h"
#include "script/guiscripthost.h"
#include "script/guisizepolicy.h"
#include "script/guiwindow.h"

#include <array>
#include <cassert>
#include <iterator>

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

/// More methods of the first two, for hosts whose script has properties and promises. Declared only when they are asked
/// for.
constexpr componentClass kExtensions[] = {
    {"GuiWindowExtension", guiWindow_onConfigureExtension},
    {"GuiControlExtension", guiControl_onConfigureExtension},
};

/// The same names as GetCompNames() gives them, with a null pointer at the end.
constexpr auto kClassNames = [] {
    std::array<char const*, std::size(kClasses) + 1> names{};
    for (std::size_t i = 0; i < std::size(kClasses); ++i)
        names[i] = kClasses[i].name;
    return names;
}();

bool isSameName(char const* a, char const* b)
{
    return stricmp8(reinterpret_cast<unsigned char const*>(a), reinterpret_cast<unsigned char const*>(b)) == 0;
}

} // namespace

int Init(LibManager& manager)
{
    if (pGUI)
        return 1;
    MemMgr_Init();
    guiScriptHost_install();
    pGUI = new guiComponent(manager);
    assert(pGUI->getThread()->isScriptThread());
    if (pGUI->getThread()->isRunning())
        return 1;
    pGUI = nullptr; // its GUI thread can not be ended, so it stays
    return 0;
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

char const* const* GetCompNames() { return kClassNames.data(); }

// Any thread: a host may have several interpreters, of which one at most shows windows. Only constant tables are read.
int ConfigCompClass(void*, char const* name, ScriptClass& scriptClass)
{
    if (!name)
        return 0;
    for (componentClass const& known : kClasses)
        if (isSameName(name, known.name))
            return known.configure(scriptClass) != 0 ? 1 : 0;
    for (componentClass const& known : kExtensions)
        if (isSameName(name, known.name))
            return known.configure(scriptClass) != 0 ? 1 : 0;
    return 0;
}
