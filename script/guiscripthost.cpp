// script/guiscripthost.cpp: see guiscripthost.h.
#include "script/guiscripthost.h"

#include "page/guipageroot.h"
#include "runtime/guicomponenthost.h"
#include "script/guicontrol.h"
#include "script/guiwindow.h"

namespace {

class scriptHost final : public guiComponentHost
{
public:
    ScriptObject* makeControlObject(guiHtml* node) override
    {
        ScriptObject* object = CreateControlObject(guiPageObjectOf(node));
        if (object)
            FleshInControlObject(object, node);
        return object;
    }

    void fleshIn(ScriptObject* object, guiHtml* node) override { FleshInControlObject(object, node); }

    guiHtml* nodeOf(ScriptPrivate* data, ScriptObject* self) override { return guiControl_getHtml(data, self); }

protected:
    void chooseControl(ScriptPrivate* window, sstring const& name) override { guiWindow_chooseControl(window, name); }
};

} // namespace

void guiScriptHost_install()
{
    static auto& host = *new scriptHost; // never destroyed: pages may outlive static objects
    guiControlHost::install(&host);
}
